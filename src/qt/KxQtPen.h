// The job of KxQtPen is to turn pens, brushes and colours of drawing commands into those of a QPainter.
#pragma once

#include <QBrush>
#include <QPen>
#include <map>
#include <utility>

#include "host/PenPattern.h"

namespace plotkit {

/// With system colours resolved by the host in force.
QColor QtColor(TColor color);
QList<qreal> QtDashPattern(TPenStyle style);

/// Brushes, with hatches as textures of eight pixels at scale 1 that grow with the scale and are clear between the
/// lines.
class TQtBrushes
{
public:
    explicit TQtBrushes(double scale) : FScale(scale) {}

    double Scale() const { return FScale; }
    const QBrush& Brush(const TBrushState& state);

private:
    double FScale;
    std::map<std::pair<int, TBrushStyle>, QBrush> FBrushes;  ///< by resolved colour
};

}  // namespace plotkit
