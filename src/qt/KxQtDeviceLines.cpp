#include <algorithm>
#include <cmath>

#include "host/PixelMath.h"
#include "qt/KxPixelLines.h"
#include "qt/KxQtDevice.h"
#include "qt/KxQtLines.h"

namespace plotkit {

namespace {

/// Wide polylines in one call take time that grows with the square of their length.
constexpr qsizetype PieceLength = 20;

QPointF Centre(TPoint p, double shift)
{
    return {p.X + shift, p.Y + shift};
}

QPolygonF Centres(std::span<const TPoint> points, double shift)
{
    QPolygonF centres;
    centres.reserve(static_cast<qsizetype>(points.size()));
    for (const TPoint& point : points)
        centres << Centre(point, shift);
    return centres;
}

double Distance(QPointF a, QPointF b)
{
    return std::hypot(b.x() - a.x(), b.y() - a.y());
}

/// The point `by` further on from `from` to `to`.
QPointF Beyond(QPointF from, QPointF to, double by)
{
    return to + (to - from) * (by / Distance(from, to));
}

bool IsOnePoint(std::span<const TPoint> points)
{
    return std::all_of(points.begin(), points.end(), [&](TPoint p) { return p == points.front(); });
}

void RemoveRepeated(QPolygonF& points)
{
    points.erase(std::unique(points.begin(), points.end()), points.end());
}

}  // namespace

void TQtDevice::Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state)
{
    if (pen.Style == psClear || from == to || !Begin(state))
        return;
    if (IsThin(pen)) {
        // A painter hands tall lines to other threads, which takes longer than the line.
        if (DrawStraight(from, to, pen, state.Mode))
            return;
        SetStroke(pen, Qt::FlatCap);
        ThinLine(from, to, false);
    } else {
        WideLine(from, to, pen);
    }
}

void TQtDevice::ThinLine(TPoint from, TPoint to, bool mirrored)
{
    const QLineF line = ExactLine(from, to, mirrored);
    if (!IsFar(from) && !IsFar(to))
        FPainter.drawLine(line);
    else if (const auto cut = CutLine(line))
        FPainter.drawLine(*cut);
}

void TQtDevice::WideLine(TPoint from, TPoint to, const TPenState& pen)
{
    const bool isDashed = IsDashed(pen.Style);
    SetStroke(pen, isDashed ? Qt::FlatCap : Qt::SquareCap);
    const double shift = StrokeShift(pen);
    QLineF line(Centre(from, shift), Centre(to, shift));
    const double steps = std::max(std::abs(line.dx()), std::abs(line.dy())) / FTargetPixel;
    if (!isDashed) {
        // From the first to the last but one pixel; the caps add half the width to both.
        if (steps <= 1)
            return Dot(line.p1(), pen);
        line.setP2(line.pointAt(1 - 1 / steps));
    }
    if (const auto cut = CutLine(line))
        FPainter.drawLine(*cut);
}

void TQtDevice::Dot(QPointF at, const TPenState& pen)
{
    const double width = StrokeWidth(pen);
    FPainter.fillRect(QRectF(at.x() - width / 2, at.y() - width / 2, width, width), QtColor(pen.Color));
}

void TQtDevice::Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state)
{
    if (points.empty() || pen.Style == psClear || !Begin(state))
        return;
    if (IsOnePoint(points)) {
        if (!IsFar(points.front()))
            Dot(Centre(points.front(), IsThin(pen) ? 0.5 : StrokeShift(pen)), pen);
    } else if (IsThin(pen)) {
        ThinPolyline(points, pen, state.Mode);
    } else {
        WidePolyline(Centres(points, StrokeShift(pen)), pen, state.Mode);
    }
}

