#include "host/TextLabel.h"

#include "host/ControlProperties.h"

namespace plotkit {

namespace {

constexpr std::array TextRows{
    // The size of a text that sizes its control comes back by itself.
    Property<&TTextLabel::GetWidth, &TTextLabel::SetWidth, &TTextLabel::IsNotAutoSize>("Width").Pixels(),
    Property<&TTextLabel::GetHeight, &TTextLabel::SetHeight, &TTextLabel::IsNotAutoSize>("Height").Pixels(),
    Property<&TTextLabel::GetAutoSize, &TTextLabel::SetAutoSize>("AutoSize"),
    Property<&TTextLabel::GetTransparent, &TTextLabel::SetTransparent>("Transparent"),
};
constexpr std::array TextLabelProperties = JoinRows(TextRows, ControlLookRows, ControlEventRows);

}  // namespace

constinit const TClassInfo TTextLabel::Class{"TTextLabel", &TGraphicControl::Class, TextLabelProperties};

TTextLabel::TTextLabel(TComponent* owner) : TGraphicControl(owner)
{
    TTextLabel::AdjustBounds();
}

void TTextLabel::SetTransparent(bool transparent)
{
    if (FTransparent == transparent)
        return;
    FTransparent = transparent;
    Invalidate();
}

void TTextLabel::SetAutoSize(bool autoSize)
{
    if (FAutoSize == autoSize)
        return;
    FAutoSize = autoSize;
    AdjustBounds();
}

void TTextLabel::AdjustBounds()
{
    if (!FAutoSize || IsLoading())
        return;
    const TTextMeasurer& measurer = Host().TextMeasurer();
    SetBounds(GetLeft(), GetTop(), measurer.Width(GetText(), GetFont().State()), measurer.Height(GetFont().State()));
}

void TTextLabel::Loaded()
{
    TGraphicControl::Loaded();
    AdjustBounds();
}

void TTextLabel::Paint()
{
    TCanvas& canvas = Canvas();
    if (!FTransparent) {
        canvas.Brush.SetColor(GetColor());
        canvas.FillRect(ClientRect());
    }
    canvas.Brush.SetStyle(bsClear);
    canvas.Font = GetFont().State();
    canvas.TextOut(0, 0, GetText());
}

void TTextLabel::CMTextChanged()
{
    AdjustBounds();
    Invalidate();
}

void TTextLabel::CMFontChanged()
{
    AdjustBounds();
    Invalidate();
}

}  // namespace plotkit
