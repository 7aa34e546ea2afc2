#include "plotkit/ColumnChoice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "plotkit/table/DateGroups.h"

namespace plotkit {
namespace {

bool IsStrictlyAscending(const TCsvColumn& column)
{
    if (column.Type != ctNumber || column.ValueCount == 0)
        return false;
    double before = -INFINITY;
    for (const double value : column.Values.Span()) {
        if (std::isnan(value))
            continue;
        if (value <= before)
            return false;
        before = value;
    }
    return true;
}

/// Whether one of the words of a name, such as "decimal_year", speaks of time.
bool NamesTime(std::string_view name)
{
    constexpr std::array<std::string_view, 8> words{"year", "month", "day", "hour", "minute", "second", "date", "time"};
    constexpr auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    for (auto at = name.begin(); at != name.end();) {
        at = std::find_if(at, name.end(), isLetter);
        const auto end = std::find_if_not(at, name.end(), isLetter);
        const std::string_view word =
            name.substr(static_cast<std::size_t>(at - name.begin()), static_cast<std::size_t>(end - at));
        if (std::any_of(words.begin(), words.end(), [&](std::string_view w) { return SameText(w, word); }))
            return true;
        at = end;
    }
    return false;
}

TChosenColumn Chosen(const TCsvColumn& column)
{
    TChosenColumn chosen;
    chosen.Name = chosen.Caption = column.Name;
    if (!column.Unit.empty())
        chosen.Caption += " (" + column.Unit + ")";
    chosen.IsDateTime = column.Type == ctDateTime;
    chosen.IsTimeOfDay = column.IsTimeOfDay;
    chosen.IsOrderOpen = column.IsOrderOpen;
    chosen.IsDayFirst = column.IsDayFirst;
    chosen.IsUniversal = column.IsUniversal;
    chosen.Sources = {column.Number - 1};
    chosen.Values = column.Values;
    chosen.RowCount = column.Values.Length();
    chosen.ValueCount = column.ValueCount;
    chosen.BadCount = column.BadCount;
    chosen.FirstBad = column.FirstBad;
    return chosen;
}

TChosenColumn Joined(const TCsvColumn& date, const TDateGroup& group)
{
    TChosenColumn chosen = Chosen(date);
    chosen.Caption = "date";
    chosen.Sources.resize(group.Count);
    std::iota(chosen.Sources.begin(), chosen.Sources.end(), group.First);
    return chosen;
}

TChosenColumn RowNumbers(const TCsvTable& table)
{
    std::vector<double> numbers(table.RowCount);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = static_cast<double>(i + 1);
    TChosenColumn chosen;
    chosen.Name = chosen.Caption = "row number";
    chosen.Values = TArray<double>(std::move(numbers));
    chosen.RowCount = chosen.ValueCount = table.RowCount;
    return chosen;
}

class TChooser
{
public:
    explicit TChooser(const TCsvTable& table)
        : FTable(table), FGroups(FindDateGroups(table)), FTaken(table.Columns.size(), false)
    {}

    TColumnChoice Choose(const std::optional<std::string>& x, const std::vector<std::string>& ys,
                         std::span<const TExtraName> extras);
    TChosenColumn ChooseNumbers(std::string_view name, std::string_view option);

private:
    using TIndex = std::size_t;

    void TakeNamedOrdinates(const std::vector<std::string>& ys, TColumnChoice& choice);
    void TakeOrdinate(std::string_view name, TColumnChoice& choice);
    void TakeExtra(const TExtraName& extra, TColumnChoice& choice);
    bool TakeNamedGroup(const std::string& name, TColumnChoice& choice);
    void TakeAbscissa(TColumnChoice& choice);
    bool TakeFirstOrdinate(TColumnChoice& choice, bool timesToo);
    const TDateGroup* GroupOf(TIndex column) const;
    bool IsTime(TIndex column) const;
    std::vector<TIndex> Find(std::string_view name) const;
    TIndex FindOne(std::string_view name, std::string_view option) const;
    TChosenColumn Take(TIndex column);
    [[noreturn]] void Fail(const std::string& what) const { throw EConvertError(FTable.File + ": " + what); }
    [[noreturn]] void FailWithoutNumbers(const TCsvColumn& column, std::string_view option) const;
    [[noreturn]] void FailWithoutAnyNumbers() const;

