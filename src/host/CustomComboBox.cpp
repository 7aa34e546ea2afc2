#include "host/CustomComboBox.h"

#include "host/ControlProperties.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr std::array ComboRows{
    Property<&TCustomComboBox::GetItemHeight, &TCustomComboBox::SetItemHeight>("ItemHeight"),
    Property<&TCustomComboBox::GetDropDownCount, &TCustomComboBox::SetDropDownCount>("DropDownCount"),
};
constexpr std::array ComboEventRows{
    Event<TCustomComboBox, &TCustomComboBox::OnChange>("OnChange"),
    Event<TCustomComboBox, &TCustomComboBox::OnDropDown>("OnDropDown"),
    Event<TCustomComboBox, &TCustomComboBox::OnCloseUp>("OnCloseUp"),
    Event<TWindowControl, &TWindowControl::OnEnter>("OnEnter"),
    Event<TWindowControl, &TWindowControl::OnExit>("OnExit"),
    Event<TWindowControl, &TWindowControl::OnKeyDown>("OnKeyDown"),
    Event<TWindowControl, &TWindowControl::OnKeyUp>("OnKeyUp"),
};
constexpr std::array ComboProperties = JoinRows(ComboRows, ControlLookRows, ControlEventRows, ComboEventRows);

constexpr int Frame = 2, ButtonWidth = 17;
constexpr int MaxItemHeight = 1000;

}  // namespace

/// The list draws its items, and takes them over, through the combo box.
class TCustomComboBox::TDropList : public TCustomListBox
{
public:
    explicit TDropList(TCustomComboBox& combo) : TCustomListBox(nullptr), FCombo(combo) { MakeRoot(); }
    ~TDropList() override { BeginDestroy(); }

    void MouseMove(TShiftState shift, int x, int y) override
    {
        TCustomListBox::MouseMove(shift, x, y);
        SelectByUser(ItemAtPos(x, y));
    }
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override
    {
        TCustomListBox::MouseUp(button, shift, x, y);
        if (button == mbLeft && ItemAtPos(x, y) >= 0)
            FCombo.CloseUp(true);
    }
    void KeyDown(int key, TShiftState shift) override
    {
        const bool toggles = shift.Alt && (key == kyUp || key == kyDown);
        if (toggles || key == kyEnter || key == ' ' || key == kyTab)
            FCombo.CloseUp(true);
        else if (key == kyEscape)
            FCombo.CloseUp(false);
        else
            TCustomListBox::KeyDown(key, shift);
    }

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override
    {
        const TRestore drawing(FCombo.FDrawingList, true);
        FCombo.DrawItem(canvas, index, box);
    }

private:
    TCustomComboBox& FCombo;
};

constinit const TClassInfo TCustomComboBox::Class{"TCustomComboBox", &TWindowControl::Class, ComboProperties};

TCustomComboBox::TCustomComboBox(TComponent* owner) : TWindowControl(owner), FList(std::make_unique<TDropList>(*this))
{
    SetParentColor(false);
    TWindowControl::SetBounds(0, 0, 145, 23);
}

TCustomComboBox::~TCustomComboBox() noexcept
{
    BeginDestroy();
}

TCustomListBox& TCustomComboBox::DropList()
{
    return *FList;
}

void TCustomComboBox::SetItems(const TStringList& items)
{
    FItems = items;
    if (FItemIndex >= ItemCount())
        FItemIndex = -1;
    FList->SetItems(items);
    Invalidate();
}

void TCustomComboBox::SetItemIndex(int index)
{
    index = index >= 0 && index < ItemCount() ? index : -1;
    if (std::exchange(FItemIndex, index) != index)
        Invalidate();
}

void TCustomComboBox::SetItemHeight(int height)
{
    FItemHeight = std::clamp(height, 1, MaxItemHeight);
    Invalidate();
}

void TCustomComboBox::SetBounds(int left, int top, int width, int height)
{
    TWindowControl::SetBounds(left, top, width, height);
    Invalidate();
}

