#include "plotkit/table/FileFollower.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>

#include "host/Errors.h"
#include "plotkit/table/CellText.h"
#include "plotkit/table/CsvColumnBuilder.h"

namespace plotkit {
namespace {

constexpr double Missing = std::numeric_limits<double>::quiet_NaN();
constexpr std::uint64_t TailSize = 256;

/// The dialect that was found, as a wish: a file that starts anew may be too short to tell.
TDialectWish WishFor(const TTableDialect& dialect, TDialectWish wish)
{
    wish.Separator = dialect.Separator;
    wish.Decimal = dialect.Decimal;
    wish.Header = dialect.HeaderLine > 0;
    wish.Comments = dialect.Marks.Chars + (dialect.Marks.DoubleSlash ? "//" : "");
    return wish;
}

}  // namespace

TFileFollower::TFileFollower(const TCsvTable& table, std::vector<TFollowedColumn> columns, const TDialectWish& wish)
    : FFile(table.File), FWish(WishFor(table.Dialect, wish)), FFollowed(std::move(columns))
{
    if (!table.IsRegular)
        throw EFileError(FFile + ": only a file can be followed");
    Keep(table);
    FIsNeeded.assign(FColumns.size(), false);
    for (const TFollowedColumn& column : FFollowed)
        for (const std::size_t source : column.Sources)
            FIsNeeded.at(source) = true;
    // Whatever came between reading and now is found by the first poll.
    FSize = FOffset;
    FTail = TextBefore(FOffset);
}

void TFileFollower::Keep(const TCsvTable& table)
{
    FDialect = table.Dialect;
    FEncoding = table.Encoding;
    FOffset = table.EndOffset;
    FLine = table.EndLine;
    FRow = table.RowCount;
    FColumns = table.Columns;
    for (TCsvColumn& column : FColumns)
        column.Values = {};
    FIsNoted.assign(FColumns.size() + 1, false);
}

bool TFileFollower::HasChanged()
{
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(FFile, error);
    if (error)
        throw EFileError(FFile + ": the file is gone; it is waited for");
    const auto time = std::filesystem::last_write_time(FFile, error);
    const bool changed = size != FSize || time != FTime || FIsUnread;
    FSize = size;
    FTime = time;
    return changed;
}

std::string TFileFollower::TextBefore(std::uint64_t end) const
{
    const std::uint64_t size = std::min(end, TailSize);
    std::string text(static_cast<std::size_t>(size), '\0');
    std::ifstream stream(FFile, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(end - size));
    stream.read(text.data(), static_cast<std::streamsize>(size));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

bool TFileFollower::IsSameText(std::uint64_t size) const
{
    return size >= FOffset && TextBefore(FOffset) == FTail;
}

TFollowedRows TFileFollower::Poll()
{
    TFollowedRows rows;
    rows.Values.resize(FFollowed.size());
    try {
        if (!HasChanged())
            return rows;
        FIsUnread = false;
        if (!FIsOther && IsSameText(FSize))
            ReadOn(rows);
        else
            Restart(rows);
        FLastError.clear();
    } catch (const EError& error) {
        // What stands in a file changes when the file does; whether it can be read may change by itself.
        FIsUnread = dynamic_cast<const EFileError*>(&error) != nullptr;
        if (error.Message() != FLastError)
            rows.Notes.push_back(error.Message());
        FLastError = error.Message();
    }
    return rows;
}

void TFileFollower::ReadOn(TFollowedRows& rows)
{
    TTextSource source(FFile, {});
    source.ContinueAt(FOffset, FEncoding);
    std::string text;
    while (source.ReadMore(text)) {
        const std::size_t taken = TakeRecords(text, rows);
        FOffset += TTextSource::BytesOf(std::string_view(text).substr(0, taken), FEncoding);
        text.erase(0, taken);
    }
    FTail = TextBefore(FOffset);
}

std::size_t TFileFollower::TakeRecords(std::string_view text, TFollowedRows& rows)
{
    TRecordCutter cutter(FDialect.Separator == ' ' ? " \t" : std::string(1, FDialect.Separator), FDialect.Marks);
    cutter.SetText(text, false);
    TRecord record;
    while (cutter.Next(record) == crRecord) {
        if (!record.IsComment && !Trimmed(record.Text).empty())
            TakeRow(record, rows);
        FLine += 1 + (record.HasQuotes ? CountLineEnds(record.Text) : 0);
    }
    return cutter.Position();
}

void TFileFollower::NoteOnce(std::size_t column, const std::string& note, TFollowedRows& rows)
{
    if (FIsNoted[column])
        return;
    FIsNoted[column] = true;
    rows.Notes.push_back(FFile + ": line " + std::to_string(FLine) + note);
}

std::optional<double> TFileFollower::ValueOf(const TFollowedColumn& column,
                                             const std::vector<std::optional<double>>& cells) const
{
    if (column.Sources.empty())
        return static_cast<double>(FRow);
    if (column.Sources.size() == 1)
        return cells[column.Sources.front()].value_or(Missing);
    std::vector<double> parts;
    for (const std::size_t source : column.Sources) {
        parts.push_back(cells[source].value_or(Missing));
        if (std::isnan(parts.back()))
            return Missing;
    }
    return JoinDate(GroupOf(column, FColumns), parts);
}

void TFileFollower::TakeRow(const TRecord& record, TFollowedRows& rows)
{
    std::vector<std::optional<double>> cells(FColumns.size(), Missing);
    TCellCursor cursor(record.Text, FDialect.Separator);
    std::size_t count = 0, filled = 0;
    bool isBad = false;
    for (std::string_view cell; cursor.Next(cell); ++count) {
        if (count >= FColumns.size()) {
            filled = Trimmed(cell).empty() ? filled : count + 1;
            continue;
        }
        if (!FIsNeeded[count])
            continue;
        cells[count] = ValueFor(FColumns[count], ReadCell(cell, FDialect.Decimal));
        if (cells[count])
            continue;
        isBad = true;
        NoteOnce(count,
                 ", column \"" + FColumns[count].Name + "\": \"" + Shortened(Trimmed(cell)) + "\" is no " +
                     (FColumns[count].Type == ctDateTime ? "date" : "number"),
                 rows);
    }
    if (count < FColumns.size() || filled > FColumns.size()) {
        isBad = true;
        NoteOnce(FColumns.size(),
                 ": " + std::to_string(std::max(filled, count)) + " cells where there are " +
                     std::to_string(FColumns.size()) + " columns",
                 rows);
    }
    ++FRow;
    ++rows.RowCount;
    for (std::size_t i = 0; i < FFollowed.size(); ++i) {
        const auto value = ValueOf(FFollowed[i], cells);
        rows.Values[i].push_back(value.value_or(Missing));
        if (value)
            continue;
        isBad = true;
        NoteOnce(FFollowed[i].Sources.front(), ", column \"" + FFollowed[i].Name + "\": the parts are no date", rows);
    }
    FBadRows += isBad;
}

bool TFileFollower::HasSameColumns(const TCsvTable& table) const
{
    if (table.Columns.size() < FColumns.size())
        return false;
    for (std::size_t i = 0; i < FColumns.size(); ++i)
        if (FIsNeeded[i] && (table.Columns[i].Name != FColumns[i].Name || table.Columns[i].Type != FColumns[i].Type))
            return false;
    return true;
}

void TFileFollower::TakeTable(const TCsvTable& table, TFollowedRows& rows)
{
    rows.RowCount = table.RowCount;
    for (std::size_t i = 0; i < FFollowed.size(); ++i) {
        const TArray<double> values = ValuesOf(FFollowed[i], table);
        rows.Values[i].assign(values.Span().begin(), values.Span().end());
    }
}

void TFileFollower::Restart(TFollowedRows& rows)
{
    const bool isNews = !FIsOther;
    FIsOther = true;
    if (isNews)
        rows.Notes.push_back(FFile + ": the file was cut or replaced; it is read from its start");
    TReadOptions options;
    options.Wish = FWish;
    options.IsGrowing = true;
    const TCsvTable table = ReadCsvFile(FFile, options);
    if (!HasSameColumns(table))
        throw EConvertError(FFile + ": the columns are others than before; they are waited for");
    TakeTable(table, rows);
    Keep(table);
    FTail = TextBefore(FOffset);
    rows.IsRestart = true;
    FIsOther = false;
}

}  // namespace plotkit
