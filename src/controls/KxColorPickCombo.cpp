#include "controls/KxColorPickCombo.h"

namespace plotkit {

namespace {

constexpr int Height = 20, SwatchWidth = 28, Gap = 3, ShownRows = 26;
constexpr std::string_view OtherText = "Other\u2026";

}  // namespace

constinit const TClassInfo TKxColorPickCombo::Class{"TKxColorPickCombo", &TCustomComboBox::Class,
                                                    ColorPickerRows<TKxColorPickCombo>,
                                                    &CreateComponent<TKxColorPickCombo>};

TKxColorPickCombo::TKxColorPickCombo(TComponent* owner) : TKxColorPicker(owner)
{
    SetItemHeight(Height);
    SetBounds(0, 0, 160, Height + 6);
    SetDropDownCount(ShownRows);
    FillItems();
}

TKxColorPickCombo::~TKxColorPickCombo() noexcept
{
    BeginDestroy();
}

void TKxColorPickCombo::Offer(std::span<const TKxNamedColor> colors)
{
    for (const TKxNamedColor& one : colors)
        FColors.push_back({one.Color, &one == colors.data()});
}

void TKxColorPickCombo::FillItems()
{
    FColors.clear();
    Offer(DistinctColors());
    Offer(PlainColors());
    const TColor selected = GetSelected();
    std::vector<TColor> recent = GetRecent() ? GetRecent()->Colors() : std::vector<TColor>();
    const auto isSelected = [selected](const auto& named) { return named.Color == selected; };
    const std::span<const TKxNamedColor> desktop = DesktopColors();
    const bool isOffered = std::any_of(FColors.begin(), FColors.end(), isSelected) ||
                           std::any_of(desktop.begin(), desktop.end(), isSelected);
    if (!isOffered && std::find(recent.begin(), recent.end(), selected) == recent.end())
        recent.insert(recent.begin(), selected);
    for (const TColor& color : recent)
        FColors.push_back({color, &color == recent.data()});
    Offer(desktop);
    TStringList items;
    for (const TItem& item : FColors)
        items.Add(ColorName(item.Color));
    items.Add(std::string(OtherText));
    SetItems(items);
    SetItemIndex(static_cast<int>(std::find_if(FColors.begin(), FColors.end(), isSelected) - FColors.begin()));
}

void TKxColorPickCombo::DropDown()
{
    // Other pickers may have used the shared list since.
    if (!GetDroppedDown())
        FillItems();
    TCustomComboBox::DropDown();
}

void TKxColorPickCombo::ItemTaken(int index, bool fromList)
{
    if (IsOther(index)) {
        // Keys that move through the closed box end before it.
        if (fromList)
            PickerForm().Open(GetSelected());
        return;
    }
    if (index < 0 || index == GetItemIndex())
        return;
    SetItemIndex(index);
    Choose(FColors[static_cast<std::size_t>(index)].Color);
}

void TKxColorPickCombo::DrawItem(TCanvas& canvas, int index, const TRect& box)
{
    canvas.Brush.SetColor(GetEnabled() ? GetColor() : clButtonFace);
    canvas.FillRect(box);
    const int gap = Px(Gap), width = Px(SwatchWidth);
    const bool isOther = IsOther(index);
    if (!isOther)
        DrawColorSwatch(canvas, TRect{box.Left + gap, box.Top + gap, box.Left + gap + width, box.Bottom - gap},
                        FColors[static_cast<std::size_t>(index)].Color);
    if (IsDrawingList() && index > 0 && (isOther || FColors[static_cast<std::size_t>(index)].IsFirst)) {
        canvas.Brush.SetColor(MiddleColor());
        canvas.FillRect({box.Left, box.Top, box.Right, box.Top + Px(1)});
    }
    canvas.Font = GetFont().State();
    canvas.Font.Color = GetEnabled() ? canvas.Font.Color : clGrayText;
    canvas.Brush.SetStyle(bsClear);
    const std::string& text = Items()[index];
    canvas.TextOut(box.Left + 3 * gap + width, box.Top + (box.Height() - canvas.TextHeight(text)) / 2, text);
}

}  // namespace plotkit
