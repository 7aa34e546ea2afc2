#include "host/Form.h"

#include "host/CheckedMath.h"
#include "host/ControlProperties.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr std::array FormRows{
    // A form that fills the screen is written with the place it comes back to.
    Property<&TForm::GetNormalLeft, &TForm::SetNormalLeft>("Left").Pixels(),
    Property<&TForm::GetNormalTop, &TForm::SetNormalTop>("Top").Pixels(),
    Property<&TForm::GetNormalWidth, &TForm::SetNormalWidth>("Width").Pixels(),
    Property<&TForm::GetNormalHeight, &TForm::SetNormalHeight>("Height").Pixels(),
    Property<&TForm::GetText, &TForm::SetText>("Caption"),
    Property<&TForm::GetColor, &TForm::SetColor, &TForm::IsColorStored>("Color"),
    ControlFontRow(),
    Property<&TForm::GetEnabled, &TForm::SetEnabled>("Enabled"),
    Property<&TForm::GetWindowState, &TForm::SetWindowState>("WindowState"),
    Reference<&TForm::GetPopupMenu, &TForm::SetPopupMenu>("PopupMenu"),
};
constexpr std::array FormEventRows{
    Event<TForm, &TForm::OnShow>("OnShow"),
    Event<TForm, &TForm::OnHide>("OnHide"),
    Event<TForm, &TForm::OnKeyDown>("OnKeyDown"),
    Event<TForm, &TForm::OnKeyUp>("OnKeyUp"),
};
constexpr std::array FormProperties = JoinRows(FormRows, ControlEventRows, FormEventRows);

}  // namespace

constinit const TClassInfo TForm::Class{"TForm", &TWindowControl::Class, FormProperties, &CreateComponent<TForm>};

TForm::TForm(TComponent* owner) : TWindowControl(owner)
{
    MakeRoot();
    TControl::SetColor(clButtonFace);
    SetParentFont(false);
    TWindowControl::SetBounds(0, 0, 800, 600);
}

TForm::~TForm()
{
    BeginDestroy();
}

void TForm::SetWindowState(TWindowState state)
{
    if (FWindowState == state)
        return;
    if (FWindowState == wsNormal) {
        FNormalBounds = Bounds();
        FNormalScale = PixelScale();
    }
    FWindowState = state;
    const TRect bounds = state == wsMaximized ? Host().ScreenRect() : state == wsNormal ? FNormalBounds : Bounds();
    SetBounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
    Invalidate();
}

TRect TForm::NormalBounds() const
{
    return FWindowState == wsNormal ? Bounds() : FNormalBounds;
}

void TForm::SetNormalBounds(const TRect& bounds)
{
    if (FWindowState == wsNormal)
        SetBounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
    else
        FNormalBounds = bounds;
}

namespace {

TRect Box(int left, int top, int width, int height)
{
    return {left, top, AddPixels(left, width), AddPixels(top, height)};
}

}  // namespace

void TForm::SetNormalLeft(int left)
{
    SetNormalBounds(Box(left, GetNormalTop(), GetNormalWidth(), GetNormalHeight()));
}

void TForm::SetNormalTop(int top)
{
    SetNormalBounds(Box(GetNormalLeft(), top, GetNormalWidth(), GetNormalHeight()));
}

void TForm::SetNormalWidth(int width)
{
    SetNormalBounds(Box(GetNormalLeft(), GetNormalTop(), std::max(width, 0), GetNormalHeight()));
}

void TForm::SetNormalHeight(int height)
{
    SetNormalBounds(Box(GetNormalLeft(), GetNormalTop(), GetNormalWidth(), std::max(height, 0)));
}

void TForm::CMScaleChanged()
{
    TWindowControl::CMScaleChanged();
    if (FWindowState == wsNormal)
        return;
    const double factor = PixelScale() / FNormalScale;
    const auto scaled = [factor](int value) { return RoundToInt(value * factor); };
    FNormalBounds = Box(scaled(FNormalBounds.Left), scaled(FNormalBounds.Top), scaled(FNormalBounds.Width()),
                        scaled(FNormalBounds.Height()));
    FNormalScale = PixelScale();
}

void TForm::SetShown(bool shown)
{
    if (FShown == shown)
        return;
    FShown = shown;
    if (!shown)
        return OnHide();
    WindowNeeded();
    OnShow();
}

void TForm::Paint()
{
    TCanvas& canvas = Canvas();
    canvas.Brush.SetColor(GetColor());
    canvas.FillRect(ClientRect());
}

}  // namespace plotkit
