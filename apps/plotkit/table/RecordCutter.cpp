#include "plotkit/table/RecordCutter.h"

#include <algorithm>

namespace plotkit {

std::size_t TCommentMarks::MarkLength(std::string_view line) const
{
    std::size_t at = 0;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t'))
        ++at;
    if (at == line.size())
        return 0;
    if (Chars.find(line[at]) != std::string::npos)
        return at + 1;
    return DoubleSlash && line.substr(at).starts_with("//") ? at + 2 : 0;
}

std::size_t CountLineEnds(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        count += text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'));
    return count;
}

void TRecordCutter::SetText(std::string_view text, bool isLast)
{
    FText = text;
    FIsLast = isLast;
    FAt = 0;
    for (const TLandmark landmark : {lmLineFeed, lmReturn, lmQuote}) {
        FLandmarks[landmark] = 0;
        const std::size_t found = text.find("\n\r\""[landmark]);
        FLandmarks[landmark] = std::min(found, text.size());
    }
}

std::size_t TRecordCutter::Find(TLandmark landmark, std::size_t at)
{
    std::size_t& place = FLandmarks[landmark];
    if (place < at)
        place = std::min(FText.find("\n\r\""[landmark], at), FText.size());
    return place;
}

std::size_t TRecordCutter::LineEnd(std::size_t at)
{
    return std::min(Find(lmLineFeed, at), Find(lmReturn, at));
}

std::size_t TRecordCutter::EndOfQuotedLine(bool& isOpen)
{
    bool quoted = false, atFront = true;
    for (std::size_t i = FAt; i < FText.size(); ++i) {
        const char c = FText[i];
        if (quoted) {
            if (c != '"')
                continue;
            if (i + 1 < FText.size() && FText[i + 1] == '"')
                ++i;
            else
                quoted = false;
            atFront = false;
        } else if (c == '\n' || c == '\r') {
            return i;
        } else if (c == '"' && atFront) {
            quoted = true;
        } else if (FSeparators.find(c) != std::string::npos) {
            atFront = true;
        } else if (c != ' ') {
            atFront = false;
        }
    }
    isOpen = quoted;
    return FText.size();
}

TCutResult TRecordCutter::Cut(TRecord& record, std::size_t end)
{
    if (end == FText.size() && !FIsLast)
        return crNeedsMore;
    record.Text = FText.substr(FAt, end - FAt);
    std::size_t next = end;
    if (end < FText.size()) {
        next = end + 1;
        if (FText[end] == '\r') {
            // A line feed that belongs to it may still be on its way.
            if (next == FText.size() && !FIsLast)
                return crNeedsMore;
            if (next < FText.size() && FText[next] == '\n')
                ++next;
        }
    }
    FAt = next;
    return crRecord;
}

TCutResult TRecordCutter::Next(TRecord& record)
{
    if (FAt >= FText.size())
        return FIsLast ? crEnd : crNeedsMore;
    std::size_t end = LineEnd(FAt);
    record.IsComment = FMarks.MarkLength(FText.substr(FAt, end - FAt)) > 0;
    record.HasQuotes = !record.IsComment && Find(lmQuote, FAt) < end;
    bool isOpen = false;
    if (record.HasQuotes)
        end = EndOfQuotedLine(isOpen);
    const TCutResult result = Cut(record, end);
    return isOpen && result == crRecord ? crUnclosed : result;
}

bool TCellCursor::TakeQuoted(std::string_view& cell)
{
    const std::size_t open = FRest.find_first_not_of(' ');
    if (open == std::string_view::npos || FRest[open] != '"')
        return false;
    FUnquoted.clear();
    std::size_t i = open + 1;
    for (; i < FRest.size(); ++i) {
        if (FRest[i] == '"') {
            if (i + 1 == FRest.size() || FRest[i + 1] != '"')
                break;
            ++i;
        }
        FUnquoted += FRest[i];
    }
    cell = FUnquoted;
    bool isPlain = true;
    for (++i; i < FRest.size() && !IsSeparator(FRest[i]); ++i)
        isPlain = isPlain && FRest[i] == ' ';
    i = std::min(i, FRest.size());
    // "3"4 is neither 3 nor 34.
    if (!isPlain)
        cell = FRest.substr(0, i);
    Step(i);
    return true;
}

}  // namespace plotkit
