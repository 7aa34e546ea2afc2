// The job of ControlsFixture is a control on a form with a clock that stands still, driven as a host would.
#pragma once

#include <gtest/gtest.h>

#include "host/CustomEdit.h"
#include "host/Form.h"

namespace plotkit {

/// Characters are 6 pixels wide: the control's font has 9 points.
template <class T>
struct TOnForm
{
    TFakeHost Fake;
    THostGuard Guard{Fake};
    TForm Form{nullptr};
    T* Control = new T(&Form);

    TOnForm()
    {
        Form.Show();
        Form.GetFont().SetSize(9);
        Control->SetParent(&Form);
        Control->SetBounds(10, 20, 100, 23);
    }
    void Press(int key, TShiftState shift = {}) { Form.DispatchKeyDown(key, shift); }
    void Ctrl(int key)
    {
        TShiftState shift;
        shift.Ctrl = true;
        Press(key, shift);
    }
    void Type(std::string_view keys)
    {
        for (const char key : keys)
            Press(key);
    }
    void Down(int x, bool isDouble = false)
    {
        TShiftState shift;
        shift.Left = true;
        shift.Double = isDouble;
        Form.DispatchMouseDown(mbLeft, shift, 10 + x, 30);
    }
    void Move(int x) { Form.DispatchMouseMove({}, 10 + x, 30); }
    void Up(int x) { Form.DispatchMouseUp(mbLeft, {}, 10 + x, 30); }
};

inline constexpr TShiftState WithShift{.Shift = true};
inline constexpr TShiftState WithCtrl{.Ctrl = true};
inline constexpr TShiftState WithBoth{.Shift = true, .Ctrl = true};

}  // namespace plotkit
