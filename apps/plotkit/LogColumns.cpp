#include "plotkit/LogColumns.h"

#include <algorithm>
#include <functional>
#include <limits>

#include "host/Errors.h"

namespace plotkit {
namespace {

bool IsPositive(double value)
{
    return value > 0;
}

void FitColumn(TChosenColumn& column, std::vector<std::string>& notes)
{
    const auto values = column.Values.Span();
    const auto count = static_cast<std::size_t>(std::count_if(values.begin(), values.end(), IsPositive));
    const std::size_t lost = column.ValueCount - count;
    if (lost == 0)
        return;
    std::vector<double> positive(values.begin(), values.end());
    KeepPositive(positive);
    column.Values = TArray<double>(std::move(positive));
    column.ValueCount = count;
    notes.push_back("column \"" + column.Name + "\": " + std::to_string(lost) +
                    (lost == 1 ? " value is" : " values are") + " not positive and left out of the logarithmic scale");
}

void FitColumns(std::span<TChosenColumn> columns, TScaleChoice scale, std::vector<std::string>& notes)
{
    if (!NeedsPositive(scale))
        return;
    std::size_t count = 0;
    for (TChosenColumn& column : columns) {
        FitColumn(column, notes);
        count += column.ValueCount;
    }
    if (count == 0)
        throw EConvertError("column \"" + columns.front().Name + "\" has no positive value for a logarithmic scale");
}

}  // namespace

bool NeedsPositive(TScaleChoice scale)
{
    return scale == scLog || scale == scLogEE;
}

void KeepPositive(std::span<double> values)
{
    std::replace_if(values.begin(), values.end(), std::not_fn(IsPositive), std::numeric_limits<double>::quiet_NaN());
}

std::vector<std::string> FitToLogScales(TColumnChoice& choice, const TOptions& options)
{
    std::vector<std::string> notes;
    const bool isTurned = options.Kind.Horizontal;
    FitColumns({&choice.X, 1}, isTurned ? options.YScale : options.XScale, notes);
    FitColumns(choice.Ys, isTurned ? options.XScale : options.YScale, notes);
    return notes;
}

}  // namespace plotkit
