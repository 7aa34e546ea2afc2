#include "host/PixelMath.h"
#include "host/WindowControl.h"

namespace plotkit {

void TControl::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    OnMouseDown(button, shift, x, y);
}

void TControl::MouseMove(TShiftState shift, int x, int y)
{
    OnMouseMove(shift, x, y);
}

void TControl::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    OnMouseUp(button, shift, x, y);
}

void TControl::MouseWheel(TShiftState shift, int delta, int x, int y)
{
    if (OnMouseWheel)
        OnMouseWheel(shift, delta, x, y);
    else if (FParent)
        FParent->MouseWheel(shift, delta, AddPixels(x, FBounds.Left), AddPixels(y, FBounds.Top));
}

void TControl::Click()
{
    OnClick();
}

void TControl::DblClick()
{
    OnDblClick();
}

void TControl::ContextPopup(TPoint at)
{
    OnContextPopup(at);
    if (!OnContextPopup && !FPopupMenu && FParent)
        FParent->ContextPopup(MovePoint(at, FBounds.TopLeft()));
}

}  // namespace plotkit
