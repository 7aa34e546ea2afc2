#include "host/CustomEdit.h"

#include <cstdlib>

#include "host/ControlProperties.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr std::array EditRows{
    Property<&TCustomEdit::GetMaxLength, &TCustomEdit::SetMaxLength>("MaxLength"),
    Property<&TCustomEdit::GetReadOnly, &TCustomEdit::SetReadOnly>("ReadOnly"),
    Property<&TCustomEdit::GetBorder, &TCustomEdit::SetBorder>("Border"),
    Property<&TCustomEdit::GetBevelInner, &TCustomEdit::SetBevelInner>("BevelInner"),
    Property<&TCustomEdit::GetBevelOuter, &TCustomEdit::SetBevelOuter>("BevelOuter"),
};
constexpr std::array EditEventRows{
    Event<TEditableText, &TEditableText::OnChange>("OnChange"),
    Event<TWindowControl, &TWindowControl::OnEnter>("OnEnter"),
    Event<TWindowControl, &TWindowControl::OnExit>("OnExit"),
    Event<TWindowControl, &TWindowControl::OnKeyDown>("OnKeyDown"),
    Event<TWindowControl, &TWindowControl::OnKeyUp>("OnKeyUp"),
};
constexpr std::array CustomEditProperties = JoinRows(EditRows, ControlLookRows, ControlEventRows, EditEventRows);

constexpr int BlinkMilliSeconds = 530;
constexpr int CaretWidth = 2;

/// The top left corner of a box in one colour, the bottom right in another.
void DrawEdges(TCanvas& canvas, const TRect& box, int width, TColor light, TColor dark)
{
    canvas.Brush.SetColor(light);
    canvas.FillRect({box.Left, box.Top, box.Right, box.Top + width});
    canvas.FillRect({box.Left, box.Top, box.Left + width, box.Bottom});
    canvas.Brush.SetColor(dark);
    canvas.FillRect({box.Left, box.Bottom - width, box.Right, box.Bottom});
    canvas.FillRect({box.Right - width, box.Top, box.Right, box.Bottom});
}

void Shrink(TRect& box, int by)
{
    box = TRect{box.Left + by, box.Top + by, std::max(box.Left + by, box.Right - by),
                std::max(box.Top + by, box.Bottom - by)};
}

}  // namespace

constinit const TClassInfo TCustomEdit::Class{"TCustomEdit", &TEditableText::Class, CustomEditProperties};

TCustomEdit::TCustomEdit(TComponent* owner) : TEditableText(owner)
{
    SetParentColor(false);
    SetCursor(crText);
    TWindowControl::SetBounds(0, 0, 121, 23);
}

TCustomEdit::~TCustomEdit()
{
    BeginDestroy();
}

void TCustomEdit::SetBorder(bool border)
{
    ChangeLook(FBorder, border);
}

void TCustomEdit::SetBevelInner(TBevelCut bevel)
{
    ChangeLook(FBevelInner, bevel);
}

void TCustomEdit::SetBevelOuter(TBevelCut bevel)
{
    ChangeLook(FBevelOuter, bevel);
}

void TCustomEdit::SetBounds(int left, int top, int width, int height)
{
    TEditableText::SetBounds(left, top, width, height);
    ScrollToCaret();
}

int TCustomEdit::FrameWidth() const
{
    return Px(FBorder + (FBevelOuter != bvNone) + (FBevelInner != bvNone));
}

TRect TCustomEdit::EditRect() const
{
    TRect box = ClientRect();
    Shrink(box, FrameWidth() + Px(1));
    return box;
}

TFontState TCustomEdit::PaintFont() const
{
    TFontState font = GetFont().State();
    if (!GetEnabled())
        font.Color = clGrayText;
    return font;
}

int TCustomEdit::LineHeight() const
{
    return Host().TextMeasurer().Height(GetFont().State());
}

