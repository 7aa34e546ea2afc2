#include "plotkit/table/TableLayout.h"

#include <algorithm>

namespace plotkit {
namespace {

constexpr std::size_t MostRows = 300;
constexpr std::size_t LongestUnit = 24;

class TLayoutFinder
{
public:
    TLayoutFinder(const std::vector<TSampleLine>& lines, const TDialectWish& wish, TTableDialect& dialect);
    void Find(std::string_view sample);

private:
    std::size_t FirstFittingRow() const;
    bool IsHeader(std::size_t row) const;
    bool NamesLineBefore(std::size_t row) const;
    bool IsUnits(std::size_t row) const;
    bool HoldsValues(std::size_t column, std::size_t firstRow) const;
    void TakeNames(const TSampleRow& row);
    bool TakeCommentedNames(std::size_t firstLine);
    TSampleRow SplitComment(const TSampleLine& line) const;
    void TakeUnits(const TSampleRow& row, std::size_t line);
    void SetDataStart(std::string_view sample, std::size_t row);

    const std::vector<TSampleLine>& FAll;
    const TDialectWish& FWish;
    TTableDialect& FDialect;
    std::vector<const TSampleLine*> FLines;  ///< no remarks
    std::vector<TSampleRow> FRows;           ///< of these
    std::size_t FUsual = 0;
};

bool HasText(const TSampleRow& row)
{
    return std::any_of(row.begin(), row.end(), [](const TSampleCell& cell) { return cell.IsText(); });
}

bool IsAllText(const TSampleRow& row)
{
    return HasText(row) && std::none_of(row.begin(), row.end(), [](const TSampleCell& cell) { return cell.IsValue(); });
}

bool IsBracketed(const std::string& text)
{
    return text.size() > 1 &&
           ((text.front() == '[' && text.back() == ']') || (text.front() == '(' && text.back() == ')'));
}

TLayoutFinder::TLayoutFinder(const std::vector<TSampleLine>& lines, const TDialectWish& wish, TTableDialect& dialect)
    : FAll(lines), FWish(wish), FDialect(dialect)
{
    for (const TSampleLine& line : lines) {
        if (line.IsComment || FRows.size() == MostRows)
            continue;
        FLines.push_back(&line);
        FRows.push_back(SplitRow(line.Text, dialect.Separator, dialect.Decimal));
    }
    FUsual = UsualCellCount(FRows);
}

/// Lines of text with another number of cells may stand before the table.
std::size_t TLayoutFinder::FirstFittingRow() const
{
    for (std::size_t row = 0; row < FRows.size(); ++row)
        if (FRows[row].size() == FUsual || !HasText(FRows[row]))
            return row;
    return 0;
}

bool TLayoutFinder::HoldsValues(std::size_t column, std::size_t firstRow) const
{
    std::size_t values = 0, texts = 0;
    for (std::size_t row = firstRow; row < FRows.size(); ++row) {
        if (column >= FRows[row].size())
            continue;
        values += FRows[row][column].IsValue();
        texts += FRows[row][column].IsText();
    }
    return values > 0 && values >= texts;
}

bool TLayoutFinder::IsHeader(std::size_t row) const
{
    for (std::size_t column = 0; column < FRows[row].size(); ++column)
        if (FRows[row][column].IsText() && HoldsValues(column, row + 1))
            return true;
    return IsAllText(FRows[row]);
}

/// The line before the first one that fits may name fewer or more columns than the rows have.
bool TLayoutFinder::NamesLineBefore(std::size_t row) const
{
    return row > 0 && IsAllText(FRows[row - 1]) && (FRows[row - 1].size() > 1 || FUsual == 1);
}

bool TLayoutFinder::IsUnits(std::size_t row) const
{
    if (row + 1 >= FRows.size() || FRows[row].size() > FDialect.Names.size() || !IsAllText(FRows[row]))
        return false;
    bool isPlain = true, isBracketed = true;
    for (std::size_t column = 0; column < FRows[row].size(); ++column) {
        const TSampleCell& cell = FRows[row][column];
        if (cell.Text.size() > LongestUnit)
            return false;
        isPlain = isPlain && HoldsValues(column, row + 1);
        isBracketed = isBracketed && (cell.Text.empty() || IsBracketed(cell.Text));
    }
    return isPlain || isBracketed;
}

void TLayoutFinder::TakeNames(const TSampleRow& row)
{
    std::vector<std::string> names;
    for (const TSampleCell& cell : row)
        names.push_back(NameText(cell.Text));
    // The rows of a list with named rows start with a cell that has no name above it.
    if ((FDialect.Separator == ' ' || FDialect.Separator == '\t') && names.size() + 1 == FUsual)
        names.insert(names.begin(), std::string());
    if (names.size() == FUsual + 1 && names.back().empty())
        names.pop_back();
    FDialect.Names = std::move(names);
}

TSampleRow TLayoutFinder::SplitComment(const TSampleLine& line) const
{
    const std::string_view text = Trimmed(line.Text.substr(FDialect.Marks.MarkLength(line.Text)));
    std::string separators = ",;\t| ";
    if (FDialect.Separator != ' ')
        separators.insert(separators.begin(), FDialect.Separator);
    for (const char separator : separators) {
        TSampleRow row = SplitRow(text, separator, FDialect.Decimal);
        if (row.size() == FUsual && IsAllText(row))
            return row;
    }
    return {};
}

/// The last remark before the rows names the columns when it has as many words; the one before it does when the last
/// holds units.
bool TLayoutFinder::TakeCommentedNames(std::size_t firstLine)
{
    constexpr std::size_t unlikelySentence = 4;
    const TSampleLine* last = nullptr;
    const TSampleLine* before = nullptr;
    for (const TSampleLine& line : FAll) {
        if (line.Line >= firstLine)
            break;
        if (line.IsComment) {
            before = last;
            last = &line;
        }
    }
    const TSampleRow names = last ? SplitComment(*last) : TSampleRow{};
    if (names.empty())
        return false;
    const TSampleRow above = before ? SplitComment(*before) : TSampleRow{};
    const bool areUnits =
        std::all_of(names.begin(), names.end(), [](const auto& cell) { return IsBracketed(cell.Text); });
    const bool isPair = !above.empty() && (areUnits || names.size() >= unlikelySentence);
    TakeNames(isPair ? above : names);
    FDialect.HeaderLine = isPair ? before->Line : last->Line;
    if (isPair)
        TakeUnits(names, last->Line);
    return true;
}

void TLayoutFinder::TakeUnits(const TSampleRow& row, std::size_t line)
{
    FDialect.UnitLine = line;
    FDialect.Units.resize(FDialect.Names.size());
    for (std::size_t i = 0; i < std::min(row.size(), FDialect.Units.size()); ++i) {
        std::string unit = NameText(row[i].Text);
        if (IsBracketed(unit))
            unit = unit.substr(1, unit.size() - 2);
        FDialect.Units[i] = row[i].Kind == ckMissing ? std::string() : unit;
    }
}

std::size_t Behind(std::string_view sample, const TSampleLine& line)
{
    std::size_t at = line.Offset + line.Text.size();
    at += at < sample.size() && sample[at] == '\r';
    return at + (at < sample.size() && sample[at] == '\n');
}

void TLayoutFinder::SetDataStart(std::string_view sample, std::size_t row)
{
    FDialect.HasRows = row < FLines.size();
    if (FDialect.HasRows) {
        FDialect.DataOffset = FLines[row]->Offset;
        FDialect.DataLine = FLines[row]->Line;
    } else {  // what follows may be the beginning of a row
        FDialect.DataOffset = FAll.empty() ? sample.size() : Behind(sample, FAll.back());
        FDialect.DataLine = FAll.empty() ? 1 : FAll.back().Line + 1 + CountLineEnds(FAll.back().Text);
    }
    for (const TSampleLine& line : FAll)
        FDialect.CommentLines += line.IsComment && line.Line < FDialect.DataLine && line.Line != FDialect.HeaderLine &&
                                 line.Line != FDialect.UnitLine;
}

void TLayoutFinder::Find(std::string_view sample)
{
    std::size_t row = FirstFittingRow();
    bool hasHeader = false;
    if (!FRows.empty() && FWish.Header.value_or(true)) {
        hasHeader = IsHeader(row);
        if (!hasHeader && NamesLineBefore(row)) {
            --row;
            hasHeader = true;
        }
        if (!hasHeader && FWish.Header && !TakeCommentedNames(FLines[row]->Line))
            hasHeader = true;
    }
    FDialect.PreambleLines = row;
    if (hasHeader) {
        TakeNames(FRows[row]);
        FDialect.HeaderLine = FLines[row]->Line;
        ++row;
        if (row < FRows.size() && IsUnits(row)) {
            TakeUnits(FRows[row], FLines[row]->Line);
            ++row;
        }
    } else if (!FRows.empty() && FDialect.Names.empty()) {
        if (FWish.Header == false || !TakeCommentedNames(FLines[row]->Line))
            FDialect.Names.assign(FUsual, std::string());
    }
    SetDataStart(sample, row);
}

}  // namespace

void LayOutTable(std::string_view sample, const std::vector<TSampleLine>& lines, const TDialectWish& wish,
                 TTableDialect& dialect)
{
    TLayoutFinder(lines, wish, dialect).Find(sample);
}

}  // namespace plotkit
