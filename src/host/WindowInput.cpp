#include "host/PixelMath.h"
#include "host/WindowControl.h"

namespace plotkit {

namespace {

constexpr unsigned ButtonBit(TMouseButton button)
{
    return 1U << button;
}

}  // namespace

TControl& TWindowControl::ControlAt(int x, int y)
{
    for (auto it = FControls.rbegin(); it != FControls.rend(); ++it) {
        TControl& control = **it;
        if (!control.FVisible || !control.FEnabled || !control.FBounds.Contains({x, y}))
            continue;
        auto* window = dynamic_cast<TWindowControl*>(&control);
        return window ? window->ControlAt(x - control.GetLeft(), y - control.GetTop()) : control;
    }
    return *this;
}

TPoint TWindowControl::PointIn(const TControl& control, int x, int y) const
{
    const TPoint origin = control.OriginInRoot();
    return {SaturatePixel(std::int64_t{x} - origin.X), SaturatePixel(std::int64_t{y} - origin.Y)};
}

void TWindowControl::DispatchMouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    WindowNeeded();
    if (!GetEnabled())
        return;
    if (!FCaptured)
        FCaptured = &ControlAt(x, y);
    FButtons |= ButtonBit(button);
    TControl& target = *FCaptured;
    const auto alive = target.Lifeline().Watch();
    PointerMovedTo(&target);
    if (button == mbLeft)
        FClickTarget = shift.Double ? nullptr : &target;
    if (button == mbLeft && shift.Double)
        target.DblClick();
    if (alive.expired())
        return;
    const TPoint at = PointIn(target, x, y);
    target.MouseDown(button, shift, at.X, at.Y);
}

void TWindowControl::DispatchMouseMove(TShiftState shift, int x, int y)
{
    WindowNeeded();
    if (!GetEnabled())
        return;
    TControl& target = FCaptured ? *FCaptured : ControlAt(x, y);
    const auto alive = target.Lifeline().Watch();
    PointerMovedTo(&target);
    if (alive.expired())
        return;
    const TPoint at = PointIn(target, x, y);
    target.MouseMove(shift, at.X, at.Y);
}

void TWindowControl::DispatchMouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    FButtons &= ~ButtonBit(button);
    TControl* captured = FButtons ? FCaptured : std::exchange(FCaptured, nullptr);
    TControl* clicked = button == mbLeft ? std::exchange(FClickTarget, nullptr) : nullptr;
    if (!GetEnabled())
        return;
    TControl& target = captured ? *captured : ControlAt(x, y);
    const auto alive = target.Lifeline().Watch();
    const auto ownAlive = Lifeline().Watch();
    const TPoint at = PointIn(target, x, y);
    if (clicked == &target && target.ClientRect().Contains(at))
        target.Click();
    if (!alive.expired())
        target.MouseUp(button, shift, at.X, at.Y);
    if (!ownAlive.expired() && !FCaptured)
        PointerMovedTo(&ControlAt(x, y));
}

void TWindowControl::DispatchMouseWheel(TShiftState shift, int delta, int x, int y)
{
    if (!GetEnabled())
        return;
    TControl& target = FCaptured ? *FCaptured : ControlAt(x, y);
    const TPoint at = PointIn(target, x, y);
    target.MouseWheel(shift, delta, at.X, at.Y);
}

void TWindowControl::DispatchContextPopup(int x, int y)
{
    if (!GetEnabled())
        return;
    TControl& target = ControlAt(x, y);
    target.ContextPopup(PointIn(target, x, y));
}

void TWindowControl::PointerMovedTo(TControl* control)
{
    if (FUnderPointer == control)
        return;
    FUnderPointer = control;
    if (FSite)
        FSite->PointerChanged(control);
}

void TWindowControl::PointerLooksChanged(const TControl* control)
{
    if (FSite && FUnderPointer == control && control)
        FSite->PointerChanged(FUnderPointer);
}

void TWindowControl::Forget(const TControl* control)
{
    const auto isInside = [control](const TControl* inner) {
        while (inner && inner != control)
            inner = inner->FParent;
        return inner == control;
    };
    if (FCaptured && isInside(FCaptured))
        FCaptured = nullptr;
    if (FClickTarget && isInside(FClickTarget))
        FClickTarget = nullptr;
    if (FFocused && isInside(FFocused))
        ChangeFocus(nullptr);
    if (FUnderPointer && isInside(FUnderPointer))
        PointerMovedTo(nullptr);
    std::erase_if(FChangedParts, isInside);
}

void TWindowControl::SetFocus()
{
    if (GetVisible() && GetEnabled())
        RootOfThis().ChangeFocus(this);
}

void TWindowControl::ChangeFocus(TWindowControl* to)
{
    if (FFocused == to)
        return;
    const auto alive = Lifeline().Watch();
    TWindowControl* const left = std::exchange(FFocused, to);
    if (left && !left->IsDestroying())
        left->CMExit();
    // Whoever hears of the end may move the focus on, or take the tree away.
    if (to && !alive.expired() && FFocused == to)
        to->CMEnter();
}

void TWindowControl::DispatchText(std::string_view text)
{
    if (GetEnabled())
        (FFocused ? *FFocused : *this).TextInput(text);
}

void TWindowControl::DispatchKeyDown(int key, TShiftState shift)
{
    if (GetEnabled())
        (FFocused ? *FFocused : *this).KeyDown(key, shift);
}

void TWindowControl::DispatchKeyUp(int key, TShiftState shift)
{
    if (GetEnabled())
        (FFocused ? *FFocused : *this).KeyUp(key, shift);
}

}  // namespace plotkit
