#include "plotkit/table/CsvColumnBuilder.h"

#include <cmath>
#include <limits>

#include "host/DateTime.h"
#include "host/NumberFormat.h"

namespace plotkit {
namespace {

constexpr double Missing = std::numeric_limits<double>::quiet_NaN();

void Put(std::vector<double>& values, std::size_t row, double value)
{
    if (values.size() < row)
        values.resize(row, Missing);
    values.push_back(value);
}

}  // namespace

TCsvColumnBuilder::TCsvColumnBuilder(const std::string& name, std::size_t number, char decimal)
    : FName(name), FNumber(number), FDecimal(decimal)
{
    if (FName.empty())
        FName = "column " + std::to_string(number);
}

bool TCsvColumnBuilder::IsEmpty() const
{
    return FNumbers.Count + FTimes.Count + FTexts.Count + FDates.Count + FGrouped.Count == 0;
}

void TCsvColumnBuilder::Note(TCells& cells, std::size_t line, std::string_view cell)
{
    if (cells.Count++ == 0)
        cells.First = {line, Shortened(Trimmed(cell))};
}

void TCsvColumnBuilder::AddTo(TDates& dates, std::size_t row, std::size_t line, std::string_view cell, double value)
{
    Put(dates.Values, row, value);
    if (!std::isnan(value))
        ++dates.Count;
    else if (dates.FirstBad.Line == 0)
        dates.FirstBad = {line, Shortened(Trimmed(cell))};
}

void TCsvColumnBuilder::TakeDate(std::size_t row, std::size_t line, std::string_view cell, const TCellContent& content)
{
    FIsUniversal = FIsUniversal || content.IsUniversal;
    if (content.IsTwoWays && !FMonthFirst)
        FMonthFirst = FDayFirst;
    AddTo(FDayFirst, row, line, cell, content.Value);
    if (FMonthFirst)
        AddTo(*FMonthFirst, row, line, cell, content.MonthFirst);
}

void TCsvColumnBuilder::Add(std::size_t row, std::size_t line, std::string_view cell)
{
    const TCellContent content = ReadCell(cell, FDecimal);
    switch (content.Kind) {
        case ckMissing:
            break;
        case ckNumber:
            Note(FNumbers, line, cell);
            Put(FNumbers.Values, row, content.Value);
            break;
        case ckDateTime:
            Note(FDates, line, cell);
            TakeDate(row, line, cell, content);
            break;
        case ckTimeOfDay:
            Note(FTimes, line, cell);
            Put(FTimes.Values, row, content.Value);
            break;
        case ckGrouped:
            Note(FGrouped, line, cell);
            break;
        case ckText:
            Note(FTexts, line, cell);
            break;
    }
}

void TCsvColumnBuilder::AddNumber(std::size_t row, std::size_t line, double value)
{
    if (!std::isfinite(value))
        return;
    Note(FNumbers, line, FNumbers.Count ? std::string() : FormatExact(value));
    Put(FNumbers.Values, row, value);
}

void TCsvColumnBuilder::AddDate(std::size_t row, std::size_t line, double value, bool isUniversal)
{
    const std::string text = FDates.Count ? std::string() : FormatDateTime("yyyy-mm-dd hh:nn", value, {});
    Note(FDates, line, text);
    TakeDate(row, line, text, {ckDateTime, value, value, false, isUniversal});
}

void TCsvColumnBuilder::AddTime(std::size_t row, std::size_t line, double value)
{
    Note(FTimes, line, FTimes.Count ? std::string() : FormatDateTime("hh:nn:ss", value, {}));
    Put(FTimes.Values, row, value);
}

TCsvColumnBuilder::TDates& TCsvColumnBuilder::ChosenDates(bool dayFirst, bool isWished, TCsvColumn& column)
{
    column.IsDayFirst = !FMonthFirst || dayFirst;
    if (FMonthFirst && !isWished) {
        column.IsOrderOpen = FMonthFirst->Count == FDayFirst.Count;
        if (!column.IsOrderOpen)
            column.IsDayFirst = FDayFirst.Count > FMonthFirst->Count;
    }
    return column.IsDayFirst ? FDayFirst : *FMonthFirst;
}

void TCsvColumnBuilder::AddBad(TCsvColumn& column, std::size_t count, const TCsvCell& first)
{
    if (count == 0)
        return;
    column.BadCount += count;
    if (column.FirstBad.Line == 0 || first.Line < column.FirstBad.Line)
        column.FirstBad = first;
}

void TCsvColumnBuilder::CountBad(const TCells* kept, TCsvColumn& column) const
{
    // Nothing can be drawn of a text: every one of them is a cell too many.
    for (const TCells* cells : {&FNumbers, &FDates, &FTimes, &FTexts, &FGrouped})
        if (kept == &FTexts ? cells == kept : cells != kept && !(kept == &FNumbers && cells == &FGrouped))
            AddBad(column, cells->Count, cells->First);
}

TCsvColumn TCsvColumnBuilder::Finish(std::size_t rowCount, bool dayFirst, bool isWished)
{
    TCsvColumn column;
    column.Name = FName;
    column.Number = FNumber;
    const std::size_t numbers = FNumbers.Count + FGrouped.Count;
    const TCells* kept = &FTexts;
    if (numbers > 0 && numbers >= FDates.Count && numbers >= FTimes.Count && numbers >= FTexts.Count)
        kept = &FNumbers;
    else if (FDates.Count > 0 && FDates.Count >= FTimes.Count && FDates.Count >= FTexts.Count)
        kept = &FDates;
    else if (FTimes.Count > 0 && FTimes.Count >= FTexts.Count)
        kept = &FTimes;
    CountBad(kept, column);
    if (kept == &FTexts)
        return column;
    column.Type = kept == &FNumbers ? ctNumber : ctDateTime;
    column.IsTimeOfDay = kept == &FTimes;
    column.ValueCount = kept->Count;
    std::vector<double>* values = kept == &FNumbers ? &FNumbers.Values : &FTimes.Values;
    if (kept == &FNumbers) {
        column.GroupedCount = FGrouped.Count;
        column.FirstGrouped = FGrouped.First;
    } else if (kept == &FDates) {
        TDates& dates = ChosenDates(dayFirst, isWished, column);
        column.IsUniversal = FIsUniversal;
        column.ValueCount = dates.Count;
        AddBad(column, FDates.Count - dates.Count, dates.FirstBad);
        values = &dates.Values;
    }
    values->resize(rowCount, Missing);
    column.Values = TArray<double>(std::move(*values));
    return column;
}

std::optional<double> ValueFor(const TCsvColumn& column, const TCellContent& content)
{
    if (content.Kind == ckMissing)
        return Missing;
    if (column.Type == ctNumber && content.Kind == ckNumber)
        return content.Value;
    if (column.Type != ctDateTime || content.Kind != (column.IsTimeOfDay ? ckTimeOfDay : ckDateTime))
        return std::nullopt;
    const double value = column.IsTimeOfDay || column.IsDayFirst ? content.Value : content.MonthFirst;
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

}  // namespace plotkit
