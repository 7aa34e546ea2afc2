#include "host/CustomButton.h"

#include "host/ControlProperties.h"

namespace plotkit {

namespace {

constexpr std::array ButtonRows{
    Event<TWindowControl, &TWindowControl::OnEnter>("OnEnter"),
    Event<TWindowControl, &TWindowControl::OnExit>("OnExit"),
};
constexpr std::array ButtonProperties = JoinRows(ControlLookRows, ControlEventRows, ButtonRows);

}  // namespace

constinit const TClassInfo TCustomButton::Class{"TCustomButton", &TWindowControl::Class, ButtonProperties};

TCustomButton::TCustomButton(TComponent* owner) : TWindowControl(owner)
{
    SetParentColor(false);
    TControl::SetColor(clButtonFace);
    TWindowControl::SetBounds(0, 0, 75, 25);
}

void TCustomButton::Press(bool pressed)
{
    if (FPressed == pressed)
        return;
    FPressed = pressed;
    Invalidate();
}

void TCustomButton::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TWindowControl::MouseDown(button, shift, x, y);
    if (button != mbLeft)
        return;
    SetFocus();
    FHeld = true;
    Press(true);
}

void TCustomButton::MouseMove(TShiftState shift, int x, int y)
{
    TWindowControl::MouseMove(shift, x, y);
    if (FHeld)
        Press(ClientRect().Contains({x, y}));
}

void TCustomButton::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft) {
        FHeld = false;
        Press(false);
    }
    TWindowControl::MouseUp(button, shift, x, y);
}

bool TCustomButton::WantsKey(int key, TShiftState shift) const
{
    return !shift.Ctrl && !shift.Alt && (key == ' ' || key == kyEnter);
}

void TCustomButton::KeyDown(int key, TShiftState shift)
{
    TWindowControl::KeyDown(key, shift);
    if (!WantsKey(key, shift))
        return;
    if (key == ' ')
        Press(true);
    else
        Click();
}

void TCustomButton::KeyUp(int key, TShiftState shift)
{
    TWindowControl::KeyUp(key, shift);
    if (key != ' ' || !FPressed)
        return;
    Press(false);
    Click();
}

void TCustomButton::CMEnter()
{
    Invalidate();
    TWindowControl::CMEnter();
}

void TCustomButton::CMExit()
{
    Press(false);
    Invalidate();
    TWindowControl::CMExit();
}

void TCustomButton::PaintFace(TCanvas& canvas, const TRect& box)
{
    const TFontState font = GetFont().State();
    canvas.Font = font;
    canvas.Font.Color = GetEnabled() ? clButtonText : clGrayText;
    canvas.Brush.SetStyle(bsClear);
    const int height = canvas.TextHeight(GetText());
    canvas.TextOut(box.Left + (box.Width() - canvas.TextWidth(GetText())) / 2, box.Top + (box.Height() - height) / 2,
                   GetText());
}

void TCustomButton::Paint()
{
    TCanvas& canvas = Canvas();
    const TRect box = ClientRect();
    canvas.Pen.Color = HasFocus() ? clHighlight : clButtonShadow;
    canvas.Brush.SetColor(GetColor());
    canvas.Rectangle(box.Left, box.Top, box.Right, box.Bottom);
    const int frame = Px(3), shift = FPressed ? Px(1) : 0;
    PaintFace(canvas, TRect{frame + shift, frame + shift, GetWidth() - frame + shift, GetHeight() - frame + shift});
}

}  // namespace plotkit
