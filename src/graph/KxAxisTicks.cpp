#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>

#include "foundation/KxArithm.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"
#include "host/CheckedMath.h"
#include "host/NumberFormat.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

/// Relative to a step: what sums and quotients of decimal steps miss the exact number by.
constexpr double StepTolerance = 1e-6;
/// Numbers of steps above are no longer exact.
constexpr double MostSteps = 1e14;
constexpr int SignificantDigits = 15;
constexpr int MostDecimals = 18;
/// Room between two labels beside each other, 1/96 inch.
constexpr int GapBesideLabels = 4;

bool IsWhole(double steps)
{
    return std::fabs(steps - std::nearbyint(steps)) < StepTolerance;
}

/// Without the noise that a sum of steps leaves below the thirteenth digit of the range.
double CleanValue(double value, int rangeExponent)
{
    const int exponent = rangeExponent - 13;
    const double units = ExpMinus(value, exponent);
    return std::fabs(units) < 1e15 ? ExpMinus(std::nearbyint(units), -exponent) : value;
}

}  // namespace

void TKxAxis::CalculateTicks()
{
    FTicksChanged = false;
    if (!GetVisible()) {
        CaptionLabel().SetVisible(false);
        return;
    }
    FMaxLabelHeight = 0;
    FMaxLabelWidth = 0;
    FExponentLabelWidth = 0;
    FScaleLabels.clear();
    FLabelPoints.clear();
    FLabelValues.clear();
    FTickValues.clear();
    FTickPositions.clear();
    FTickIsMajor.clear();
    FLabelHeight = 0;
    if (GetShowScaleLabels())
        Measured("10", &FLabelHeight);
    PlaceCaption();
    PlaceLabelBase();
    switch (FScaling) {
        case AxNormal:
            LinearTicks();
            break;
        case AxLog:
        case AxLogEE:
            LogTicks();
            break;
        case AxDateTime:
            DateTimeTicks();
            break;
    }
    SortTicks();
}

int TKxAxis::MostTicks() const
{
    return static_cast<int>(std::clamp<std::int64_t>(std::int64_t{4} * FPixelLength, 0, 1 << 20));
}

void TKxAxis::AddTick(double value, bool major)
{
    FTickValues.push_back(value);
    FTickPositions.push_back(RealToIntPosition(value));
    FTickIsMajor.push_back(major);
}

void TKxAxis::SortTicks()
{
    std::vector<std::size_t> order(FTickPositions.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [this](std::size_t a, std::size_t b) { return FTickPositions[a] < FTickPositions[b]; });
    const auto sorted = [&order](const auto& values) {
        auto result = values;
        for (std::size_t i = 0; i < order.size(); ++i)
            result[i] = values[order[i]];
        return result;
    };
    FTickValues = sorted(FTickValues);
    FTickIsMajor = sorted(FTickIsMajor);
    FTickPositions = sorted(FTickPositions);
}

void TKxAxis::PlaceLabelBase()
{
    const int gap = Px(GetScalingsTicksGap()), ticks = Px(GetMajorTickLength());
    const int before = gap + std::max(-ticks, 0), behind = gap + std::max(ticks, 0);
    const int middle = FAxisY - FLabelHeight / 2;
    switch (FPosition) {
        case AxBottomPos:
            FLabelBase = {{FAxisX, FAxisY + behind}, 1};
            break;
        case AxTopPos:
            FLabelBase = {{FAxisX, FAxisY - before - FLabelHeight}, 1};
            break;
        case AxRightPos:
            FLabelBase = {{FAxisX + behind, middle}, 0};
            break;
        case AxLeftPos:
        case AxFreeFloating:
            // The text ends before the pixel that the gap starts at.
            FLabelBase = {{FAxisX - before + 1, middle}, 2};
            break;
    }
}

TKxCaptionRec TKxAxis::Measured(const std::string& text, int* height) const
{
    TRecording nowhere;
    TCanvas screen(nowhere, Host().TextMeasurer(), PixelScale());
    screen.Font = GetFont().State();
    if (height)
        *height = screen.TextHeight(text);
    TKxCaptionRec rec;
    rec.Text = text;
    rec.Canvas = &screen;
    rec.SelStart = -1;
    rec.SelEnd = -1;
    RichPaintTo(rec);
    rec.Canvas = nullptr;
    return rec;
}

