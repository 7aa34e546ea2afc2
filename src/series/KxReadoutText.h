// The job of KxReadoutText is what cursor and markers read, as text: lines for people, tables for other programs.
#pragma once

#include <string>
#include <vector>

#include "host/Types.h"

namespace plotkit {

class TKx2DGraph;
class TKxAxis;
class TKxGraphCursor;
class TKxGraphMarkers;

/// A value as finely as a tenth of a pixel of its axis: numbers with the locale's decimal separator, moments of a
/// date-time axis as year-month-day and the time.
std::string AxisValueText(const TKxAxis& axis, double value);
/// A distance between two values of an axis, near `value`; on a date-time axis as days and time.
std::string AxisDistanceText(const TKxAxis& axis, double distance, double value);

/// Where a pixel of the graph panel stands on the primary axes: "x = 1.5, y = 20"; empty outside the plotting area.
std::string PlaceLine(const TKx2DGraph& graph, TPoint at);
/// One line per reading, the current one first: "caption: x = 1.5, y = 20".
std::vector<std::string> CursorLines(TKxGraphCursor& cursor);
/// The markers, "x₁ = 1, x₂ = 3, Δx = 2", then one line per series: "caption: y₁ = 10, y₂ = 14, Δy = 4".
std::vector<std::string> MarkerLines(TKxGraphMarkers& markers);

/// Tables with a heading, columns set apart by tabulators, each line ended by a line feed. Numbers with all their
/// digits and ".", moments as 2012-10-29 12:30:00.000; points count from 1. Empty when there is nothing to read.
std::string CursorTable(TKxGraphCursor& cursor);
std::string MarkerTable(TKxGraphMarkers& markers);

}  // namespace plotkit
