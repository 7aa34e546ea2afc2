#include "plotkit/table/TableDialect.h"

#include <algorithm>
#include <array>

#include "host/Errors.h"
#include "plotkit/table/DialectSample.h"
#include "plotkit/table/TableLayout.h"

namespace plotkit {
namespace {

constexpr std::size_t MaxColumns = 10000;
constexpr std::size_t MostLines = 300;
constexpr std::size_t MostCells = 20000;

struct TWay
{
    char Separator, Decimal;
};

// In the order in which they are taken when they do as well. A comma inside quotes may be a decimal mark too.
constexpr std::array<TWay, 10> Ways{{{'\t', '.'},
                                     {';', '.'},
                                     {'|', '.'},
                                     {',', '.'},
                                     {'\t', ','},
                                     {';', ','},
                                     {'|', ','},
                                     {',', ','},
                                     {' ', '.'},
                                     {' ', ','}}};

TCommentMarks MarksOf(const TDialectWish& wish)
{
    TCommentMarks marks{"#%", true};
    if (!wish.Comments)
        return marks;
    marks.Chars = *wish.Comments;
    const std::size_t slashes = marks.Chars.find("//");
    marks.DoubleSlash = slashes != std::string::npos;
    if (marks.DoubleSlash)
        marks.Chars.erase(slashes, 2);
    return marks;
}

/// Whether lines that start with a semicolon are remarks: no other line has one.
bool IsSemicolonMark(const std::vector<TSampleLine>& lines)
{
    std::size_t remarks = 0, others = 0;
    for (const TSampleLine& line : lines) {
        if (line.IsComment)
            continue;
        if (Trimmed(line.Text).front() == ';')
            ++remarks;
        else if (line.Text.find(';') != std::string_view::npos)
            return false;
        else
            ++others;
    }
    return remarks > 0 && others > 0;
}

std::vector<TSampleRow> SplitRows(const std::vector<TSampleLine>& lines, const TWay& way)
{
    std::vector<TSampleRow> rows;
    std::size_t cells = 0;
    for (const TSampleLine& line : lines) {
        if (line.IsComment)
            continue;
        rows.push_back(SplitRow(line.Text, way.Separator, way.Decimal));
        cells += rows.back().size();
        if (rows.size() == MostLines || cells > MostCells)
            break;
    }
    return rows;
}

/// One name and numbers with one comma each: one column with decimal commas rather than a second one without a name.
bool IsOneColumnWithCommas(const std::vector<TSampleRow>& rows)
{
    return rows.size() > 1 && rows[0].size() == 1 && rows[0][0].IsText() && UsualCellCount(rows) == 2 &&
           std::all_of(rows.begin() + 1, rows.end(), [](const TSampleRow& row) {
               return std::all_of(row.begin(), row.end(), [](const TSampleCell& cell) {
                   return cell.Kind == ckNumber && cell.Text.find('.') == std::string::npos;
               });
           });
}

TWay FindWay(const std::vector<TSampleLine>& lines, const TDialectWish& wish, const TCommentMarks& marks)
{
    constexpr double noticeable = 1e-9;
    std::vector<TWay> ways(Ways.begin(), Ways.end());
    if (wish.Separator)
        ways = {{*wish.Separator, '.'}, {*wish.Separator, ','}};
    TWay best{wish.Separator.value_or(','), wish.Decimal.value_or('.')};
    double most = 0;
    for (const TWay& way : ways) {
        if ((wish.Decimal && way.Decimal != *wish.Decimal) || marks.Chars.find(way.Separator) != std::string::npos)
            continue;
        const auto rows = SplitRows(lines, way);
        const double weight = WeighRows(rows, way.Separator);
        if (weight > most + noticeable) {
            most = weight;
            best = way;
        }
    }
    if (best.Separator == ',' && !wish.Separator && wish.Decimal != '.' &&
        IsOneColumnWithCommas(SplitRows(lines, best)))
        return {';', ','};
    // A single column is separated by nothing.
    if (!wish.Separator && UsualCellCount(SplitRows(lines, best)) == 1)
        best.Separator = best.Decimal == ',' ? ';' : ',';
    return best;
}

}  // namespace

TTableDialect FindDialect(std::string_view sample, const TDialectWish& wish)
{
    TTableDialect dialect;
    dialect.Marks = MarksOf(wish);
    std::vector<TSampleLine> lines = CutSample(sample, wish.Skip, dialect.Marks);
    if (!wish.Comments && wish.Separator != ';' && IsSemicolonMark(lines)) {
        dialect.Marks.Chars += ';';
        lines = CutSample(sample, wish.Skip, dialect.Marks);
    }
    const TWay way = FindWay(lines, wish, dialect.Marks);
    dialect.Separator = way.Separator;
    dialect.Decimal = way.Decimal;
    LayOutTable(sample, lines, wish, dialect);
    if (dialect.Names.size() > MaxColumns)
        throw EConvertError("line " + std::to_string(dialect.HeaderLine ? dialect.HeaderLine : dialect.DataLine) +
                            ": more than " + std::to_string(MaxColumns) + " columns");
    return dialect;
}

std::string SeparatorWord(char separator)
{
    switch (separator) {
        case ',':
            return "commas";
        case ';':
            return "semicolons";
        case '\t':
            return "tabs";
        case ' ':
            return "blanks";
        case '|':
            return "bars";
        default:
            return std::string("\"") + separator + "\"";
    }
}

}  // namespace plotkit
