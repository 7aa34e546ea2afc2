// The job of CustomButton is a button that is pressed with the mouse, the space bar or the Enter key.
#pragma once

#include "host/WindowControl.h"

namespace plotkit {

/// Its text is its caption; `OnClick` tells of a press that ended on it.
class TCustomButton : public TWindowControl
{
public:
    explicit TCustomButton(TComponent* owner);

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    bool IsPressed() const { return FPressed; }

    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(int key, TShiftState shift) override;
    void KeyUp(int key, TShiftState shift) override;
    bool WantsKey(int key, TShiftState shift) const override;

protected:
    /// What stands on the button, in a box inside its frame.
    virtual void PaintFace(TCanvas& canvas, const TRect& box);

    void Paint() override;
    void CMTextChanged() override { Invalidate(); }
    void CMEnter() override;
    void CMExit() override;

private:
    void Press(bool pressed);

    bool FPressed = false;
    bool FHeld = false;  ///< the mouse button went down here
};

}  // namespace plotkit
