#include "controls/KxCaptionEdit.h"

#include "host/Recording.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr std::array CaptionRows{
    Property<&TKxCaptionEdit::GetCaption, &TKxCaptionEdit::SetText>("Caption"),
    ReadOnly<&TKxCaptionEdit::GetText>("Text"),
    Event<TKxCaptionEdit, &TKxCaptionEdit::OnCaretChanged>("OnCaretChanged"),
};

/// Longer captions are painted from the first character that shows on.
constexpr int PaintedWhole = 4000;

TKxCaptionAttributes Toggled(unsigned attributes, TKxCaptionAttribute attribute)
{
    if (attribute == caSubscript)
        attributes &= ~unsigned{caSuperscript};
    if (attribute == caSuperscript)
        attributes &= ~unsigned{caSubscript};
    return static_cast<TKxCaptionAttributes>(attributes ^ attribute);
}

/// 0 for other keys.
TKxCaptionAttributes AttributeOfKey(int key, TShiftState shift)
{
    switch (ControlLetter(key, shift)) {
        case 'B':
            return caBold;
        case 'I':
            return caItalic;
        case 'U':
            return caUnderline;
        default:
            break;
    }
    if (!shift.Ctrl || shift.Alt)
        return 0;
    return key == '+' ? caSuperscript : key == '-' ? caSubscript : 0;
}

bool IsInsertKey(int key, TShiftState shift)
{
    return key == kyInsert && !shift.Shift && !shift.Ctrl && !shift.Alt;
}

}  // namespace

constinit const TClassInfo TKxCaptionEdit::Class{"TKxCaptionEdit", &TCustomEdit::Class, CaptionRows,
                                                 &CreateComponent<TKxCaptionEdit>};

void TKxCaptionEdit::SetText(const TKxCaption& caption)
{
    if (FCaption == caption)
        return;
    FCaption = caption;
    CaptionStored();
}

void TKxCaptionEdit::CaptionStored()
{
    FPendingPosition = -1;
    FModel = TKxCaptionText(FCaption);
    {
        const TRestore storing(FStoring, true);
        TControl::SetText(FModel.Text());
    }
    ContentChanged();
}

void TKxCaptionEdit::CMTextChanged()
{
    // Somebody set the text that all controls have.
    if (!FStoring)
        SetText(TKxCaptionText(GetText(), 0).Markup());
}

void TKxCaptionEdit::RebuildText()
{
    FPendingPosition = -1;
    if (FModel.Markup() == FCaption)
        return;
    StoreMarkers();
    DoCaret();
}

std::string TKxCaptionEdit::Content() const
{
    return FPendingPosition < 0 ? FCaption : FModel.Markup();
}

void TKxCaptionEdit::ReplaceRange(int from, int to, std::string_view text)
{
    const bool isPending = FPendingPosition >= 0;
    Replace(from, to, TKxCaptionText(text, isPending ? FPending : FModel.Attributes(from < to ? from : from - 1)));
}

void TKxCaptionEdit::Replace(int from, int to, const TKxCaptionText& with)
{
    FModel.Replace(from, to, with);
    FCaption = FModel.Markup();
    CaptionStored();
}

bool TKxCaptionEdit::Has(int index, TKxCaptionAttribute attribute) const
{
    const bool isPending = FPendingPosition >= 0 && index == CaretPos() - 1;
    return (isPending ? FPending : FModel.Attributes(index)) & attribute;
}

void TKxCaptionEdit::Toggle(TKxCaptionAttribute attribute)
{
    if (GetReadOnly())
        return Host().Beep();
    if (HasSelection())
        Edit(-1, ekOther, true, [&] { ToggleSelection(attribute); });
    else if (GetInsertMode() || CaretPos() == CharCount())
        ToggleAtCaret(attribute);
    else
        Edit(-1, ekOther, true, [&] { ToggleAtCaret(attribute); });
}

void TKxCaptionEdit::ToggleSelection(TKxCaptionAttribute attribute)
{
    const TKxCaptionAttributes first = Toggled(FModel.Attributes(SelStart()), attribute);
    const unsigned scripts = caSuperscript | caSubscript;
    const unsigned taken = attribute & scripts ? scripts : unsigned{attribute};
    for (int i = SelStart(); i < SelEnd(); ++i)
        FModel.SetAttributes(i, static_cast<TKxCaptionAttributes>((FModel.Attributes(i) & ~taken) | (first & taken)));
    FCaption = FModel.Markup();
    CaptionStored();
}

