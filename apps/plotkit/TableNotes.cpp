#include "plotkit/TableNotes.h"

namespace plotkit {
namespace {

void AddColumnDoubts(const TCsvTable& table, const TChosenColumn& column, std::vector<std::string>& lines)
{
    const std::string name = "column \"" + column.Name + "\": ";
    if (column.BadCount > 0) {
        std::string line = table.File + ": " + table.RowWord + std::to_string(column.FirstBad.Line) + ", " + name +
                           "\"" + column.FirstBad.Text + "\" is no " + (column.IsDateTime ? "date" : "number");
        if (column.BadCount > 1)
            line += ", the first of " + std::to_string(column.BadCount) + " such cells";
        lines.push_back(line);
    }
    if (column.IsOrderOpen)
        lines.push_back(table.File + ": " + name + "the dates do not tell day from month; " +
                        (column.IsDayFirst ? "day/month was taken, --dates mdy takes month/day"
                                           : "month/day was taken, --dates dmy takes day/month"));
    if (column.IsUniversal)
        lines.push_back(table.File + ": " + name + "dates with an offset are shown in universal time (UTC)");
}

}  // namespace

std::string Counted(std::size_t count, const std::string& thing)
{
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string DescribeReading(const TCsvTable& table)
{
    const TTableDialect& dialect = table.Dialect;
    if (table.IsQuery)
        return "Read: " + Counted(table.RowCount, "row") + ", " + Counted(table.Columns.size(), "column") + " from " +
               table.File;
    std::string text = "Read: " + Counted(table.RowCount, "row") + ", " + Counted(table.Columns.size(), "column");
    if (table.Columns.size() > 1)
        text += " separated by " + SeparatorWord(dialect.Separator);
    if (dialect.Decimal == ',')
        text += ", decimal commas";
    text += dialect.HeaderLine ? ", names in line " + std::to_string(dialect.HeaderLine) : ", no line of names";
    if (dialect.UnitLine)
        text += ", units in line " + std::to_string(dialect.UnitLine);
    if (dialect.PreambleLines)
        text += ", " + Counted(dialect.PreambleLines, "line") + " before the table left out";
    if (table.CommentLines)
        text += ", " + Counted(table.CommentLines, "comment line");
    if (table.Encoding == teUtf16Little || table.Encoding == teUtf16Big)
        text += ", UTF-16";
    return text;
}

std::vector<std::string> DescribeDoubts(const TCsvTable& table, const TColumnChoice& choice)
{
    std::vector<std::string> lines;
    if (const TRaggedRows& ragged = table.Ragged; ragged.Count > 0) {
        std::string line = table.File + ": line " + std::to_string(ragged.FirstLine) + ": " +
                           Counted(ragged.FirstCells, "cell") + " where there are " +
                           Counted(table.Columns.size(), "column");
        if (ragged.Count > 1)
            line += ", the first of " + std::to_string(ragged.Count) + " such rows";
        lines.push_back(line);
    }
    AddColumnDoubts(table, choice.X, lines);
    for (const TChosenColumn& column : choice.Ys)
        AddColumnDoubts(table, column, lines);
    for (const TExtraColumn& extra : choice.Extras)
        AddColumnDoubts(table, extra.Column, lines);
    if (choice.Weights)
        AddColumnDoubts(table, *choice.Weights, lines);
    return lines;
}

}  // namespace plotkit
