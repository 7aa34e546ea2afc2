#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "foundation/KxArithm.h"
#include "graph/KxAxis.h"
#include "host/CheckedMath.h"
#include "host/Host.h"
#include "host/NumberFormat.h"

namespace plotkit {

namespace {

/// In decades: what the logarithm of an end misses a grid value by.
constexpr double LogTolerance = 1e-9;
constexpr int SignificantDigits = 15;
constexpr int MostDecimals = 18;
/// Room between two labels beside each other, 1/96 inch.
constexpr int GapBesideLabels = 4;

}  // namespace

void TKxAxis::LogTicks()
{
    SpreadOverPixels(FLogStop - FLogStart);
    const double decades = std::nearbyint((FLogStop - FLogStart) / FMajorTickPart);
    const int perDecade = RoundToInt(1 / FTickPart - 1);
    if (FPixelLength <= 0 || decades * perDecade + 1 > MostTicks())
        return;
    AddDecades();
}

void TKxAxis::AddDecades()
{
    const int perDecade = RoundToInt(1 / FTickPart - 1);
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

/// Labels that are too close stay in the list and are not drawn, but for those at 1, 2, 5 of a decade, else for every
/// first, second, third, ... decade.
void TKxAxis::ThinOutLogLabels(const std::vector<TLogLabel>& labels)
{
    const bool horizontal = Orientation() == AxHorizontal;
    const int gap = Px(GapBesideLabels);
    const auto overlap = [&](const TKxCaptionRec& one, const TKxCaptionRec& two) {
        if (!horizontal)
            return std::abs(one.Y - two.Y) < FMaxLabelHeight;
        return one.X < two.X ? one.X + one.Width + gap > two.X : two.X + two.Width + gap > one.X;
    };
    const auto isShown = [](TLogLabel label, int thinning) {
        const int m = label.Multiple;
        if (thinning <= 1)
            return thinning == 0 || m == 1 || m == 2 || m == 5;
        return m == 1 && label.Decade % (thinning - 1) == 0;
    };
    const auto isFree = [&](int thinning) {
        const TKxCaptionRec* before = nullptr;
        for (std::size_t i = 0; i < labels.size(); ++i) {
            if (!isShown(labels[i], thinning))
                continue;
            if (before && overlap(*before, FScaleLabels[i]))
                return false;
            before = &FScaleLabels[i];
        }
        return true;
    };
    int thinning = 0;
    while (thinning <= static_cast<int>(labels.size()) && !isFree(thinning))
        ++thinning;
    for (std::size_t i = 0; i < labels.size(); ++i)
        FScaleLabels[i].DoPaint = isShown(labels[i], thinning);
}

}  // namespace plotkit