void TKxAxis::AddLabelAt(const std::string& text, double value)
{
    const int position = RealToIntPosition(value);
    const bool horizontal = Orientation() == AxHorizontal;
    FLabelValues.push_back(value);
    AppendLabel(text, MovePoint(FLabelBase.At, horizontal ? TPoint{position, 0} : TPoint{0, position}));
}

void TKxAxis::AppendLabel(const std::string& text, TPoint at)
{
    int height = 0;
    TKxCaptionRec rec = Measured(text, &height);
    rec.DoPaint = true;
    rec.Y = at.Y;
    const int left = FLabelBase.HalvesLeft == 2 ? rec.Width : FLabelBase.HalvesLeft == 1 ? rec.Width / 2 : 0;
    rec.X = AddPixels(at.X, -left);
    FMaxLabelHeight = std::max(FMaxLabelHeight, height);
    FMaxLabelWidth = std::max(FMaxLabelWidth, rec.Width);
    FScaleLabels.push_back(std::move(rec));
    FLabelPoints.push_back(at);
}

/// Labels that are too close stay in the list and are not drawn, but for those that `isShown` at the first thinning
/// that leaves room between them.
void TKxAxis::ThinOutLabels(std::size_t count, const std::function<bool(std::size_t, int)>& isShown)
{
    const bool horizontal = Orientation() == AxHorizontal;
    const int gap = Px(GapBesideLabels);
    const auto overlap = [&](const TKxCaptionRec& one, const TKxCaptionRec& two) {
        if (!horizontal)
            return std::abs(one.Y - two.Y) < FMaxLabelHeight;
        return one.X < two.X ? one.X + one.Width + gap > two.X : two.X + two.Width + gap > one.X;
    };
    const auto isFree = [&](int thinning) {
        const TKxCaptionRec* before = nullptr;
        for (std::size_t i = 0; i < count; ++i) {
            if (!isShown(i, thinning))
                continue;
            if (before && overlap(*before, FScaleLabels[i]))
                return false;
            before = &FScaleLabels[i];
        }
        return true;
    };
    int thinning = 0;
    while (thinning <= static_cast<int>(count) && !isFree(thinning))
        ++thinning;
    for (std::size_t i = 0; i < count; ++i)
        FScaleLabels[i].DoPaint = isShown(i, thinning);
}

/// Those at every step of `labelPart` times 10^`exponent`, else at every 2, 5, 10, 20, ... steps.
void TKxAxis::ThinOutStepLabels(double labelPart, int exponent)
{
    ThinOutLabels(FLabelValues.size(), [&](std::size_t i, int thinning) {
        constexpr std::array<int, 3> factors{1, 2, 5};
        const double every = factors[static_cast<std::size_t>(thinning % 3)] * std::pow(10.0, thinning / 3);
        const double steps = std::nearbyint(ExpMinus(FLabelValues[i], exponent) / labelPart);
        return std::fmod(steps, every) == 0;
    });
}

void TKxAxis::LinearTicks()
{
    SpreadOverPixels(GetStop() - GetStart());
    if (FPixelLength <= 0)
        return;
    if (!LinearStepsAreUsable())
        TakeTableSteps();
    ChooseLabelForm();
    const int majorPeriod = std::max(RoundToInt(FMajorTickPart / FTickPart), 1);
    const int labelPeriod = std::max(RoundToInt(FLabelPart / FTickPart), 1);
    if (!TicksAtMultiples(majorPeriod, labelPeriod))
        TicksFromTheEnd(majorPeriod, labelPeriod);
    ThinOutStepLabels(FLabelPart, FRangeExponent);
    if (GetShowScaleLabels() && FExponentForm)
        AddExponentLabel();
}

double TKxAxis::LinearTickCount() const
{
    return std::nearbyint(ExpMinus(GetStop() - GetStart(), FRangeExponent) / FTickPart + 1);
}

bool TKxAxis::LinearStepsAreUsable() const
{
    return FTickPart > 0 && LinearTickCount() >= 2 && RoundToInt(FMajorTickPart / FTickPart) > 0 &&
           RoundToInt(FLabelPart / FTickPart) > 0;
}

