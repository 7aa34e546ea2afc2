#include "host/CustomListBox.h"

#include "host/ControlProperties.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr std::array ListRows{
    Property<&TCustomListBox::GetItemHeight, &TCustomListBox::SetItemHeight>("ItemHeight"),
};
constexpr std::array ListEventRows{
    Event<TCustomListBox, &TCustomListBox::OnChange>("OnChange"),
    Event<TWindowControl, &TWindowControl::OnEnter>("OnEnter"),
    Event<TWindowControl, &TWindowControl::OnExit>("OnExit"),
    Event<TWindowControl, &TWindowControl::OnKeyDown>("OnKeyDown"),
    Event<TWindowControl, &TWindowControl::OnKeyUp>("OnKeyUp"),
};
constexpr std::array ListProperties = JoinRows(ListRows, ControlLookRows, ControlEventRows, ListEventRows);

constexpr int RowsPerNotch = 3;
constexpr int MaxItemHeight = 1000, MaxColumns = 1000;

}  // namespace

constinit const TClassInfo TCustomListBox::Class{"TCustomListBox", &TWindowControl::Class, ListProperties};

TCustomListBox::TCustomListBox(TComponent* owner) : TWindowControl(owner)
{
    SetParentColor(false);
    TWindowControl::SetBounds(0, 0, 121, 97);
}

TCustomListBox::~TCustomListBox() noexcept
{
    BeginDestroy();
}

void TCustomListBox::SetItems(const TStringList& items)
{
    FItems = items;
    if (FItemIndex >= ItemCount())
        FItemIndex = -1;
    SetTopIndex(FTopIndex);
    Invalidate();
}

void TCustomListBox::SetItemIndex(int index)
{
    index = index >= 0 && index < ItemCount() ? index : -1;
    if (FItemIndex == index)
        return;
    FItemIndex = index;
    ScrollTo(index);
    Invalidate();
}

void TCustomListBox::SetItemHeight(int height)
{
    FItemHeight = std::clamp(height, 1, MaxItemHeight);
    ScrollTo(FItemIndex);
    Invalidate();
}

void TCustomListBox::SetColumns(int columns)
{
    FColumns = std::clamp(columns, 1, MaxColumns);
    ScrollTo(FItemIndex);
    Invalidate();
}

void TCustomListBox::SetBounds(int left, int top, int width, int height)
{
    TWindowControl::SetBounds(left, top, width, height);
    ScrollTo(FItemIndex);
}

int TCustomListBox::Rows() const
{
    return std::max((GetHeight() - 2 * Px(1)) / Px(FItemHeight), 1);
}

void TCustomListBox::SetTopIndex(int index)
{
    const int rows = Rows();
    int last = std::max(ItemCount() - rows, 0);
    if (FColumns > 1) {
        last = std::max((ItemCount() + rows - 1) / rows - FColumns, 0) * rows;
        index -= index % rows;
    }
    index = std::clamp(index, 0, last);
    if (std::exchange(FTopIndex, index) != index)
        Invalidate();
}

void TCustomListBox::ScrollTo(int index)
{
    const int rows = Rows();
    int top = FTopIndex;
    if (FColumns > 1 && index >= 0) {
        const int column = index / rows;
        top = std::clamp(FTopIndex / rows, column - FColumns + 1, column) * rows;
    } else if (index >= 0) {
        top = std::clamp(FTopIndex, index - rows + 1, index);
    }
    SetTopIndex(top);
}

TRect TCustomListBox::ItemRect(int index) const
{
    const int rows = FColumns > 1 ? Rows() : std::max(ItemCount(), 1);
    const int frame = Px(1), width = std::max(GetWidth() - 2 * frame, 0), height = Px(FItemHeight);
    // The first item shown stands at the top, in one column in whatever row.
    const int column = FColumns > 1 ? index / rows - FTopIndex / rows : 0;
    const int row = FColumns > 1 ? index % rows : index - FTopIndex;
    const auto edge = [&](int of) { return frame + SaturatePixel(std::int64_t{width} * of / FColumns); };
    const int top = frame + SaturatePixel(std::int64_t{row} * height);
    return {edge(column), top, edge(column + 1), AddPixels(top, height)};
}

int TCustomListBox::ItemAtPos(int x, int y) const
{
    const int last = std::min(ItemCount(), FTopIndex + VisibleCount() + 1);
    for (int i = FTopIndex; i < last; ++i)
        if (ItemRect(i).Contains({x, y}))
            return i;
    return -1;
}

void TCustomListBox::SelectByUser(int index)
{
    if (index < 0 || index >= ItemCount() || index == FItemIndex)
        return;
    SetItemIndex(index);
    OnChange();
}

void TCustomListBox::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TWindowControl::MouseDown(button, shift, x, y);
    if (button != mbLeft)
        return;
    SetFocus();
    FDragging = true;
    SelectByUser(ItemAtPos(x, y));
}

