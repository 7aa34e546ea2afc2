#include <algorithm>
#include <cmath>
#include <vector>

#include "foundation/KxArithm.h"
#include "graph/KxAxis.h"
#include "graph/KxNiceValues.h"
#include "host/CheckedMath.h"
#include "host/Host.h"
#include "host/NumberFormat.h"

namespace plotkit {

namespace {

/// In decades: what the logarithm of an end misses a grid value by.
constexpr double LogTolerance = 1e-9;
constexpr std::size_t FewMultiples = 4;
constexpr int SignificantDigits = 15;
constexpr int MostDecimals = 18;

}  // namespace

void TKxAxis::LogTicks()
{
    SpreadOverPixels(FLogStop - FLogStart);
    const double decades = std::nearbyint((FLogStop - FLogStart) / FMajorTickPart);
    const int perDecade = RoundToInt(1 / FTickPart - 1);
    if (FPixelLength <= 0 || decades + 1 > MostTicks())
        return;
    AddDecades(decades * perDecade + 1 > MostTicks() ? 1 : perDecade);
    // Between so few multiples of a power of ten hardly anything would tell where one is.
    if (FTickValues.size() < FewMultiples && GetStop() > GetStart())
        AddStepsInsideDecade();
}

void TKxAxis::AddStepsInsideDecade()
{
    FTickValues.clear();
    FTickPositions.clear();
    FTickIsMajor.clear();
    FScaleLabels.clear();
    FLabelPoints.clear();
    FLabelValues.clear();
    const double width = GetStop() - GetStart();
    const int exponent = GetExponent(width);
    const auto i = static_cast<std::size_t>(NiceIndex(width, exponent));
    const double tick = NiceValues().TickField[i], label = NiceValues().LabelsField[i];
    const auto majorPeriod = std::max<std::int64_t>(RoundToInt(NiceValues().MajorTickField[i] / tick), 1);
    const auto labelPeriod = std::max<std::int64_t>(RoundToInt(label / tick), 1);
    const int decimals = LastSignificant(label) - 1 - GetExponent(label) - exponent;
    const double first = std::ceil(ExpMinus(GetStart(), exponent) / tick - LogTolerance);
    const double last = std::floor(ExpMinus(GetStop(), exponent) / tick + LogTolerance);
    if (!(last - first < MostTicks()))
        return;
    for (auto k = static_cast<std::int64_t>(first); k <= static_cast<std::int64_t>(last); ++k) {
        const double value = ExpMinus(static_cast<double>(k) * tick, -exponent);
        AddTick(value, k % majorPeriod == 0);
        if (GetShowScaleLabels() && k % labelPeriod == 0)
            AddLabelAt(LogStepText(value, decimals), value);
    }
    ThinOutStepLabels(label, exponent);
}

std::string TKxAxis::LogStepText(double value, int decimals) const
{
    const char separator = Host().Locale().DecimalSeparator;
    const int decade = FScaling == AxLogEE ? GetExponent(value) : 0;
    const int shown = std::max(decimals + decade, 0);
    const double v = ExpMinus(value, decade);
    const std::string text = shown > MostDecimals ? FormatGeneral(v, SignificantDigits, 0, separator)
                                                  : FormatFixed(v, SignificantDigits, shown, separator);
    return FScaling == AxLogEE ? text + "\xC2\xB7" + "10\\+ " + std::to_string(decade) : text;
}

void TKxAxis::AddDecades(int perDecade)
{
    const double from = FLogStart - LogTolerance, to = FLogStop + LogTolerance;
    // A single decade, or none, does not tell how far apart the values of the axis are.
    const bool labelMultiples = std::floor(to) - std::ceil(from) < 1;
    std::vector<TLogLabel> labels;
    for (int decade = static_cast<int>(std::floor(from)); decade <= static_cast<int>(std::floor(to)); ++decade)
        for (int multiple = 1; multiple <= perDecade; ++multiple) {
            const double value = ExpMinus(multiple, -decade), logarithm = std::log10(value);
            if (logarithm < from || logarithm > to)
                continue;
            AddTick(value, multiple == 1);
            if (!GetShowScaleLabels() || (multiple > 1 && !labelMultiples))
                continue;
            AddLabelAt(LogText({decade, multiple}, value), value);
            labels.push_back({decade, multiple});
        }
    ThinOutLogLabels(labels);
}

std::string TKxAxis::LogText(TLogLabel label, double value) const
{
    if (FScaling == AxLogEE)
        return (label.Multiple > 1 ? std::to_string(label.Multiple) + "\xC2\xB7" : "") + "10\\+ " +
               std::to_string(label.Decade);
    const double v = value / FMajorTickPart;
    const int decimals = std::max(-GetExponent(v), 0);
    const char separator = Host().Locale().DecimalSeparator;
    return decimals > MostDecimals ? FormatGeneral(v, SignificantDigits, 0, separator)
                                   : FormatFixed(v, SignificantDigits, decimals, separator);
}

/// Those at 1, 2, 5 of a decade, else those of every first, second, third, ... decade.
void TKxAxis::ThinOutLogLabels(const std::vector<TLogLabel>& labels)
{
    ThinOutLabels(labels.size(), [&](std::size_t i, int thinning) {
        const int m = labels[i].Multiple;
        if (thinning <= 1)
            return thinning == 0 || m == 1 || m == 2 || m == 5;
        return m == 1 && labels[i].Decade % (thinning - 1) == 0;
    });
}

}  // namespace plotkit
