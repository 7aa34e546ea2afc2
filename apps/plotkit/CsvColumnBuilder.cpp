#include "plotkit/CsvColumnBuilder.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "host/NumberFormat.h"
#include "host/TextMeasurer.h"
#include "plotkit/DateText.h"

namespace plotkit {
namespace {

std::string WithoutControls(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            c = ' ';
    return text;
}

/// For a message: no longer than a glance.
std::string Shortened(std::string_view text)
{
    constexpr std::size_t longest = 40;
    if (text.size() <= longest)
        return WithoutControls(std::string(text));
    std::size_t end = 0;
    while (end + static_cast<std::size_t>(CodePointLength(text, end)) <= longest)
        end += static_cast<std::size_t>(CodePointLength(text, end));
    return WithoutControls(std::string(text.substr(0, end))) + "...";
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

void Put(std::vector<double>& values, std::size_t row, double value)
{
    if (values.size() < row)
        values.resize(row, std::numeric_limits<double>::quiet_NaN());
    values.push_back(value);
}

}  // namespace

TCellContent ReadCell(std::string_view cell)
{
    cell = Trimmed(cell);
    if (cell.empty())
        return {};
    double value = 0;
    const char* end = cell.data() + cell.size();
    const auto [stop, error] = std::from_chars(cell.data(), end, value);
    if (error == std::errc() && stop == end)
        return std::isfinite(value) ? TCellContent{ckNumber, value} : TCellContent{};
    // A leading "+", and numbers beyond the range of doubles.
    if (const auto number = ParseReal(cell))
        return std::isfinite(*number) ? TCellContent{ckNumber, *number} : TCellContent{};
    if (const auto date = ParseDateText(cell))
        return {ckDateTime, *date};
    return {ckText, 0};
}

TCsvColumnBuilder::TCsvColumnBuilder(const std::string& name, std::size_t number)
    : FName(WithoutControls(std::string(Trimmed(name)))), FNumber(number)
{
    if (FName.empty())
        FName = "column " + std::to_string(number);
}

void TCsvColumnBuilder::Note(TCells& cells, std::size_t line, std::string_view cell)
{
    if (cells.Count++ == 0)
        cells.First = {line, Shortened(Trimmed(cell))};
}

void TCsvColumnBuilder::Add(std::size_t row, std::size_t line, std::string_view cell)
{
    const TCellContent content = ReadCell(cell);
    if (content.Kind == ckNumber) {
        Note(FNumbers, line, cell);
        Put(FNumbers.Values, row, content.Value);
    } else if (content.Kind == ckDateTime) {
        Note(FDates, line, cell);
        Put(FDates.Values, row, content.Value);
    } else if (content.Kind == ckText) {
        Note(FTexts, line, cell);
    }
}

TCsvColumn TCsvColumnBuilder::Finish(std::size_t rowCount)
{
    TCsvColumn column;
    column.Name = FName;
    column.Number = FNumber;
    const TCells* kept = &FTexts;
    if (FNumbers.Count > 0 && FNumbers.Count >= FDates.Count && FNumbers.Count >= FTexts.Count)
        kept = &FNumbers;
    else if (FDates.Count > 0 && FDates.Count >= FTexts.Count)
        kept = &FDates;
    column.Type = kept == &FNumbers ? ctNumber : kept == &FDates ? ctDateTime : ctText;
    for (const TCells* cells : {&FNumbers, &FDates, &FTexts}) {
        // Nothing can be drawn of a text: every one of them is a cell too many.
        const bool fits = cells == kept && kept != &FTexts;
        if (fits || cells->Count == 0 || (kept == &FTexts && cells != kept))
            continue;
        column.BadCount += cells->Count;
        if (column.FirstBad.Line == 0 || cells->First.Line < column.FirstBad.Line)
            column.FirstBad = cells->First;
    }
    if (column.Type == ctText)
        return column;
    std::vector<double>& values = kept == &FNumbers ? FNumbers.Values : FDates.Values;
    values.resize(rowCount, std::numeric_limits<double>::quiet_NaN());
    column.Values = TArray<double>(std::move(values));
    column.ValueCount = kept->Count;
    return column;
}

}  // namespace plotkit
