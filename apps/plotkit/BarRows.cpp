#include "plotkit/BarRows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "plotkit/TableNotes.h"

namespace plotkit {
namespace {

/// The edges of bars around different ascending values.
std::vector<double> EdgesAround(const std::vector<double>& values, bool isLog)
{
    const auto to = [isLog](double value) { return isLog ? std::log(value) : value; };
    const auto from = [isLog](double value) { return isLog ? std::exp(value) : value; };
    const std::size_t count = values.size();
    if (count < 2) {
        const double half = isLog ? std::log(2.0) : 0.5;
        return count == 0 ? std::vector<double>{}
                          : std::vector<double>{from(to(values[0]) - half), from(to(values[0]) + half)};
    }
    std::vector<double> edges(count + 1);
    for (std::size_t i = 1; i < count; ++i)
        edges[i] = from(std::midpoint(to(values[i - 1]), to(values[i])));
    edges[0] = from(2 * to(values[0]) - to(edges[1]));
    edges[count] = from(2 * to(values[count - 1]) - to(edges[count - 1]));
    return edges;
}

/// Takes the rows out that `isOut` says and notes how many and the first of them.
template <class TIsOut>
void LeaveOut(TBarRows& rows, const std::string& why, TIsOut isOut)
{
    const auto end = std::stable_partition(rows.Order.begin(), rows.Order.end(), [&](auto row) { return !isOut(row); });
    const auto count = static_cast<std::size_t>(rows.Order.end() - end);
    if (count == 0)
        return;
    const std::size_t first = *std::min_element(end, rows.Order.end());
    rows.Notes.push_back("--bars: " + Counted(count, "row") + " " + why + ", the first is row " +
                         std::to_string(first + 1) + "; no bar for them");
    rows.Order.erase(end, rows.Order.end());
}

}  // namespace

TArray<double> TBarRows::Heights(const TArray<double>& values) const
{
    if (AreAll)
        return values;
    std::vector<double> heights(Order.size(), std::numeric_limits<double>::quiet_NaN());
    const std::span<const double> all = values.Span();
    for (std::size_t i = 0; i < Order.size(); ++i)
        if (Order[i] < all.size())
            heights[i] = all[Order[i]];
    return TArray<double>(std::move(heights));
}

TBarRows RowsOfBars(std::span<const double> xs, bool isLog, const std::string& name)
{
    TBarRows rows;
    rows.Order.resize(xs.size());
    std::iota(rows.Order.begin(), rows.Order.end(), std::size_t{0});
    LeaveOut(rows, std::string("without a ") + (isLog ? "positive " : "") + "value of " + name,
             [&](std::size_t row) { return !std::isfinite(xs[row]) || (isLog && xs[row] <= 0); });
    std::stable_sort(rows.Order.begin(), rows.Order.end(), [&](auto a, auto b) { return xs[a] < xs[b]; });
    std::vector<bool> isTaken(xs.size());
    for (std::size_t i = 1; i < rows.Order.size(); ++i)
        isTaken[rows.Order[i]] = xs[rows.Order[i]] == xs[rows.Order[i - 1]];
    LeaveOut(rows, "with a value of " + name + " that came before", [&](std::size_t row) { return isTaken[row]; });

    rows.AreAll = rows.Order.size() == xs.size() && std::is_sorted(rows.Order.begin(), rows.Order.end());
    std::vector<double> places(rows.Order.size());
    std::transform(rows.Order.begin(), rows.Order.end(), places.begin(), [&](std::size_t row) { return xs[row]; });
    rows.Edges = EdgesAround(places, isLog);
    return rows;
}

}  // namespace plotkit
