#include "host/EditableText.h"

#include "host/Host.h"
#include "host/Restore.h"
#include "host/TextMeasurer.h"

namespace plotkit {

namespace {

enum TCharClass : std::uint8_t
{
    ccBlank,
    ccSign,
    ccLetter
};

TCharClass ClassOf(std::string_view character)
{
    const auto byte = static_cast<unsigned char>(character.front());
    if (byte == ' ' || character == "\u00A0")
        return ccBlank;
    const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9');
    return isLetter || byte == '_' || byte >= 0x80 ? ccLetter : ccSign;
}

/// Control characters of a line; C1 ones are left to fonts.
bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

/// On one line: line ends at the end are dropped, other control characters are blanks.
std::string OneLine(std::string_view text)
{
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == '\0'))
        text.remove_suffix(1);
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\n' || i == 0 || text[i - 1] != '\r')
            line += IsControl(text[i]) ? ' ' : text[i];
    return line;
}

}  // namespace

constinit const TClassInfo TEditableText::Class{"TEditableText", &TWindowControl::Class};

std::string_view TEditableText::CharAt(int index) const
{
    const auto start = static_cast<std::size_t>(CharStart(index));
    return std::string_view(GetText()).substr(start, static_cast<std::size_t>(CharStart(index + 1)) - start);
}

std::string TEditableText::TextOf(int from, int to) const
{
    const auto start = static_cast<std::size_t>(CharStart(from));
    return GetText().substr(start, static_cast<std::size_t>(CharStart(to)) - start);
}

void TEditableText::SetInsertMode(bool insert)
{
    if (FInsertMode == insert)
        return;
    FInsertMode = insert;
    DoCaret();
}

void TEditableText::Select(int anchor, int caret)
{
    const auto clamped = [this](int at) { return std::clamp(at, 0, CharCount()); };
    if (clamped(anchor) != FAnchor || clamped(caret) != FCaret) {
        FHistory.Break();
        LeavePlace();
    }
    // Whoever heard of the leaving may have changed the text.
    FAnchor = clamped(anchor);
    FCaret = clamped(caret);
    DoCaret();
}

int TEditableText::WordBegin(int from) const
{
    while (from > 0 && ClassOf(CharAt(from - 1)) == ccBlank)
        --from;
    if (from == 0)
        return 0;
    const TCharClass wanted = ClassOf(CharAt(from - 1));
    while (from > 0 && ClassOf(CharAt(from - 1)) == wanted)
        --from;
    return from;
}

int TEditableText::NextWord(int from) const
{
    const int count = CharCount();
    if (from == count)
        return count;
    const TCharClass left = ClassOf(CharAt(from));
    while (from < count && ClassOf(CharAt(from)) == left)
        ++from;
    while (from < count && ClassOf(CharAt(from)) == ccBlank)
        ++from;
    return from;
}

std::pair<int, int> TEditableText::WordAt(int index) const
{
    const int count = CharCount();
    if (count == 0)
        return {0, 0};
    int from = std::clamp(index, 0, count - 1), to = from;
    const TCharClass wanted = ClassOf(CharAt(from));
    while (from > 0 && ClassOf(CharAt(from - 1)) == wanted)
        --from;
    while (to < count && ClassOf(CharAt(to)) == wanted)
        ++to;
    return {from, to};
}

bool TEditableText::Edit(int behind, TEditKind kind, bool startsWord, const std::function<void()>& change)
{
    if (FReadOnly) {
        Host().Beep();
        return false;
    }
    const std::string before = Content();
    const bool isNew = FHistory.Record(State(), kind, startsWord);
    {
        const TRestore editing(FEditing, true);
        const TRestore caret(FBehind, behind);
        change();
    }
    if (isNew && Content() == before)
        FHistory.DropLast();
    return true;
}

bool TEditableText::TakeOut(int from, int to, TEditKind kind)
{
    return from < to && Edit(CharCount() - to, kind, false, [&] { ReplaceRange(from, to, {}); });
}

std::string TEditableText::Admitted(std::string_view text, int replaced) const
{
    std::string line = OneLine(text);
    if (FMaxLength == 0)
        return line;
    const int room = std::max(FMaxLength - CharCount() + replaced, 0);
    std::size_t end = 0;
    for (int i = 0; i < room && end < line.size(); ++i)
        end += static_cast<std::size_t>(CodePointLength(line, end));
    if (end < line.size())
        Host().Beep();
    line.resize(end);
    return line;
}

void TEditableText::ReplaceSelection(std::string_view text, TEditKind kind)
{
    const int from = SelStart();
    int to = SelEnd();
    if (!FInsertMode && from == to)
        to = std::min(CharCount(), from + CodePointCount(OneLine(text)));
    const std::string line = Admitted(text, to - from);
    if (line.empty() && (from == to || !text.empty()))
        return;
    const bool startsWord = from < to || from == 0 || (CharAt(from - 1) == " " && line != " ");
    Edit(CharCount() - to, kind, startsWord, [&] { ReplaceRange(from, to, line); });
}

void TEditableText::ReplaceRange(int from, int to, std::string_view text)
{
    std::string whole = GetText();
    const auto start = static_cast<std::size_t>(CharStart(from));
    whole.replace(start, static_cast<std::size_t>(CharStart(to)) - start, text);
    SetText(whole);
}

void TEditableText::DoBackspace()
{
    if (!SelectionCleared() && !HasSelection())
        TakeOut(FCaret - 1, FCaret > 0 ? FCaret : -1, ekBackspacing);
}

void TEditableText::DoDelete()
{
    if (!SelectionCleared() && !HasSelection() && FCaret < CharCount())
        TakeOut(FCaret, FCaret + 1, ekOther);
}

void TEditableText::CopyToClipBoard()
{
    if (HasSelection())
        Host().SetClipboardText(SelectedText());
}

void TEditableText::CutToClipBoard()
{
    CopyToClipBoard();
    SelectionCleared();
}

void TEditableText::MoveSelection(int to)
{
    const int from = SelStart(), end = SelEnd(), count = CharCount();
    if (from == end || (to >= from && to <= end))
        return;
    const std::string text = SelectedText(), markup = SelectedMarkup();
    if (!TakeOut(from, end, ekOther))
        return;
    const int at = to > from ? to - (count - CharCount()) : to;
    Select(at, at);
    const std::string without = Content();
    InsertMarkup(text, markup);
    // One with the taking out.
    if (Content() != without)
        FHistory.DropLast();
    Select(at, CaretPos());
}

void TEditableText::Restore(std::optional<TEditState> state)
{
    if (!state)
        return;
    {
        const TRestore editing(FEditing, true);
        SetContent(state->Content);
    }
    Select(state->Anchor, state->Caret);
}

void TEditableText::CMTextChanged()
{
    ContentChanged();
}

void TEditableText::ContentChanged()
{
    const std::string& text = GetText();
    FStarts.clear();
    for (std::size_t at = 0; at < text.size(); at += static_cast<std::size_t>(CodePointLength(text, at)))
        FStarts.push_back(static_cast<std::int32_t>(at));
    FStarts.push_back(static_cast<std::int32_t>(text.size()));
    if (!FEditing)
        FHistory.Clear();
    const int count = CharCount();
    if (FBehind >= 0)
        FAnchor = FCaret = count - FBehind;
    FAnchor = std::clamp(FAnchor, 0, count);
    FCaret = std::clamp(FCaret, 0, count);
    FModified = true;
    LayoutChanged();
    Change();
    DoCaret();
}

}  // namespace plotkit