/// Ends that are no multiples of the tick step would shift all ticks off the values that their labels show: then the
/// multiples between the ends are taken.
bool TKxAxis::TicksAtMultiples(int majorPeriod, int labelPeriod)
{
    const double from = ExpMinus(GetStart(), FRangeExponent) / FTickPart;
    const double to = ExpMinus(GetStop(), FRangeExponent) / FTickPart;
    if ((IsWhole(from) && IsWhole(to)) || std::max(std::fabs(from), std::fabs(to)) > MostSteps ||
        !IsWhole(FMajorTickPart / FTickPart) || !IsWhole(FLabelPart / FTickPart))
        return false;
    const double first = std::ceil(from - StepTolerance), last = std::floor(to + StepTolerance);
    if (last - first < 1)
        return false;
    if (last - first >= MostTicks())
        return true;
    for (auto n = static_cast<std::int64_t>(first), end = static_cast<std::int64_t>(last); n <= end; ++n) {
        const std::int64_t k = FTwisted ? end - (n - static_cast<std::int64_t>(first)) : n;
        const double value = ExpMinus(static_cast<double>(k) * FTickPart, -FRangeExponent);
        AddLinearTick(value, k % majorPeriod == 0, k % labelPeriod == 0);
    }
    return true;
}

int TKxAxis::Phase(double part, int period) const
{
    const double distance = FTwisted ? GetStop() - RoundDown(GetStop(), part, FRangeExponent)
                                     : RoundUp(GetStart(), part, FRangeExponent) - GetStart();
    const int phase = RoundToInt(ExpMinus(distance, FRangeExponent) / FTickPart) % period;
    return phase < 0 ? phase + period : phase;
}

void TKxAxis::TicksFromTheEnd(int majorPeriod, int labelPeriod)
{
    const double wanted = std::max(LinearTickCount(), 2.0);
    if (!(wanted <= MostTicks()))
        return;
    const auto count = static_cast<int>(wanted);
    const double start = GetStart(), stop = GetStop(), step = (stop - start) / (count - 1);
    const int majorPhase = Phase(FMajorTickPart, majorPeriod), labelPhase = Phase(FLabelPart, labelPeriod);
    for (int k = 0; k < count; ++k) {
        double value = CleanValue(FTwisted ? stop - k * step : start + k * step, FRangeExponent);
        if (k == 0)
            value = FTwisted ? stop : start;
        else if (k == count - 1)
            value = FTwisted ? start : stop;
        AddLinearTick(value, k % majorPeriod == majorPhase, k % labelPeriod == labelPhase);
    }
}

void TKxAxis::AddLinearTick(double value, bool major, bool labelled)
{
    AddTick(value, major);
    if (!labelled || !GetShowScaleLabels())
        return;
    const std::string text = NumberText(value);
    // Where the axes cross at zero the other axis would be drawn over the label.
    if (CrossesAtZero() && ParseReal(text, Host().Locale().DecimalSeparator) == 0.0)
        return;
    AddLabelAt(text, value);
}

bool TKxAxis::CrossesAtZero() const
{
    const TKx2DGraph* graph = GraphOf(*this);
    return graph && graph->GetZeroOrigin() && GetStart() <= 0 && GetStop() > 0;
}

std::string TKxAxis::NumberText(double value) const
{
    int decimals = FLabelDigits <= FScaleExponent ? 0 : FLabelDigits - FScaleExponent - 1;
    if (FExponentForm) {
        value = ExpMinus(value, FScaleExponent);
        decimals = FLabelDigits - 1;
    }
    return FormatFixed(value, SignificantDigits, std::clamp(decimals, 0, MostDecimals),
                       Host().Locale().DecimalSeparator);
}

void TKxAxis::AddExponentLabel()
{
    const std::string text =
        "\xC2\xB7"
        "10\\+" +
        std::to_string(FScaleExponent);
    const bool horizontal = Orientation() == AxHorizontal;
    TPoint at = FLabelBase.At + (horizontal ? TPoint{FPixelLength / 2, 0} : TPoint{0, FPixelLength / 2});
    if (!FLabelPoints.empty()) {
        const TPoint last = FLabelPoints.back();
        const TPoint other = FLabelPoints[FLabelPoints.size() - std::min<std::size_t>(2, FLabelPoints.size())];
        at = {std::midpoint(other.X, last.X), std::midpoint(other.Y, last.Y)};
    }
    const int gap = Px(GetExponentScalingsGap());
    if (horizontal)
        at.Y = AddPixels(at.Y, FPosition == AxTopPos ? -gap : gap);
    else if (FPosition != AxFreeFloating)
        at.X = AddPixels(at.X, FPosition == AxLeftPos ? -gap : gap);
    AppendLabel(text, at);
    FExponentLabelWidth = FScaleLabels.back().Width;
    if (!horizontal && GetCaption().empty())
        FMaxLabelWidth = std::max(FMaxLabelWidth, FExponentLabelWidth + gap);
}

}  // namespace plotkit
