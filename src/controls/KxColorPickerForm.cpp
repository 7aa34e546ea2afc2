#include "controls/KxColorPickerForm.h"

#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr std::array FormRows{
    Property<&TKxColorPickerForm::GetSelected, &TKxColorPickerForm::SetSelected>("Selected"),
    Reference<&TKxColorPickerForm::GetRecent, &TKxColorPickerForm::SetRecent>("Recent"),
    Event<TKxColorPickerForm, &TKxColorPickerForm::OnAccept>("OnAccept"),
};

constexpr int Margin = 12, RowTop = 28, RowPitch = 50, RowWidth = 306, RowHeight = 26;
constexpr int EditTop = RowTop + 4 * RowPitch + 4, EditHeight = 23, EditPitch = 30;
constexpr int FormWidth = RowWidth + 2 * Margin, FormHeight = EditTop + 3 * EditPitch + EditHeight + Margin;
constexpr int LabelWidth = 54, PartWidth = 70, TextWidth = 110, ButtonWidth = 62;

constexpr std::array RowNames{"Told apart by all eyes", "Plain", "Recent", "Of the desktop"};
constexpr std::array PartNames{"Red", "Green", "Blue"};

std::vector<TColor> ColorsOf(std::span<const TKxNamedColor> named)
{
    std::vector<TColor> colors;
    for (const TKxNamedColor& one : named)
        colors.push_back(one.Color);
    return colors;
}

}  // namespace

constinit const TClassInfo TKxColorPickerForm::Class{"TKxColorPickerForm", &TForm::Class, FormRows,
                                                     &CreateComponent<TKxColorPickerForm>};

TKxColorPickerForm::TKxColorPickerForm(TComponent* owner) : TForm(owner)
{
    SetBounds(0, 0, FormWidth, FormHeight);
    PlaceRows();
    PlaceEdits();
    PlaceButtons();
    Take(FSelected, nullptr);
}

TKxColorPickerForm::~TKxColorPickerForm()
{
    BeginDestroy();
}

void TKxColorPickerForm::PlaceLabel(std::size_t index, const char* text, int left, int top)
{
    TTextLabel& label = FLabels[index];
    label.SetTransparent(true);
    label.SetParent(this);
    label.SetText(text);
    label.SetBounds(left, top, label.GetWidth(), label.GetHeight());
}

void TKxColorPickerForm::Place(TWindowControl& control, const TRect& box)
{
    control.SetParent(this);
    control.SetBounds(box.Left, box.Top, box.Width(), box.Height());
    control.OnKeyDown = [this](int key, TShiftState shift) { ServeKey(key, shift); };
    FTabOrder.push_back(&control);
}

void TKxColorPickerForm::PlaceRows()
{
    for (std::size_t i = 0; i < FRows.size(); ++i) {
        const int top = RowTop + static_cast<int>(i) * RowPitch;
        PlaceLabel(i, RowNames[i], Margin, top - 18);
        TKxColorSwatches& row = FRows[i];
        Place(row, TRect{Margin, top, Margin + RowWidth, top + RowHeight});
        row.OnChange = [this, &row] {
            if (const auto color = row.SelectedColor())
                Take(*color, &row);
        };
        row.OnDblClick = [this] { Accept(); };
    }
    FRows[rwDistinct].SetColors(ColorsOf(DistinctColors()));
    FRows[rwPlain].SetColors(ColorsOf(PlainColors()));
    FRows[rwDesktop].SetColors(ColorsOf(DesktopColors()));
}

void TKxColorPickerForm::PlaceEdits()
{
    for (std::size_t i = 0; i <= FParts.size(); ++i) {
        const bool isPart = i < FParts.size();
        const int top = EditTop + static_cast<int>(i) * EditPitch, left = Margin + LabelWidth;
        PlaceLabel(FRows.size() + i, isPart ? PartNames[i] : "Colour", Margin, top + 4);
        TCustomEdit& edit = isPart ? static_cast<TCustomEdit&>(FParts[i]) : FText;
        const int width = isPart ? PartWidth : TextWidth;
        Place(edit, TRect{left, top, left + width, top + EditHeight});
    }
    for (TKxSpinIntegerEdit& part : FParts) {
        part.SetMaxValue(255);
        part.SetMinValue(0);
        part.OnChange = [this, &part] { TakeParts(&part); };
    }
    FText.OnChange = [this] {
        if (const auto color = ParseColor(FText.GetText()))
            Take(*color, &FText);
    };
}

