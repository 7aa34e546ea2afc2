#include "controls/KxColorSwatches.h"

namespace plotkit {

namespace {

constexpr int ColumnCount = 8, SwatchHeight = 24, Gap = 4;

}  // namespace

void DrawColorSwatch(TCanvas& canvas, const TRect& box, TColor color)
{
    canvas.Pen = TPen();
    // Seen on light and dark grounds, as the shadow of buttons is not.
    canvas.Pen.Color = clGrayText;
    canvas.Brush = TBrush();
    canvas.Brush.SetColor(color);
    canvas.Rectangle(box.Left, box.Top, box.Right, box.Bottom);
}

TKxColorSwatches::TKxColorSwatches(TComponent* owner) : TCustomListBox(owner)
{
    SetColumns(ColumnCount);
    SetItemHeight(SwatchHeight);
}

void TKxColorSwatches::SetColors(std::vector<TColor> colors)
{
    FColors = std::move(colors);
    TStringList items;
    for (std::size_t i = 0; i < FColors.size(); ++i)
        items.Add("1");
    SetItems(items);
    Invalidate();
}

void TKxColorSwatches::SelectColor(TColor color)
{
    const auto found = std::find(FColors.begin(), FColors.end(), color);
    SetItemIndex(found == FColors.end() ? -1 : static_cast<int>(found - FColors.begin()));
}

std::optional<TColor> TKxColorSwatches::SelectedColor() const
{
    if (GetItemIndex() < 0)
        return std::nullopt;
    return FColors[static_cast<std::size_t>(GetItemIndex())];
}

void TKxColorSwatches::DrawItem(TCanvas& canvas, int index, const TRect& box)
{
    canvas.Brush.SetColor(GetColor());
    canvas.FillRect(box);
    const int gap = Px(Gap);
    DrawColorSwatch(canvas, TRect{box.Left + gap, box.Top + gap, box.Right - gap, box.Bottom - gap},
                    FColors[static_cast<std::size_t>(index)]);
}

}  // namespace plotkit