void TQtDevice::ThinPolyline(std::span<const TPoint> points, const TPenState& pen, TDrawMode mode)
{
    if (QImage* const image = mode == dmCopy && !IsDashed(pen.Style) ? WritableImage() : nullptr) {
        const TPoint origin = OriginInImage();
        const TRect clip = MoveBox(FState->Clip, origin).Intersected({0, 0, image->width(), image->height()});
        if (!clip.IsEmpty())
            TPixelLines(*image, clip, QtColor(pen.Color).rgba()).Polyline(points, origin);
        return;
    }
    SetStroke(pen, Qt::SquareCap);
    if (AnyFar(points)) {
        for (const QPolygonF& part : CutPolyline(Centres(points, 0)))
            FPainter.drawPolyline(part);
    } else if (mode == dmCopy && !IsDashed(pen.Style)) {
        FPainter.drawPolyline(WithoutHiddenPoints(points));
    } else {
        QPolygon all;
        all.reserve(static_cast<qsizetype>(points.size()));
        for (const TPoint& point : points)
            all << QPoint(point.X, point.Y);
        FPainter.drawPolyline(all);
    }
}

void TQtDevice::WidePolyline(QPolygonF points, const TPenState& pen, TDrawMode mode)
{
    RemoveRepeated(points);
    // Square ends of one's own: the painter's would also stand at the ends of the pieces.
    const double cap = StrokeWidth(pen) / 2;
    const QPointF first = Beyond(points[1], points[0], cap);
    points.back() = Beyond(points[points.size() - 2], points.back(), cap);
    points.front() = first;
    SetStroke(pen, Qt::FlatCap);
    const auto isFar = [](QPointF p) { return std::abs(p.x()) > FarPixel || std::abs(p.y()) > FarPixel; };
    const bool anyFar = std::any_of(points.begin(), points.end(), isFar);
    for (const QPolygonF& part : anyFar ? CutPolyline(points) : std::vector<QPolygonF>{points}) {
        // Pieces overlap, which exclusive-or would show.
        if (mode == dmCopy)
            StrokePieces(part, pen);
        else
            FPainter.drawPolyline(part);
    }
}

/// Each piece begins with the last stretch of the one before, which draws the join between them.
void TQtDevice::StrokePieces(const QPolygonF& points, const TPenState& pen)
{
    const double width = StrokeWidth(pen);
    const bool isDashed = IsDashed(pen.Style);
    QPen stroke = FPainter.pen();
    double reached = 0;
    for (qsizetype first = 0; first + 1 < points.size(); first += PieceLength) {
        const qsizetype start = std::max<qsizetype>(0, first - 1);
        const qsizetype end = std::min(points.size(), first + PieceLength + 1);
        if (isDashed) {
            stroke.setDashOffset((start < first ? reached - Distance(points[start], points[first]) : reached) / width);
            FPainter.setPen(stroke);
            FStroke.reset();
        }
        FPainter.drawPolyline(points.constData() + start, static_cast<int>(end - start));
        for (qsizetype i = first + 1; isDashed && i < end; ++i)
            reached += Distance(points[i - 1], points[i]);
    }
}

void TQtDevice::Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                        const TDrawState& state)
{
    if (points.empty() || !Begin(state))
        return;
    if (brush.Style != bsClear)
        FillPolygon(points, pen, brush);
    if (pen.Style != psClear)
        OutlinePolygon(points, pen);
}

void TQtDevice::FillPolygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush)
{
    SetFillOnly(brush);
    // Corners stand at the middle of pixels, as those of the outline do.
    const bool isThin = pen.Style == psClear || IsThin(pen);
    const QPolygonF corners = Centres(points, isThin ? FTargetPixel / 2 : StrokeShift(pen));
    FPainter.drawPolygon(AnyFar(points) ? CutPolygon(corners) : corners);
}

void TQtDevice::OutlinePolygon(std::span<const TPoint> points, const TPenState& pen)
{
    if (IsOnePoint(points)) {
        if (!IsFar(points.front()))
            Dot(Centre(points.front(), IsThin(pen) ? 0.5 : StrokeShift(pen)), pen);
        return;
    }
    SetStrokeOnly(pen, Qt::FlatCap);
    if (IsThin(pen) && (!IsDashed(pen.Style) || AnyFar(points))) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            const TPoint to = points[(i + 1) % points.size()];
            if (points[i] != to)
                ThinLine(points[i], to, true);
        }
        return;
    }
    const QPolygonF corners = Centres(points, IsThin(pen) ? 0 : StrokeShift(pen));
    if (AnyFar(points)) {
        for (const QPolygonF& part : CutPolyline(corners + QPolygonF{corners.front()}))
            FPainter.drawPolyline(part);
        return;
    }
    FPainter.drawPolygon(corners);
}

}  // namespace plotkit