std::vector<std::int32_t> TCustomEdit::MeasuredChars() const
{
    const TTextMeasurer& measurer = Host().TextMeasurer();
    const TFontState font = PaintFont();
    std::array<int, 256> widths;
    widths.fill(-1);
    std::vector<std::int32_t> rights;
    rights.reserve(static_cast<std::size_t>(CharCount()));
    std::int32_t right = 0;
    for (int i = 0; i < CharCount(); ++i) {
        const std::string_view character = CharAt(i);
        int unkept = -1;
        int& width = character.size() == 1 ? widths[static_cast<unsigned char>(character.front())] : unkept;
        if (width < 0)
            width = measurer.Width(character, font);
        right = AddPixels(right, width);
        rights.push_back(right);
    }
    return rights;
}

const std::vector<std::int32_t>& TCustomEdit::Rights() const
{
    const TTextMeasurer* measurer = &Host().TextMeasurer();
    if (FMeasuredBy != measurer) {
        FRights = MeasuredChars();
        FMeasuredBy = measurer;
    }
    return FRights;
}

int TCustomEdit::Offset(int index) const
{
    return index > 0 ? Rights()[static_cast<std::size_t>(index) - 1] : 0;
}

int TCustomEdit::PlainX(int index) const
{
    return SaturatePixel(std::int64_t{EditRect().Left} + Px(1) - FScroll + Offset(index));
}

int TCustomEdit::GapX(int index) const
{
    return index > CaretPos() ? AddPixels(PlainX(index), ComposedWidth()) : PlainX(index);
}

int TCustomEdit::PointToCaretPos(int x) const
{
    const std::vector<std::int32_t>& rights = Rights();
    std::int64_t offset = std::int64_t{x} - PlainX(0);
    if (const std::int64_t caret = Offset(CaretPos()); offset > caret)
        offset = std::max(offset - ComposedWidth(), caret);
    const auto under = std::upper_bound(rights.begin(), rights.end(), offset);
    const int index = static_cast<int>(under - rights.begin());
    const bool isRightHalf = under != rights.end() && 2 * offset > std::int64_t{Offset(index)} + *under;
    return index + isRightHalf;
}

TRect TCustomEdit::CaretRect() const
{
    const int at = CaretPos(), count = CharCount();
    const bool isComposing = !FComposition.Text.empty();
    const int x = AddPixels(PlainX(at), ComposedWidth(FComposition.Caret)), height = LineHeight();
    const TRect area = EditRect();
    const int top = area.Top + (area.Height() - height) / 2;
    if (GetInsertMode() || isComposing)
        return {x - Px(1), top, x - Px(1) + Px(CaretWidth), top + height};
    int width = Px(CaretWidth);
    if (at < count)
        width = std::max(Offset(at + 1) - Offset(at), Px(1));
    else if (count > 0)
        width = Host().TextMeasurer().Width("W", GetFont().State()) / 2;
    return {x, top, AddPixels(x, width), top + height};
}

void TCustomEdit::ScrollToCaret()
{
    const int caretRoom = GetInsertMode() ? Px(1) : CaretRect().Width();
    const int room = std::max(EditRect().Width() - Px(1) - caretRoom, 0);
    const int caret = AddPixels(Offset(CaretPos()), ComposedWidth(FComposition.Caret));
    FScroll = std::min(FScroll, std::max(AddPixels(Offset(CharCount()), ComposedWidth()) - room, 0));
    FScroll = std::clamp(FScroll, std::max(caret - room, 0), caret);
}

void TCustomEdit::LayoutChanged()
{
    FMeasuredBy = nullptr;
    ScrollToCaret();
    Invalidate();
}

void TCustomEdit::DoCaret()
{
    ScrollToCaret();
    FCaretShown = HasFocus();
    FBlinkTimer.reset();
    if (FCaretShown)
        FBlinkTimer = std::make_unique<TTimer>(BlinkMilliSeconds, TEvent<>::Bind<&TCustomEdit::Blink>(this));
    Invalidate();
}

void TCustomEdit::Blink()
{
    FCaretShown = !FCaretShown;
    Invalidate();
}

void TCustomEdit::CMEnter()
{
    DoCaret();
    TEditableText::CMEnter();
}

void TCustomEdit::CMExit()
{
    FDragging = false;
    FDragTimer.reset();
    FComposition = {};
    DoCaret();
    TEditableText::CMExit();
}