    const TCsvTable& FTable;
    std::vector<TDateGroup> FGroups;
    std::vector<bool> FTaken;
};

const TDateGroup* TChooser::GroupOf(TIndex column) const
{
    const auto found = std::find_if(FGroups.begin(), FGroups.end(), [&](const TDateGroup& group) {
        return column >= group.First && column < group.First + group.Count;
    });
    return found == FGroups.end() ? nullptr : &*found;
}

bool TChooser::IsTime(TIndex i) const
{
    const TCsvColumn& column = FTable.Columns[i];
    return column.Type == ctDateTime || GroupOf(i) || (NamesTime(column.Name) && IsStrictlyAscending(column));
}

std::vector<std::size_t> TChooser::Find(std::string_view name) const
{
    const auto all = [&](auto matches) {
        std::vector<TIndex> found;
        for (TIndex i = 0; i < FTable.Columns.size(); ++i)
            if (matches(FTable.Columns[i].Name))
                found.push_back(i);
        return found;
    };
    auto found = all([&](const std::string& column) { return column == name; });
    if (found.empty())
        found = all([&](const std::string& column) { return SameText(column, name); });
    if (!found.empty())
        return found;
    const auto number = ParseInteger(name);
    if (number && *number >= 1 && *number <= static_cast<long long>(FTable.Columns.size()))
        return {static_cast<TIndex>(*number - 1)};
    return {};
}

std::size_t TChooser::FindOne(std::string_view name, std::string_view option) const
{
    const auto found = Find(name);
    if (found.size() == 1)
        return found.front();
    constexpr TIndex mostListed = 30;
    std::string list;
    for (TIndex i = 0; i < std::min(FTable.Columns.size(), mostListed); ++i)
        list += (i ? ", " : "") + std::to_string(i + 1) + " " + FTable.Columns[i].Name;
    if (FTable.Columns.size() > mostListed)
        list += ", ... " + std::to_string(FTable.Columns.size()) + " in all";
    Fail(std::string(option) + ": " + (found.empty() ? "there is no column \"" : "more than one column is named \"") +
         std::string(name) + "\"; the columns are " + list);
}

void TChooser::FailWithoutNumbers(const TCsvColumn& column, std::string_view option) const
{
    const std::string what = std::string(option) + ": column \"" + column.Name + "\" holds ";
    if (column.Type == ctDateTime)
        Fail(what + "dates, which only X can show");
    if (column.BadCount == 0)
        Fail(what + "no values");
    Fail(what + "no numbers; " + FTable.RowWord + std::to_string(column.FirstBad.Line) + " has \"" +
         column.FirstBad.Text + "\"");
}

void TChooser::FailWithoutAnyNumbers() const
{
    for (const TCsvColumn& column : FTable.Columns)
        if (column.Type == ctText && column.BadCount > 0)
            Fail("no column holds numbers; " + FTable.RowWord + std::to_string(column.FirstBad.Line) + ", column \"" +
                 column.Name + "\" has \"" + column.FirstBad.Text + "\"");
    Fail("no column holds numbers");
}

/// Thousands marks are refused where the column is wanted: 1,234 may be a decimal as well.
TChosenColumn TChooser::Take(TIndex i)
{
    const TCsvColumn& column = FTable.Columns[i];
    if (column.GroupedCount > 0)
        Fail(FTable.RowWord + std::to_string(column.FirstGrouped.Line) + ", column \"" + column.Name + "\": \"" +
             column.FirstGrouped.Text + "\" has a thousands mark; write numbers without");
    FTaken[i] = true;
    return Chosen(column);
}

TChosenColumn TChooser::ChooseNumbers(std::string_view name, std::string_view option)
{
    const TCsvColumn& column = FTable.Columns[FindOne(name, option)];
    if (column.Type != ctNumber)
        FailWithoutNumbers(column, option);
    return Take(column.Number - 1);
}

void TChooser::TakeOrdinate(std::string_view name, TColumnChoice& choice)
{
    choice.Ys.push_back(ChooseNumbers(name, "--y"));
}

void TChooser::TakeExtra(const TExtraName& extra, TColumnChoice& choice)
{
    choice.Extras.push_back({extra.Ordinate, extra.Place, ChooseNumbers(extra.Name, extra.Option)});
}

void TChooser::TakeNamedOrdinates(const std::vector<std::string>& ys, TColumnChoice& choice)
{
    for (const std::string& text : ys) {
        // A name may hold a comma itself.
        if (Find(text).size() == 1) {
            TakeOrdinate(text, choice);
            continue;
        }
        for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
            end = text.find(',', start);
            TakeOrdinate(std::string_view(text).substr(start, end == std::string::npos ? end : end - start), choice);
        }
    }
}

bool TChooser::TakeNamedGroup(const std::string& name, TColumnChoice& choice)
{
    for (const TDateGroup& group : FGroups) {
        const TCsvColumn date = JoinDateGroup(FTable, group);
        if (SameText(date.Name, name) && Find(name).empty()) {
            choice.X = Joined(date, group);
            return true;
        }
    }
    return false;
}

void TChooser::TakeAbscissa(TColumnChoice& choice)
{
    for (TIndex i = 0; i < FTable.Columns.size(); ++i) {
        const TCsvColumn& column = FTable.Columns[i];
        if (const TDateGroup* group = GroupOf(i)) {
            if (group->First != i)
                continue;
            const TCsvColumn date = JoinDateGroup(FTable, *group);
            if (date.ValueCount > 0) {
                choice.X = Joined(date, *group);
                return;
            }
        } else if (!FTaken[i] && (column.Type == ctDateTime || IsStrictlyAscending(column))) {
            choice.X = Take(i);
            return;
        }
    }
    choice.X = RowNumbers(FTable);
}

bool TChooser::TakeFirstOrdinate(TColumnChoice& choice, bool timesToo)
{
    for (TIndex i = 0; i < FTable.Columns.size(); ++i) {
        const TCsvColumn& column = FTable.Columns[i];
        const bool isEmpty = column.ValueCount + column.GroupedCount == 0;
        if (column.Type != ctNumber || isEmpty || FTaken[i] || (!timesToo && IsTime(i)))
            continue;
        choice.Ys.push_back(Take(i));
        return true;
    }
    return false;
}

TColumnChoice TChooser::Choose(const std::optional<std::string>& x, const std::vector<std::string>& ys,
                               std::span<const TExtraName> extras)
{
    TColumnChoice choice;
    if (x && !TakeNamedGroup(*x, choice)) {
        const TCsvColumn& column = FTable.Columns[FindOne(*x, "--x")];
        if (column.Type == ctText)
            FailWithoutNumbers(column, "--x");
        choice.X = Take(column.Number - 1);
    }
    TakeNamedOrdinates(ys, choice);
    for (const TExtraName& extra : extras)
        TakeExtra(extra, choice);
    if (!x)
        TakeAbscissa(choice);
    if (!choice.Ys.empty() || TakeFirstOrdinate(choice, false) || TakeFirstOrdinate(choice, true))
        return choice;
    // A single ascending column is plotted against the row number.
    FTaken.assign(FTaken.size(), false);
    if (!TakeFirstOrdinate(choice, true))
        FailWithoutAnyNumbers();
    if (!x)
        choice.X = RowNumbers(FTable);
    return choice;
}

}  // namespace

TColumnChoice ChooseColumns(const TCsvTable& table, const std::optional<std::string>& x,
                            const std::vector<std::string>& ys, std::span<const TExtraName> extras)
{
    return TChooser(table).Choose(x, ys, extras);
}

TChosenColumn ChooseColumn(const TCsvTable& table, const std::string& name, const std::string& option)
{
    return TChooser(table).ChooseNumbers(name, option);
}

std::string DescribeChoice(const TColumnChoice& choice)
{
    std::string text = "X: " + choice.X.Name;
    text += choice.X.IsTimeOfDay ? " (time of day), Y: " : choice.X.IsDateTime ? " (date), Y: " : ", Y: ";
    for (std::size_t i = 0; i < choice.Ys.size(); ++i) {
        const TChosenColumn& column = choice.Ys[i];
        const std::size_t count = column.ValueCount;
        const std::size_t missing = column.RowCount - count - column.BadCount;
        text += (i ? ", " : "") + column.Name + " (" + std::to_string(count) + (count == 1 ? " value" : " values") +
                (missing ? ", " + std::to_string(missing) + " missing)" : ")");
    }
    return text;
}

}  // namespace plotkit
