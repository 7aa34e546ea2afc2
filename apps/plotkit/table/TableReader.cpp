#include "plotkit/table/TableReader.h"

#include <algorithm>

#include "plotkit/table/CellText.h"

namespace plotkit {
namespace {

constexpr std::size_t SampleSize = 1U << 16U;
constexpr std::size_t LongestLine = 1U << 24U;
// The vectors of the library count with 32 bits and keep some room.
constexpr std::size_t MaxRows = 2'000'000'000;

/// The front of `text` up to `size`, in whole lines; all of it when it is one line.
std::string_view FrontLines(std::string_view text, std::size_t size)
{
    if (text.size() <= size)
        return text;
    const std::size_t end = text.find_last_of("\r\n", size - 1);
    if (end != std::string_view::npos)
        return text.substr(0, end + 1);
    const std::size_t later = text.find_first_of("\r\n", size);
    return text.substr(0, later == std::string_view::npos ? later : later + 1);
}

bool HasLineEnd(const std::string& text, std::size_t from)
{
    return text.find('\n', from) != std::string::npos || text.find('\r', from) != std::string::npos;
}

}  // namespace

void TTableReader::Fail(std::size_t line, const std::string& what) const
{
    throw EConvertError(FSource.Name() + ": line " + std::to_string(line) + ": " + what);
}

void TTableReader::CheckZeros(std::size_t from)
{
    const std::size_t zero = FText.find('\0', from);
    if (zero != std::string::npos)
        Fail(FLine + CountLineEnds(std::string_view(FText).substr(0, zero)), "a byte 0, so this is no text file");
}

bool TTableReader::More()
{
    const std::size_t before = FText.size();
    FAtEnd = FAtEnd || !FSource.ReadMore(FText);
    CheckZeros(before);
    return !FAtEnd;
}

void TTableReader::Consume(std::size_t count)
{
    FTaken += TTextSource::BytesOf(std::string_view(FText).substr(0, count), FSource.Encoding());
    FText.erase(0, count);
}

/// A long preamble of remarks may hide the rows from the first sample.
void TTableReader::ReadFront()
{
    bool hasLine = false;
    for (std::size_t size = SampleSize;; size *= 4) {
        for (std::size_t seen = 0; (FText.size() <= size || !hasLine) && More(); seen = FText.size()) {
            hasLine = hasLine || HasLineEnd(FText, seen);
            if (!hasLine && FText.size() > LongestLine)
                FailLong();
        }
        std::string_view sample = FrontLines(FText, size);
        if (FOptions.IsGrowing && FAtEnd && sample.size() == FText.size())
            sample = sample.substr(0, sample.find_last_of("\r\n") + 1);
        try {
            FDialect = FindDialect(sample, FOptions.Wish);
        } catch (const EConvertError& error) {
            throw EConvertError(FSource.Name() + ": " + error.Message());
        }
        if (FDialect.HasRows || FAtEnd || size > LongestLine)
            break;
    }
}

void TTableReader::Start()
{
    ReadFront();
    for (std::size_t i = 0; i < FDialect.Names.size(); ++i)
        FColumns.emplace_back(FDialect.Names[i], i + 1, FDialect.Decimal);
    FTaken = TTextSource::MarkSize(FSource.Encoding());
    Consume(FDialect.DataOffset);
    FLine = FDialect.DataLine;
}

void TTableReader::CountRow()
{
    if (FRows == MaxRows)
        Fail(FLine, "more than " + std::to_string(MaxRows) + " rows");
    if (FRows == 0 || FLine != FLastRowLine + 1)
        FLineSteps.emplace_back(FRows, FLine);
    FLastRowLine = FLine;
    ++FRows;
}

void TTableReader::CountRagged(std::size_t cells, bool isSurplus)
{
    if (FRagged.Count++ == 0) {
        FRagged.FirstLine = FLine;
        FRagged.FirstCells = cells;
    }
    if (isSurplus && FSurplusRows++ == 0) {
        FFirstSurplusLine = FLine;
        FFirstSurplusCells = cells;
    }
}

void TTableReader::TakeRow(const TRecord& record)
{
    TCellCursor cursor(record.Text, FDialect.Separator);
    std::size_t cells = 0, filled = 0;
    for (std::string_view cell; cursor.Next(cell);) {
        if (cells < FColumns.size())
            FColumns[cells].Add(FRows, FLine, cell);
        ++cells;
        // Only the cells too many are looked at here: a separator at the end of a row makes an empty one.
        if (cells > FColumns.size() && !Trimmed(cell).empty())
            filled = cells;
    }
    if (cells < FColumns.size() || filled > FColumns.size())
        CountRagged(filled > FColumns.size() ? filled : cells, filled > FColumns.size());
    CountRow();
}

void TTableReader::FailUnclosed(std::string_view record) const
{
    TCellCursor cursor(record, FDialect.Separator);
    std::size_t cells = 0;
    for (std::string_view cell; cursor.Next(cell);)
        ++cells;
    std::string column = "column " + std::to_string(cells);
    if (cells >= 1 && cells <= FColumns.size())
        column += " (" + FColumns[cells - 1].Name() + ")";
    throw EConvertError(FSource.Name() + ": line " + std::to_string(FLine) + ", " + column + ": a quote is not closed");
}

void TTableReader::TakeRecords(TRecordCutter& cutter)
{
    TRecord record;
    for (;;) {
        const TCutResult result = cutter.Next(record);
        if (result == crUnclosed)
            FailUnclosed(record.Text);
        if (result != crRecord)
            break;
        if (record.IsComment)
            ++FComments;
        else if (!Trimmed(record.Text).empty())
            TakeRow(record);
        FLine += 1 + (record.HasQuotes ? CountLineEnds(record.Text) : 0);
    }
    Consume(cutter.Position());
}

TCsvTable TTableReader::Read()
{
    Start();
    const bool isBlank = FDialect.Separator == ' ';
    TRecordCutter cutter(isBlank ? " \t" : std::string(1, FDialect.Separator), FDialect.Marks);
    for (bool more = true; more;) {
        cutter.SetText(FText, false);
        TakeRecords(cutter);
        std::size_t seen = 0;
        do {
            if (FText.size() > LongestLine)
                FailLong();
            seen = FText.size();
            more = More();
        } while (more && !HasLineEnd(FText, seen));
    }
    if (!FOptions.IsGrowing) {
        cutter.SetText(FText, true);
        TakeRecords(cutter);
    }
    return Finish();
}

void TTableReader::FailLong() const
{
    Fail(FLine, "longer than 16 MB, so this is no table, or a quote is not closed");
}

void TTableReader::FailSurplus() const
{
    const std::string columns = std::to_string(FColumns.size()) + (FColumns.size() == 1 ? " column" : " columns");
    const std::string where = FDialect.HeaderLine ? "line " + std::to_string(FDialect.HeaderLine) + " names " + columns
                                                  : "the lines before have " + columns;
    Fail(FFirstSurplusLine,
         std::to_string(FFirstSurplusCells) + " cells where " + where + "; cells that hold the separator need quotes");
}

TCsvTable TTableReader::Finish()
{
    const std::string& file = FSource.Name();
    if (FRows == 0 && FDialect.HeaderLine == 0 && FDialect.CommentLines + FComments > 0)
        throw ENoRows(file + ": no rows, only remarks; --comment names the characters that start one");
    if (FRows == 0 && FDialect.HeaderLine == 0)
        throw ENoRows(file + ": the file is empty");
    if (FRows == 0)
        throw ENoRows(file + ": no rows behind line " + std::to_string(FDialect.HeaderLine) +
                      ", which names the columns");
    if (2 * FSurplusRows > FRows)
        FailSurplus();
    TCsvTable table;
    table.File = file;
    table.RowCount = FRows;
    table.LineSteps = std::move(FLineSteps);
    table.Ragged = FRagged;
    table.CommentLines = FDialect.CommentLines + FComments;
    table.Encoding = FSource.Encoding();
    table.IsRegular = FSource.IsRegular();
    table.EndOffset = FTaken;
    table.EndLine = FLine;
    if (FDialect.Names.size() > 1 && FDialect.Names.back().empty() && FColumns.back().IsEmpty()) {
        FColumns.pop_back();
        FDialect.Names.pop_back();
    }
    const bool dayFirst = FOptions.Wish.DayFirst.value_or(FOptions.Wish.LocaleDayFirst);
    table.Columns.reserve(FColumns.size());
    for (TCsvColumnBuilder& column : FColumns) {
        table.Columns.push_back(column.Finish(FRows, dayFirst, FOptions.Wish.DayFirst.has_value()));
        if (table.Columns.size() <= FDialect.Units.size())
            table.Columns.back().Unit = FDialect.Units[table.Columns.size() - 1];
    }
    table.Dialect = std::move(FDialect);
    return table;
}

}  // namespace plotkit