void TCustomEdit::PaintFrame(TCanvas& canvas)
{
    TRect box = ClientRect();
    canvas.Brush.SetColor(GetEnabled() ? GetColor() : clButtonFace);
    canvas.FillRect(box);
    const int width = Px(1);
    if (FBorder) {
        const TColor color = HasFocus() ? clHighlight : clButtonShadow;
        DrawEdges(canvas, box, width, color, color);
        Shrink(box, width);
    }
    for (const TBevelCut bevel : {FBevelOuter, FBevelInner}) {
        if (bevel == bvNone)
            continue;
        const bool isRaised = bevel == bvRaised;
        DrawEdges(canvas, box, width, isRaised ? clButtonHighlight : clButtonShadow,
                  isRaised ? clButtonShadow : clButtonHighlight);
        Shrink(box, width);
    }
}

void TCustomEdit::Paint()
{
    ScrollToCaret();
    TCanvas& canvas = Canvas();
    PaintFrame(canvas);
    canvas.IntersectClipRect(EditRect());
    PaintText(canvas);
    PaintCaret(canvas);
}

void TCustomEdit::PaintText(TCanvas& canvas)
{
    const TRect area = EditRect();
    const int height = LineHeight(), top = area.Top + (area.Height() - height) / 2;
    if (HasSelection()) {
        canvas.Brush.SetColor(HasFocus() ? clHighlight : clButtonFace);
        canvas.FillRect(
            {std::max(GapX(SelStart()), area.Left), top, std::min(GapX(SelEnd()), area.Right), AddPixels(top, height)});
    }
    canvas.Brush.SetStyle(bsClear);
    if (FComposition.Text.empty())
        return PaintLine(canvas, top, 0);
    const int begin = PlainX(CaretPos()), end = AddPixels(begin, ComposedWidth());
    canvas.SetClipRect({area.Left, area.Top, std::clamp(begin, area.Left, area.Right), area.Bottom});
    PaintLine(canvas, top, 0);
    canvas.SetClipRect({std::clamp(end, area.Left, area.Right), area.Top, area.Right, area.Bottom});
    PaintLine(canvas, top, end - begin);
    canvas.SetClipRect(area);
    PaintComposition(canvas, top);
}

void TCustomEdit::PaintLine(TCanvas& canvas, int top, int shift)
{
    // Leaning letters reach into their neighbours' cells.
    const TRect area = EditRect();
    const auto& rights = Rights();
    const auto index = [&](int x) {
        return static_cast<int>(std::upper_bound(rights.begin(), rights.end(), x - shift - PlainX(0)) - rights.begin());
    };
    const int first = std::max(index(area.Left) - 1, 0), last = std::min(index(area.Right) + 2, CharCount());
    canvas.Font = PaintFont();
    if (first < last)
        PaintChars(canvas, first, last, {AddPixels(PlainX(first), shift), top});
}

void TCustomEdit::PaintChars(TCanvas& canvas, int first, int last, TPoint at)
{
    const TColor plain = canvas.Font.Color;
    const int left = Offset(first);
    const auto run = [&](int from, int to, TColor color) {
        if (from >= to)
            return;
        std::vector<std::int32_t> advances;
        for (int i = from; i < to; ++i)
            advances.push_back(Offset(i + 1) - Offset(from));
        canvas.Font.Color = color;
        canvas.TextOut(at.X + Offset(from) - left, at.Y, TextOf(from, to), advances);
    };
    const bool isShown = HasSelection() && HasFocus();
    const int from = isShown ? std::clamp(SelStart(), first, last) : last;
    const int to = isShown ? std::clamp(SelEnd(), first, last) : last;
    run(first, from, plain);
    run(from, to, clHighlightText);
    run(to, last, plain);
    canvas.Font.Color = plain;
}

void TCustomEdit::PaintCaret(TCanvas& canvas)
{
    if (!FCaretShown)
        return;
    // A broad caret leaves its character legible.
    const bool isBroad = !GetInsertMode() && FComposition.Text.empty();
    if (isBroad)
        canvas.Pen.Mode = dmXor;
    canvas.Brush.SetColor(!isBroad ? GetFont().GetColor() : clWhite);
    canvas.FillRect(CaretRect());
    canvas.Pen.Mode = dmCopy;
}

}  // namespace plotkit
