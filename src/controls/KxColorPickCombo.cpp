#include "controls/KxColorPickCombo.h"

namespace plotkit {

namespace {

constexpr std::array ComboRows{
    Property<&TKxColorPickCombo::GetSelected, &TKxColorPickCombo::SetSelected>("Selected"),
    Reference<&TKxColorPickCombo::GetRecent, &TKxColorPickCombo::SetRecent>("Recent"),
};

constexpr int Height = 20, SwatchWidth = 28, Gap = 3, ShownRows = 26;
constexpr std::string_view OtherText = "Other\u2026";

}  // namespace

constinit const TClassInfo TKxColorPickCombo::Class{"TKxColorPickCombo", &TCustomComboBox::Class, ComboRows,
                                                    &CreateComponent<TKxColorPickCombo>};

TKxColorPickCombo::TKxColorPickCombo(TComponent* owner) : TCustomComboBox(owner)
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
    std::vector<TColor> recent = FRecent ? FRecent->Colors() : std::vector<TColor>();
    const auto isSelected = [this](const auto& named) { return named.Color == FSelected; };
    const std::span<const TKxNamedColor> desktop = DesktopColors();
    const bool isOffered = std::any_of(FColors.begin(), FColors.end(), isSelected) ||
                           std::any_of(desktop.begin(), desktop.end(), isSelected);
    if (!isOffered && std::find(recent.begin(), recent.end(), FSelected) == recent.end())
        recent.insert(recent.begin(), FSelected);
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

void TKxColorPickCombo::SetSelected(TColor color)
{
    if (FSelected == color)
        return;
    FSelected = color;
    FillItems();
}

void TKxColorPickCombo::SetRecent(TKxRecentColors* recent)
{
    if (FRecent == recent)
        return;
    if (FRecent)
        StopWatching(FRecent);
    FRecent = recent;
    WatchFor(recent);
    if (FForm)
        FForm->SetRecent(recent);
    FillItems();
}

void TKxColorPickCombo::Notification(TComponent* component, TOperation operation)
{
    TCustomComboBox::Notification(component, operation);
    if (operation == opRemove && component == FRecent)
        FRecent = nullptr;
}

TKxColorPickerForm& TKxColorPickCombo::PickerForm()
{
    if (!FForm) {
        FForm = std::make_unique<TKxColorPickerForm>(nullptr);
        FForm->SetRecent(FRecent);
        FForm->OnAccept = TEvent<>::Bind<&TKxColorPickCombo::TakeAccepted>(this);
    }
    return *FForm;
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
            PickerForm().Open(FSelected);
        return;
    }
    if (index < 0 || index == GetItemIndex())
        return;
    FSelected = FColors[static_cast<std::size_t>(index)].Color;
    SetItemIndex(index);
    OnChange();
}

void TKxColorPickCombo::TakeAccepted()
{
    const bool isOther = FForm->GetSelected() != FSelected;
    FSelected = FForm->GetSelected();
    FillItems();
    if (isOther)
        OnChange();
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