void TKxCaptionEdit::ToggleAtCaret(TKxCaptionAttribute attribute)
{
    const int caret = CaretPos();
    const TKxCaptionAttributes before = FModel.Attributes(caret - 1);
    const TKxCaptionAttributes present = FPendingPosition >= 0 ? FPending : before;
    FPending = Toggled(present, attribute);
    // While typing replaces, a marker holds for all that follows.
    if (!GetInsertMode())
        for (int i = caret; i < CharCount(); ++i)
            FModel.SetAttributes(i, static_cast<TKxCaptionAttributes>(FModel.Attributes(i) ^ present ^ FPending));
    FPendingPosition = FPending == before ? -1 : 0;
    StoreMarkers();
    DoCaret();
}

void TKxCaptionEdit::StoreMarkers()
{
    const TKxPendingMarkers pending{FPendingPosition < 0 ? -1 : CaretPos(), FPending, GetInsertMode()};
    FCaption = FModel.Markup(pending, FPendingPosition);
    FModel = TKxCaptionText(FCaption);
    SetModified(true);
    LayoutChanged();
    Change();
}

void TKxCaptionEdit::LeavePlace()
{
    if (FPendingPosition < 0)
        return;
    FPendingPosition = -1;
    StoreMarkers();
}

void TKxCaptionEdit::SetInsertMode(bool insert)
{
    if (insert != GetInsertMode())
        LeavePlace();
    TCustomEdit::SetInsertMode(insert);
}

void TKxCaptionEdit::CopyToClipBoard()
{
    if (HasSelection())
        Host().SetClipboardMarkup(SelectedText(), SelectedMarkup());
}

void TKxCaptionEdit::InsertMarkup(const std::string& text, const std::string& markup)
{
    const TKxCaptionText pasted(markup);
    const int from = SelStart(), to = SelEnd();
    const int room = GetMaxLength() == 0 ? pasted.Count() : GetMaxLength() - CharCount() + to - from;
    if (pasted.Count() == 0 || room < pasted.Count())
        return Insert(text);
    Edit(CharCount() - to, ekOther, true, [&] { Replace(from, to, pasted); });
}

void TKxCaptionEdit::DoCaret()
{
    TCustomEdit::DoCaret();
    const int at = CaretPos() - 1;
    OnCaretChanged(IsBold(at), IsItalic(at), IsUnderline(at), IsStrikeout(at), IsSubscript(at), IsSuperscript(at),
                   IsSymbolFont(at));
}

bool TKxCaptionEdit::WantsKey(int key, TShiftState shift) const
{
    return AttributeOfKey(key, shift) || IsInsertKey(key, shift) || TCustomEdit::WantsKey(key, shift);
}

void TKxCaptionEdit::KeyDown(int key, TShiftState shift)
{
    TCustomEdit::KeyDown(key, shift);
    if (const TKxCaptionAttributes attribute = AttributeOfKey(key, shift))
        Toggle(static_cast<TKxCaptionAttribute>(attribute));
    else if (IsInsertKey(key, shift))
        SetInsertMode(!GetInsertMode());
}

std::vector<std::int32_t> TKxCaptionEdit::MeasuredChars() const
{
    TRecording nowhere;
    TCanvas screen(nowhere, Host().TextMeasurer(), PixelScale());
    screen.Font = PaintFont();
    TKxCaptionRec rec;
    rec.Text = FCaption;
    rec.Canvas = &screen;
    RichPaintTo(rec);
    rec.CharPos.resize(static_cast<std::size_t>(CharCount()));
    return std::move(rec.CharPos);
}

void TKxCaptionEdit::PaintChars(TCanvas& canvas, int first, int last, TPoint at)
{
    const bool isWhole = CharCount() <= PaintedWhole;
    const int begin = isWhole ? 0 : first;
    TKxCaptionRec rec;
    rec.Text = isWhole ? FCaption : FModel.Part(first, last).Markup();
    rec.Canvas = &canvas;
    rec.X = at.X - (Offset(first) - Offset(begin));
    rec.Y = at.Y;
    rec.DoPaint = true;
    rec.ShowSelection = HasFocus() && HasSelection();
    rec.SelStart = SelStart() - begin;
    rec.SelEnd = SelEnd() - begin;
    RichPaintTo(rec);
}

}  // namespace plotkit
