// The job of KxIntegerEdit is edits for whole numbers that stay between bounds, one of them with buttons to step.
#pragma once

#include "controls/KxNumberEdit.h"
#include "host/UpDown.h"
#include "host/WheelNotches.h"

namespace plotkit {

class TKxIntegerEdit : public TKxNumberEdit<int>
{
public:
    explicit TKxIntegerEdit(TComponent* owner) : TKxNumberEdit(owner, -2147483647, 2147483647) {}

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

protected:
    std::optional<int> NumberOf(std::string_view text) const override;
    std::string NumberText(int value) const override { return std::to_string(value); }
};

/// The up button and the Up key add `Increment` to the value, the down button and the Down key take it away; so does
/// the wheel while the edit has the focus.
class TKxSpinIntegerEdit : public TKxIntegerEdit
{
public:
    explicit TKxSpinIntegerEdit(TComponent* owner);
    ~TKxSpinIntegerEdit() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    int GetIncrement() const { return FIncrement; }
    void SetIncrement(int increment) { FIncrement = increment; }
    /// In 1/96 inch; 0 and below hide the buttons.
    int GetBtnWidth() const { return FBtnWidth; }
    void SetBtnWidth(int width);
    TUpDown& Buttons() { return FButtons; }
    void Step(TUpDownButton button);

    TRect EditRect() const override;
    void KeyDown(int key, TShiftState shift) override;
    bool WantsKey(int key, TShiftState shift) const override;
    void MouseWheel(TShiftState shift, int delta, int x, int y) override;
    void SetBounds(int left, int top, int width, int height) override;

protected:
    void CMScaleChanged() override;

private:
    void PlaceButtons();

    TUpDown FButtons{nullptr};
    TWheelNotches FWheel;
    int FIncrement = 1;
    int FBtnWidth = 15;
};

}  // namespace plotkit
