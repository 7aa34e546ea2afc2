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

void FitColumn(TChosenColumn& column, const std::string& option, std::vector<std::string>& notes)
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
    notes.push_back(option + ": column \"" + column.Name + "\": " + std::to_string(lost) +
                    (lost == 1 ? " value is" : " values are") + " not positive and left out");
}

void FitColumns(std::span<TChosenColumn> columns, TScaleChoice scale, const std::string& option,
                std::vector<std::string>& notes)
{
    if (!NeedsPositive(scale))
        return;
    std::size_t count = 0;
    for (TChosenColumn& column : columns) {
        FitColumn(column, option, notes);
        count += column.ValueCount;
    }
    if (count == 0)
        throw EConvertError(option + ": column \"" + columns.front().Name + "\" has no positive value for a logarithm");
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
    FitColumns({&choice.X, 1}, options.XScale, "--x-scale", notes);
    FitColumns(choice.Ys, options.YScale, "--y-scale", notes);
    return notes;
}

}  // namespace plotkit
