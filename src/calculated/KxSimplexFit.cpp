#include "calculated/KxSimplexFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::size_t BlockSize = 256;
constexpr std::size_t Lanes = 8;
constexpr double StartStretch = 2.05;

double LaneSum(const std::array<double, Lanes>& lane)
{
    return ((lane[0] + lane[4]) + (lane[2] + lane[6])) + ((lane[1] + lane[5]) + (lane[3] + lane[7]));
}

/// A fixed number of partial sums: vector instructions of any width give the same result.
template <class TTerm>
double SumOf(std::size_t count, TTerm term)
{
    std::array<double, Lanes> lane{};
    std::size_t i = 0;
    for (; i + Lanes <= count; i += Lanes)
        for (std::size_t k = 0; k < Lanes; ++k)
            lane[k] += term(i + k);
    for (std::size_t k = 0; i + k < count; ++k)
        lane[k] += term(i + k);
    return LaneSum(lane);
}

}  // namespace

TKxMisfit::TKxMisfit(TKxFittingFkt function, TKxFitPoints points, TInverse inverse)
    : FFunction(std::move(function)), FPoints(points), FInverse(std::move(inverse))
{}

double TKxMisfit::operator()(std::span<double> coefs) const
{
    std::array<double, BlockSize> y;
    double sum = 0, lost = 0;  // blocks are added with what rounding lost
    for (std::size_t first = 0; first < FPoints.X.size(); first += BlockSize) {
        const std::size_t count = std::min(BlockSize, FPoints.X.size() - first);
        FFunction.Run(FPoints.X.subspan(first, count), coefs, y.data());
        const double term = BlockSum(first, count, y.data()) - lost;
        const double next = sum + term;
        lost = (next - sum) - term;
        sum = next;
    }
    return std::isfinite(sum) ? sum : std::numeric_limits<double>::infinity();
}

double TKxMisfit::BlockSum(std::size_t first, std::size_t count, const double* y) const
{
    const double* pointX = FPoints.X.data() + first;
    const double* pointY = FPoints.Y.data() + first;
    const double* weight = FPoints.W.empty() ? nullptr : FPoints.W.data() + first;
    if (FInverse) {
        double sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const double term = std::fabs((pointY[i] - y[i]) * (pointX[i] - FInverse(y[i])));
            sum += weight ? term * std::fabs(weight[i]) : term;
        }
        return sum;
    }
    const auto square = [=](std::size_t i) { return (pointY[i] - y[i]) * (pointY[i] - y[i]); };
    if (!weight)
        return SumOf(count, square);
    return SumOf(count, [=](std::size_t i) { return square(i) * std::fabs(weight[i]); });
}

TKxSimplexFit::TKxSimplexFit(TKxMisfit misfit, std::span<const double> start)
    : FMisfit(std::move(misfit)), FSize(start.size()), FValues(FSize + 1), FCentroid(FSize), FTrial(FSize)
{
    for (std::size_t i = 0; i <= FSize; ++i) {
        FSimplex.insert(FSimplex.end(), start.begin(), start.end());
        if (i < FSize)
            Vertex(i)[i] *= StartStretch;
    }
    for (std::size_t i = 0; i <= FSize; ++i)
        Evaluate(i);
    Rank();
}

void TKxSimplexFit::Step()
{
    const double best = FValues[FBestIndex];
    const double nextWorst = FValues[FNextWorstIndex];
    FindCentroid();
    MoveWorst(1.0);
    if (FValues[FWorstIndex] < best)
        TryExpansion();
    else if (FValues[FWorstIndex] > nextWorst)
        Contract();
    Rank();
}

void TKxSimplexFit::Evaluate(std::size_t vertex)
{
    const std::span<double> coefs = Vertex(vertex);
    if (!std::ranges::all_of(coefs, [](double coef) { return std::isfinite(coef); }))
        throw EMathError("Floating point overflow");
    FValues[vertex] = FMisfit(coefs);
}

void TKxSimplexFit::Rank()
{
    FBestIndex = FWorstIndex = 0;
    for (std::size_t i = 0; i <= FSize; ++i) {
        if (!(FValues[i] < FValues[FWorstIndex]))
            FWorstIndex = i;
        else if (FValues[i] <= FValues[FBestIndex])
            FBestIndex = i;
    }
    FNextWorstIndex = FBestIndex;
    for (std::size_t i = 0; i <= FSize; ++i)
        if (i != FWorstIndex && FValues[i] >= FValues[FNextWorstIndex])
            FNextWorstIndex = i;
}

void TKxSimplexFit::FindCentroid()
{
    for (std::size_t k = 0; k < FSize; ++k) {
        double sum = 0;
        for (std::size_t i = 0; i <= FSize; ++i)
            if (i != FWorstIndex)
                sum += Vertex(i)[k];
        FCentroid[k] = sum / static_cast<double>(FSize);
    }
}

void TKxSimplexFit::MoveWorst(double factor)
{
    const std::span<double> worst = Vertex(FWorstIndex);
    for (std::size_t k = 0; k < FSize; ++k)
        worst[k] = FCentroid[k] + factor * (FCentroid[k] - worst[k]);
    Evaluate(FWorstIndex);
}

void TKxSimplexFit::TryExpansion()
{
    const std::span<double> worst = Vertex(FWorstIndex);
    std::ranges::copy(worst, FTrial.begin());
    const double reflected = FValues[FWorstIndex];
    MoveWorst(-2.0);
    if (FValues[FWorstIndex] < reflected)
        return;
    std::ranges::copy(FTrial, worst.begin());
    FValues[FWorstIndex] = reflected;
}

void TKxSimplexFit::Contract()
{
    MoveWorst(-0.5);
    // A contraction that helped shrinks the whole simplex; one that did not leaves it as it is. Other programs do the
    // reverse.
    if (!(FValues[FNextWorstIndex] < FValues[FWorstIndex]))
        Shrink();
}

void TKxSimplexFit::Shrink()
{
    const std::span<const double> best = Vertex(FBestIndex);
    for (std::size_t i = 0; i <= FSize; ++i) {
        if (i == FBestIndex)
            continue;
        const std::span<double> vertex = Vertex(i);
        for (std::size_t k = 0; k < FSize; ++k)
            vertex[k] = (vertex[k] + best[k]) * 0.5;
        Evaluate(i);
    }
}

TKxFitStatistics FitStatistics(TKxFitPoints points, double chiSquare, bool doCovariance)
{
    const std::size_t count = points.X.size();
    const auto weight = [&](std::size_t i) { return points.W.empty() ? 1.0 : std::fabs(points.W[i]); };
    const auto moment = [&](std::span<const double> values, double mean, int power) {
        return SumOf(count, [&](std::size_t i) {
            const double off = values[i] - mean;
            return weight(i) * (power == 2 ? off * off : off);
        });
    };
    TKxFitStatistics statistics;
    const double weights = SumOf(count, weight);
    if (!(weights > 0))
        return statistics;
    statistics.MeanX = moment(points.X, 0, 1) / weights;
    statistics.MeanY = moment(points.Y, 0, 1) / weights;
    const double sumXX = moment(points.X, statistics.MeanX, 2);
    const double sumYY = moment(points.Y, statistics.MeanY, 2);
    const double whole = doCovariance ? std::sqrt(sumXX) * std::sqrt(sumYY) : sumYY;
    if (whole > 0)
        statistics.Determination = 1 - chiSquare / whole;
    if (weights != 1) {
        statistics.VarianceX = sumXX / (weights - 1);
        statistics.VarianceY = sumYY / (weights - 1);
    }
    return statistics;
}

}  // namespace plotkit
