#include "plotkit/table/DialectSample.h"

#include <algorithm>
#include <map>

#include "host/Errors.h"

namespace plotkit {

namespace {

/// A line where a quote stays open, or 0. Which characters separate cells, so that a quote behind them opens one, is
/// not known yet.
std::size_t Cut(std::string_view sample, std::size_t skip, const TCommentMarks& marks, const std::string& separators,
                std::vector<TSampleLine>& lines)
{
    TRecordCutter cutter(separators, marks);
    cutter.SetText(sample, true);
    TRecord record;
    std::size_t line = 1, at = 0;
    for (;; at = cutter.Position()) {
        const TCutResult result = cutter.Next(record);
        if (result != crRecord)
            return result == crUnclosed ? line : 0;
        const std::size_t first = line;
        line += 1 + (record.HasQuotes ? CountLineEnds(record.Text) : 0);
        if (first > skip && !Trimmed(record.Text).empty())
            lines.push_back({record.Text, first, at, record.IsComment});
    }
}

}  // namespace

std::vector<TSampleLine> CutSample(std::string_view sample, std::size_t skip, const TCommentMarks& marks)
{
    std::vector<TSampleLine> lines;
    if (Cut(sample, skip, marks, ",;|\t ", lines) == 0)
        return lines;
    // The sample may end in a cell, or a word in a text has a quote of its own.
    lines.clear();
    const std::size_t open = Cut(sample, skip, marks, ",;|\t", lines);
    if (open && lines.empty())
        throw EConvertError("line " + std::to_string(open) + ": a quote is not closed");
    return lines;
}

TSampleRow SplitRow(std::string_view line, char separator, char decimal)
{
    TSampleRow row;
    TCellCursor cursor(line, separator);
    for (std::string_view cell; cursor.Next(cell);)
        row.push_back({ReadCell(cell, decimal).Kind, std::string(Trimmed(cell))});
    return row;
}

std::size_t UsualCellCount(const std::vector<TSampleRow>& rows)
{
    std::map<std::size_t, std::size_t> counts;
    for (const TSampleRow& row : rows)
        ++counts[row.size()];
    std::size_t usual = 0, most = 0;
    for (const auto& [cells, count] : counts)
        if (count >= most) {
            usual = cells;
            most = count;
        }
    return usual;
}

double WeighRows(const std::vector<TSampleRow>& rows, char separator)
{
    // Thousands marks make a cell less of a value, unless commas separate: "1,234" in quotes is then not a decimal.
    const double grouped = separator == ',' ? 1.0 : 0.9;
    constexpr double oneColumn = 0.3;
    const std::size_t usual = UsualCellCount(rows);
    std::size_t fitting = 0, filled = 0;
    double values = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].size() != usual)
            continue;
        ++fitting;
        // The first may hold names.
        if (i == 0 && rows.size() > 1)
            continue;
        for (const TSampleCell& cell : rows[i]) {
            filled += !cell.Text.empty();
            values += cell.Text.empty() || cell.IsText() ? 0 : cell.Kind == ckGrouped ? grouped : 1;
        }
    }
    if (rows.empty())
        return 0;
    const double share = filled ? values / static_cast<double>(filled) : 0;
    const double weight = static_cast<double>(fitting) / static_cast<double>(rows.size()) * (0.1 + share);
    return usual > 1 ? weight : oneColumn * weight;
}

}  // namespace plotkit