void TCustomComboBox::DropDown()
{
    if (FDroppedDown)
        return;
    FDroppedDown = true;
    TDropList& list = *FList;
    list.SetPixelScale(PixelScale());
    list.SetColor(GetColor());
    list.SetFont(GetFont());
    list.SetItemHeight(FItemHeight);
    list.SetColumns(FColumns);
    const int needed = (ItemCount() + FColumns - 1) / FColumns;
    const int rows = std::clamp(needed, 1, FDropDownCount);
    list.SetBounds(0, 0, GetWidth(), rows * Px(FItemHeight) + 2 * Px(1));
    list.SetItemIndex(FItemIndex);
    list.SetFocus();
    Invalidate();
    OnDropDown();
}

void TCustomComboBox::CloseUp(bool accept)
{
    if (!std::exchange(FDroppedDown, false))
        return;
    const auto alive = Lifeline().Watch();
    Invalidate();
    OnCloseUp();
    if (accept && !alive.expired())
        ItemTaken(FList->GetItemIndex(), true);
}

void TCustomComboBox::ItemTaken(int index, bool)
{
    if (index == FItemIndex || index < 0)
        return;
    SetItemIndex(index);
    OnChange();
}

void TCustomComboBox::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TWindowControl::MouseDown(button, shift, x, y);
    if (button != mbLeft)
        return;
    SetFocus();
    SetDroppedDown(!FDroppedDown);
}

void TCustomComboBox::MouseWheel(TShiftState shift, int delta, int x, int y)
{
    // A wheel that only passes by on its way through a dialog changes nothing.
    if (!HasFocus() || FDroppedDown || delta == 0)
        return TWindowControl::MouseWheel(shift, delta, x, y);
    if (const int notches = FWheel.Take(delta))
        ItemTaken(std::clamp(FItemIndex - notches, 0, std::max(ItemCount() - 1, 0)), false);
}

bool TCustomComboBox::WantsKey(int key, TShiftState shift) const
{
    if (shift.Alt)
        return key == kyUp || key == kyDown;
    const bool isOpenKey = FDroppedDown && (key == kyEnter || key == kyEscape);
    return !shift.Ctrl && (isOpenKey || key == ' ' || FList->TargetOf(key, 0));
}

void TCustomComboBox::KeyDown(int key, TShiftState shift)
{
    TWindowControl::KeyDown(key, shift);
    if (FDroppedDown)
        return FList->KeyDown(key, shift);
    if (!WantsKey(key, shift))
        return;
    if (shift.Alt || key == ' ')
        return DropDown();
    if (const auto target = FList->TargetOf(key, FItemIndex); target && *target < ItemCount())
        ItemTaken(*target, false);
}

void TCustomComboBox::CMEnter()
{
    Invalidate();
    TWindowControl::CMEnter();
}

void TCustomComboBox::CMExit()
{
    Invalidate();
    TWindowControl::CMExit();
}

TRect TCustomComboBox::ItemRect() const
{
    const int frame = Px(Frame), height = Px(FItemHeight), top = (GetHeight() - height) / 2;
    return {frame, top, std::max(frame, GetWidth() - frame - Px(ButtonWidth)), top + height};
}

void TCustomComboBox::Paint()
{
    TCanvas& canvas = Canvas();
    const TRect all = ClientRect(), item = ItemRect();
    canvas.Pen.Color = HasFocus() ? clHighlight : clButtonShadow;
    canvas.Brush.SetColor(GetEnabled() ? GetColor() : clButtonFace);
    canvas.Rectangle(all.Left, all.Top, all.Right, all.Bottom);
    const int x = (item.Right + GetWidth() - Px(Frame)) / 2, y = GetHeight() / 2, size = Px(4);
    const std::array<TPoint, 3> arrow{{{x - size, y - size / 2}, {x, y + size / 2}, {x + size, y - size / 2}}};
    canvas.Pen.Color = GetEnabled() ? clButtonText : clGrayText;
    canvas.Polyline(arrow);
    if (FItemIndex < 0)
        return;
    canvas.IntersectClipRect(TRect{Px(1), Px(1), item.Right, GetHeight() - Px(1)});
    canvas.Pen = TPen();
    DrawItem(canvas, FItemIndex, item);
}

}  // namespace plotkit