void TKxColorPickerForm::PlaceButtons()
{
    const int top = EditTop + 3 * EditPitch, left = FormWidth - Margin - ButtonWidth;
    FAccept.TControl::SetText("OK");
    FAccept.OnClick = [this] { Accept(); };
    FCancel.TControl::SetText("Cancel");
    FCancel.OnClick = [this] { Cancel(); };
    Place(FAccept, TRect{left - ButtonWidth - 6, top, left - 6, top + EditHeight});
    Place(FCancel, TRect{left, top, left + ButtonWidth, top + EditHeight});
}

void TKxColorPickerForm::SetRecent(TKxRecentColors* recent)
{
    if (FRecent == recent)
        return;
    if (FRecent)
        StopWatching(FRecent);
    FRecent = recent;
    WatchFor(recent);
    FillRecent();
}

void TKxColorPickerForm::Notification(TComponent* component, TOperation operation)
{
    TForm::Notification(component, operation);
    if (operation == opRemove && component == FRecent)
        FRecent = nullptr;
}

void TKxColorPickerForm::FillRecent()
{
    FRows[rwRecent].SetColors(FRecent ? FRecent->Colors() : std::vector<TColor>());
    FRows[rwRecent].SelectColor(FSelected);
}

void TKxColorPickerForm::SetSelected(TColor color)
{
    if (FSelected != color)
        Take(color, nullptr);
}

void TKxColorPickerForm::Take(TColor color, const TWindowControl* from)
{
    if (FTaking)
        return;
    const TRestore taking(FTaking, true);
    FSelected = color;
    for (TKxColorSwatches& row : FRows)
        if (&row != from)
            row.SelectColor(color);
    const TColor shown = Host().ResolveColor(color);
    const std::array<int, 3> parts{RedOf(shown), GreenOf(shown), BlueOf(shown)};
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (&FParts[i] != from)
            FParts[i].SetValue(parts[i]);
    if (&FText != from)
        FText.SetText(ColorName(color));
    Invalidate();
}

void TKxColorPickerForm::TakeParts(const TWindowControl* from)
{
    const auto part = [this](std::size_t i) { return static_cast<std::uint8_t>(FParts[i].GetValue()); };
    Take(RgbColor(part(0), part(1), part(2)), from);
}

void TKxColorPickerForm::Open(TColor color)
{
    FBefore = color;
    Take(color, nullptr);
    FillRecent();
    FText.SetFocus();
    FText.SelectAll();
    Show();
}

void TKxColorPickerForm::Accept()
{
    if (FRecent)
        FRecent->Use(FSelected);
    const auto alive = Lifeline().Watch();
    Hide();
    if (!alive.expired())
        OnAccept();
}

void TKxColorPickerForm::Cancel()
{
    Take(FBefore, nullptr);
    Hide();
}

void TKxColorPickerForm::ServeKey(int key, TShiftState shift)
{
    if (key == kyEscape)
        return Cancel();
    if (key == kyEnter && Focused() != &FAccept && Focused() != &FCancel)
        return Accept();
    if (key != kyTab || shift.Ctrl || shift.Alt)
        return;
    const auto count = FTabOrder.size();
    const auto at = std::find(FTabOrder.begin(), FTabOrder.end(), Focused()) - FTabOrder.begin();
    const std::size_t next = (static_cast<std::size_t>(at) + (shift.Shift ? count - 1 : 1)) % count;
    FTabOrder[next]->SetFocus();
    if (auto* edit = dynamic_cast<TCustomEdit*>(FTabOrder[next]))
        edit->SelectAll();
}

void TKxColorPickerForm::Paint()
{
    TForm::Paint();
    const int left = Px(Margin + LabelWidth + PartWidth + 20), right = Px(FormWidth - Margin);
    const int top = Px(EditTop), bottom = Px(EditTop + 2 * EditPitch + EditHeight), middle = (left + right) / 2;
    DrawColorSwatch(Canvas(), TRect{left, top, middle, bottom}, FBefore);
    DrawColorSwatch(Canvas(), TRect{middle, top, right, bottom}, FSelected);
}

}  // namespace plotkit
