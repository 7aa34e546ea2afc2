// The job of KxIntegerEdit is edits for whole numbers that stay between bounds, one of them with buttons to step.
#pragma once

#include "host/CustomEdit.h"
#include "host/UpDown.h"

namespace plotkit {

/// While the user types, `Value` follows the text, kept between the bounds (none while they are equal). A text beyond
/// them is left alone until it is as long as the longer one of the bounds; invalid text is answered by a beep and the
/// last valid one. Nothing is raised. `OnChange` tells of each change of the text, once.
class TKxIntegerEdit : public TCustomEdit
{
public:
    using TCustomEdit::TCustomEdit;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    int GetMinValue() const { return FMinValue; }
    void SetMinValue(int value);
    int GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(int value);
    int GetValue() const { return FValue; }
    /// Shows the value, kept between the bounds.
    void SetValue(int value);
    void Loaded() override;

protected:
    void Change() override;
    void CMExit() override;

private:
    int CheckValue(int value);
    void TakeText();
    void FindBoundLength();

    std::string FLastValid = "0";
    int FMinValue = -2147483647;
    int FMaxValue = 2147483647;
    int FValue = 0;
    int FBoundLength = 11;  ///< of the longer text of the two bounds
    bool FChanging = false;
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
    int FIncrement = 1;
    int FBtnWidth = 15;
};

}  // namespace plotkit