void TCustomListBox::MouseMove(TShiftState shift, int x, int y)
{
    TWindowControl::MouseMove(shift, x, y);
    if (!FDragging)
        return;
    // Beyond the edges the list scrolls along with the moves.
    const int inside = std::clamp(x, Px(1), std::max(GetWidth() - 2 * Px(1), Px(1)));
    if (y < 0)
        SelectByUser(FItemIndex - 1);
    else if (y >= GetHeight())
        SelectByUser(FItemIndex + 1);
    else
        SelectByUser(ItemAtPos(inside, y));
}

void TCustomListBox::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft)
        FDragging = false;
    TWindowControl::MouseUp(button, shift, x, y);
}

void TCustomListBox::MouseWheel(TShiftState shift, int delta, int x, int y)
{
    const bool areColumns = FColumns > 1;
    const int steps = FWheel.Take(delta, TWheelNotches::Notch / (areColumns ? 1 : RowsPerNotch));
    const int before = FTopIndex;
    SetTopIndex(FTopIndex - steps * (areColumns ? Rows() : 1));
    if (steps != 0 && FTopIndex == before)
        TWindowControl::MouseWheel(shift, delta, x, y);
}

std::optional<int> TCustomListBox::TargetOf(int key, int index) const
{
    const int last = ItemCount() - 1, page = std::max(VisibleCount() - 1, 1), column = FColumns > 1 ? Rows() : 1;
    const auto step = [&](int by) { return std::clamp(index + by, 0, std::max(last, 0)); };
    const auto sideways = [&](int by) { return index + by < 0 || index + by > last ? index : index + by; };
    switch (key) {
        case kyUp:
            return step(-1);
        case kyDown:
            return step(1);
        case kyLeft:
            return sideways(-column);
        case kyRight:
            return sideways(column);
        case kyHome:
            return 0;
        case kyEnd:
            return last;
        case kyPageUp:
            return step(-page);
        case kyPageDown:
            return step(page);
        default:
            return std::nullopt;
    }
}

bool TCustomListBox::WantsKey(int key, TShiftState shift) const
{
    // Enter is left to the dialog, too.
    return !shift.Ctrl && !shift.Alt && (TargetOf(key, 0) || key == ' ');
}

void TCustomListBox::KeyDown(int key, TShiftState shift)
{
    TWindowControl::KeyDown(key, shift);
    if (shift.Ctrl || shift.Alt)
        return;
    if (const auto target = TargetOf(key, FItemIndex))
        SelectByUser(*target);
    else if (key == ' ' || key == kyEnter)
        DblClick();
}

void TCustomListBox::CMEnter()
{
    Invalidate();
    TWindowControl::CMEnter();
}

void TCustomListBox::CMExit()
{
    FDragging = false;
    Invalidate();
    TWindowControl::CMExit();
}

TColor MiddleColor()
{
    const TColor text = Host().ResolveColor(clWindowText), ground = Host().ResolveColor(clWindow);
    const auto middle = [](std::uint8_t a, std::uint8_t b) { return static_cast<std::uint8_t>((a + b) / 2); };
    return RgbColor(middle(RedOf(text), RedOf(ground)), middle(GreenOf(text), GreenOf(ground)),
                    middle(BlueOf(text), BlueOf(ground)));
}

void DrawItemFrame(TCanvas& canvas, const TRect& box, bool hasFocus)
{
    const TColor color = hasFocus ? clHighlight : MiddleColor();
    const int width = ScalePixels(2, canvas.Scale());
    canvas.Brush = TBrush();
    canvas.Brush.SetColor(color);
    canvas.FillRect({box.Left, box.Top, box.Right, box.Top + width});
    canvas.FillRect({box.Left, box.Bottom - width, box.Right, box.Bottom});
    canvas.FillRect({box.Left, box.Top, box.Left + width, box.Bottom});
    canvas.FillRect({box.Right - width, box.Top, box.Right, box.Bottom});
}

void TCustomListBox::Paint()
{
    TCanvas& canvas = Canvas();
    const TRect all = ClientRect();
    canvas.Pen.Color = HasFocus() ? clHighlight : clButtonShadow;
    canvas.Brush.SetColor(GetColor());
    canvas.Rectangle(all.Left, all.Top, all.Right, all.Bottom);
    const int frame = Px(1);
    canvas.IntersectClipRect({frame, frame, GetWidth() - frame, GetHeight() - frame});
    const TRect inside = canvas.ClipRect();
    const int last = std::min(ItemCount(), FTopIndex + VisibleCount() + 1);
    for (int i = FTopIndex; i < last; ++i) {
        const TRect box = ItemRect(i);
        if (box.Intersected(all).IsEmpty())
            continue;
        canvas.Pen = TPen();
        canvas.Brush = TBrush();
        DrawItem(canvas, i, box);
        canvas.SetClipRect(inside);
        if (i == FItemIndex)
            DrawItemFrame(canvas, box, HasFocus());
    }
}

}  // namespace plotkit
