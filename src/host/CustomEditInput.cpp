#include "host/CustomEdit.h"

#include <cstdlib>
#include <tuple>

namespace plotkit {

namespace {

constexpr auto TripleClick = std::chrono::milliseconds(500);
constexpr int TripleReach = 4;
constexpr int DragMilliSeconds = 50;

}  // namespace

bool TCustomEdit::WantsKey(int key, TShiftState shift) const
{
    return IsTypedKey(key, shift) || EditCommandOf(key, shift).has_value();
}

void TCustomEdit::KeyDown(int key, TShiftState shift)
{
    TEditableText::KeyDown(key, shift);
    if (const auto command = EditCommandOf(key, shift))
        RunCommand(*command, shift.Shift);
    else if (IsTypedKey(key, shift))
        Type(Utf8Of(static_cast<char32_t>(key)));
}

void TCustomEdit::RunCommand(TEditCommand command, bool extend)
{
    const bool collapses = HasSelection() && !extend;
    switch (command) {
        case ecLeft:
            return MoveCaret(collapses ? SelStart() : CaretPos() - 1, extend);
        case ecRight:
            return MoveCaret(collapses ? SelEnd() : CaretPos() + 1, extend);
        case ecWordLeft:
            return CursorBeginWord(extend);
        case ecWordRight:
            return CursorBeginNextWord(extend);
        case ecHome:
            return MoveCaret(0, extend);
        case ecEnd:
            return MoveCaret(CharCount(), extend);
        case ecBackspace:
            return DoBackspace();
        case ecDelete:
            return DoDelete();
        case ecBackspaceWord:
            if (!SelectionCleared() && !HasSelection())
                TakeOut(WordBegin(CaretPos()), CaretPos(), ekOther);
            return;
        case ecDeleteWord:
            if (!SelectionCleared() && !HasSelection())
                TakeOut(CaretPos(), NextWord(CaretPos()), ekOther);
            return;
        case ecSelectAll:
            return SelectAll();
        case ecCopy:
            return CopyToClipBoard();
        case ecCut:
            return CutToClipBoard();
        case ecPaste:
            return PasteFromClipBoard();
        case ecUndo:
            return Undo();
        case ecRedo:
            return Redo();
    }
}

void TCustomEdit::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TEditableText::MouseDown(button, shift, x, y);
    SetFocus();
    if (button != mbLeft)
        return;
    const int at = PointToCaretPos(x);
    const auto now = Host().Now();
    const bool isThird = FLastDouble && now - *FLastDouble < TripleClick && !shift.Shift &&
                         std::abs(std::int64_t{x} - FDoubleX) <= Px(TripleReach);
    FLastDouble.reset();
    if (shift.Double) {
        FLastDouble = now;
        FDoubleX = x;
        // The character under the pointer, not the gap that is nearest to it.
        FDragWord = WordAt(GapX(at) > x ? at - 1 : at);
        Select(FDragWord.first, FDragWord.second);
    } else if (isThird) {
        return SelectAll();
    } else {
        MoveCaret(at, shift.Shift);
        FDragWord = {SelStart() == CaretPos() ? SelEnd() : SelStart(), 0};
        FDragWord.second = FDragWord.first;
    }
    FDragging = true;
}

void TCustomEdit::DragTo(int x)
{
    int from = PointToCaretPos(x), to = from;
    if (FDragWord.first < FDragWord.second)
        std::tie(from, to) = WordAt(from);
    if (from < FDragWord.first)
        Select(FDragWord.second, from);
    else
        Select(FDragWord.first, std::max(to, FDragWord.second));
}

void TCustomEdit::DragOn()
{
    DragTo(FDragX);
}

void TCustomEdit::MouseMove(TShiftState shift, int x, int y)
{
    TEditableText::MouseMove(shift, x, y);
    if (!FDragging)
        return;
    FDragX = x;
    DragTo(x);
    const TRect area = EditRect();
    const bool isInside = x >= area.Left && x < area.Right;
    if (isInside)
        FDragTimer.reset();
    else if (!FDragTimer)
        FDragTimer = std::make_unique<TTimer>(DragMilliSeconds, TEvent<>::Bind<&TCustomEdit::DragOn>(this));
}

void TCustomEdit::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft) {
        FDragging = false;
        FDragTimer.reset();
    }
    TEditableText::MouseUp(button, shift, x, y);
}

}  // namespace plotkit
