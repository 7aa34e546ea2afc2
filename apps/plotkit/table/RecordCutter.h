// The job of RecordCutter is to cut the text of a table into lines and lines into cells.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace plotkit {

/// Which lines are remarks.
struct TCommentMarks
{
    std::string Chars;         ///< each of them at the front of a line
    bool DoubleSlash = false;  ///< "//" too

    /// Length of the mark behind leading blanks with all before it; 0 when the line is no remark.
    std::size_t MarkLength(std::string_view line) const;
};

struct TRecord
{
    std::string_view Text;  ///< without its line end
    bool HasQuotes = false;
    bool IsComment = false;
};

enum TCutResult
{
    crRecord,
    crNeedsMore,  ///< the text ends inside a record, and more is to come
    crUnclosed,   ///< a quote is open at the end of everything; the record is the rest
    crEnd
};

/// A record ends at LF, CR LF or CR, outside quotes. A quote opens at the front of a cell, behind one of `separators`.
class TRecordCutter
{
public:
    TRecordCutter(std::string separators, TCommentMarks marks)
        : FSeparators(std::move(separators)), FMarks(std::move(marks))
    {}

    /// `isLast`: nothing comes behind this text.
    void SetText(std::string_view text, bool isLast);
    TCutResult Next(TRecord& record);
    /// Where the next record starts.
    std::size_t Position() const { return FAt; }

private:
    enum TLandmark
    {
        lmLineFeed,
        lmReturn,
        lmQuote
    };
    /// The next such character at or behind `at`, the text's length when there is none; searched once.
    std::size_t Find(TLandmark landmark, std::size_t at);
    std::size_t LineEnd(std::size_t at);
    std::size_t EndOfQuotedLine(bool& isOpen);
    TCutResult Cut(TRecord& record, std::size_t end);

    std::string FSeparators;
    TCommentMarks FMarks;
    std::string_view FText;
    std::array<std::size_t, 3> FLandmarks{};
    std::size_t FAt = 0;
    bool FIsLast = false;
};

/// The cells of one record, without quotes and doubled quotes. A blank as separator stands for a run of blanks and
/// tabs, those at the ends of the record are none.
class TCellCursor
{
public:
    TCellCursor(std::string_view record, char separator) : FRest(record), FSeparator(separator)
    {
        if (FSeparator == ' ')
            SkipBlanks();
        FDone = FSeparator == ' ' && FRest.empty();
    }
    /// Good until the next call.
    bool Next(std::string_view& cell)
    {
        if (FDone)
            return false;
        if (!FRest.empty() && (FRest.front() == '"' || FRest.front() == ' ') && TakeQuoted(cell))
            return true;
        std::size_t end = 0;
        while (end < FRest.size() && !IsSeparator(FRest[end]))
            ++end;
        cell = FRest.substr(0, end);
        Step(end);
        return true;
    }

private:
    bool IsSeparator(char c) const { return c == FSeparator || (FSeparator == ' ' && c == '\t'); }
    void SkipBlanks()
    {
        while (!FRest.empty() && (FRest.front() == ' ' || FRest.front() == '\t'))
            FRest.remove_prefix(1);
    }
    void Step(std::size_t end)
    {
        FDone = end >= FRest.size();
        FRest.remove_prefix(FDone ? FRest.size() : end + 1);
        if (FSeparator != ' ')
            return;
        SkipBlanks();
        FDone = FRest.empty();
    }
    bool TakeQuoted(std::string_view& cell);

    std::string_view FRest;
    std::string FUnquoted;
    char FSeparator;
    bool FDone = false;
};

/// How many line ends stand inside a record.
std::size_t CountLineEnds(std::string_view text);

}  // namespace plotkit
