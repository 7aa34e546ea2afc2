// The job of KxSeriesReader is to read all series of a graph at a place.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "series/KxNearestPoint.h"

namespace plotkit {

/// A point of a series.
struct TKxReading
{
    TKxSeries* Series = nullptr;
    int Index = -1;
    double X = 0, Y = 0;
    TPoint Pixel;  ///< of the graph panel

    friend bool operator==(const TKxReading&, const TKxReading&) = default;
};

class TKxSeriesReader
{
public:
    /// Takes over which series the graph has now and which of them can be read: those in drawing order, each followed
    /// by its children. What is known of those that stay is kept.
    void Follow(TKx2DGraph& graph);

    /// Whether one of the series is gone since, or can no longer be read.
    bool HasGone() const;
    int Count() const { return static_cast<int>(FPoints.size()); }
    TKxNearestPoint& Points(int i) { return *FPoints[static_cast<std::size_t>(i)]; }
    /// The place of a series; -1 when it is not among them.
    int PlaceOf(const TKxSeries* series) const;
    /// A point as it is read now; nothing when it has no place.
    std::optional<TKxReading> Read(int i, int index);

private:
    void Add(const TKxSeriesList& list, std::vector<std::unique_ptr<TKxNearestPoint>>& known);

    std::vector<std::unique_ptr<TKxNearestPoint>> FPoints;
};

}  // namespace plotkit
