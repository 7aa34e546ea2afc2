#include "series/KxSeriesReader.h"

#include <algorithm>

#include "graph/KxGraph2D.h"

namespace plotkit {

void TKxSeriesReader::Follow(TKx2DGraph& graph)
{
    auto known = std::move(FPoints);
    FPoints.clear();
    Add(graph.GetSeriesList(), known);
}

void TKxSeriesReader::Add(const TKxSeriesList& list, std::vector<std::unique_ptr<TKxNearestPoint>>& known)
{
    for (TKxPlottable* item : list) {
        auto* const series = dynamic_cast<TKxSeries*>(item);
        if (series && CanBeRead(*series)) {
            const auto same = std::find_if(known.begin(), known.end(),
                                           [&](const auto& points) { return points && points->IsFor(*series); });
            FPoints.push_back(same == known.end() ? std::make_unique<TKxNearestPoint>(*series) : std::move(*same));
        }
        Add(item->Childs(), known);
    }
}

bool TKxSeriesReader::HasGone() const
{
    return std::any_of(FPoints.begin(), FPoints.end(), [](const auto& points) { return points->Count() < 0; });
}

int TKxSeriesReader::PlaceOf(const TKxSeries* series) const
{
    const auto found =
        std::find_if(FPoints.begin(), FPoints.end(), [&](const auto& points) { return points->Series() == series; });
    return found == FPoints.end() || !series ? -1 : static_cast<int>(found - FPoints.begin());
}

std::optional<TKxReading> TKxSeriesReader::Read(int i, int index)
{
    if (i < 0 || i >= Count() || !Points(i).HasPlace(index))
        return std::nullopt;
    TKxSeries& series = *Points(i).Series();
    const double x = series.XValues()[static_cast<std::size_t>(index)];
    const double y = series.YValues()[static_cast<std::size_t>(index)];
    return TKxReading{&series, index, x, y, {series.RealToIntX(x), series.RealToIntY(y)}};
}

}  // namespace plotkit
