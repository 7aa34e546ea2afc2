#include <algorithm>
#include <cmath>

#include "host/PixelMath.h"
#include "qt/KxPixelLines.h"
#include "qt/KxPixelStroke.h"
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

bool IsOnePoint(std::span<const TPoint> points)
{
    return std::all_of(points.begin(), points.end(), [&](TPoint p) { return p == points.front(); });
}

/// A closed figure of few corners.
bool IsShape(std::span<const TPoint> points)
{
    constexpr std::size_t mostCorners = 16;
    const auto isElsewhere = [&](auto side) {
        return std::any_of(points.begin(), points.end(), [&](TPoint p) { return p.*side != points.front().*side; });
    };
    return points.size() > 3 && points.size() <= mostCorners + 1 && points.front() == points.back() &&
           isElsewhere(&TPoint::X) && isElsewhere(&TPoint::Y);
}

TRect BoundsOf(std::span<const TPoint> points)
{
    TRect bounds{points[0].X, points[0].Y, points[0].X, points[0].Y};
    for (const TPoint& p : points)
        bounds = {std::min(bounds.Left, p.X), std::min(bounds.Top, p.Y), std::max(bounds.Right, p.X),
                  std::max(bounds.Bottom, p.Y)};
    return bounds;
}

/// Goes to and fro across the picture, which takes long column by column.
bool IsTangled(std::span<const TPoint> points, const TRect& bounds)
{
    constexpr double mostPasses = 4;
    double across = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        across += std::abs(1.0 * points[i].X - points[i - 1].X);
    return across > mostPasses * (1.0 * bounds.Right - bounds.Left);
}

TRect Around(const TRect& box, int by)
{
    return {AddPixels(box.Left, -by), AddPixels(box.Top, -by), AddPixels(box.Right, by), AddPixels(box.Bottom, by)};
}

TRect ToWholePixels(const TRect& box, int fineness)
{
    const auto whole = [fineness](int side) { return static_cast<int>(std::lround(1.0 * side / fineness)) * fineness; };
    return {whole(box.Left), whole(box.Top), whole(box.Right), whole(box.Bottom)};
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
    if (!IsThin(pen))
        WidePolyline(points, pen, state.Mode);
    else if (IsOnePoint(points))
        Point(points.front(), pen);
    else
        ThinPolyline(points, pen, state.Mode);
}

/// A line that does not leave its first point.
void TQtDevice::Point(TPoint at, const TPenState& pen)
{
    if (!IsFar(at))
        Dot(Centre(at, IsThin(pen) ? 0.5 : StrokeShift(pen)), pen);
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

void TQtDevice::WidePolyline(std::span<const TPoint> points, const TPenState& pen, TDrawMode mode)
{
    if (IsShape(points))
        return OutlinePolygon(points.first(points.size() - 1), pen);
    const bool isDashed = IsDashed(pen.Style);
    if (mode == dmCopy && !isDashed && StrokePixels(points, pen))
        return;
    if (IsOnePoint(points))
        return Point(points.front(), pen);
    QPolygonF middles = Centres(points, StrokeShift(pen));
    RemoveRepeated(middles);
    // Mitres would reach beyond the data, up to two widths where a line turns back.
    SetStroke(pen, isDashed ? Qt::FlatCap : Qt::RoundCap, Qt::RoundJoin);
    const auto isFar = [](QPointF p) { return std::abs(p.x()) > FarPixel || std::abs(p.y()) > FarPixel; };
    const bool anyFar = std::any_of(middles.begin(), middles.end(), isFar);
    // Hair lines need no pieces, and in exclusive-or mode it would be seen that these overlap.
    const bool isWhole = mode != dmCopy || StrokeWidth(pen) <= FTargetPixel;
    for (const QPolygonF& part : anyFar ? CutPolyline(middles) : std::vector<QPolygonF>{middles}) {
        if (isWhole)
            FPainter.drawPolyline(part);
        else
            StrokePieces(part, pen);
    }
}

/// False when the painter has to do it.
bool TQtDevice::StrokePixels(std::span<const TPoint> points, const TPenState& pen)
{
    const double width = StrokeWidth(pen);
    QImage* const image = FFineness > 0 && width <= TPixelStroke::WidestPen ? OpenImage() : nullptr;
    if (!image || (FFineness > 1 && image->format() == QImage::Format_ARGB32))
        return false;
    const TRect bounds = BoundsOf(points);
    if (width <= FTargetPixel && IsTangled(points, bounds))
        return false;
    const TPoint origin = OriginInImage();
    const TRect seen = FState->Clip.Intersected(Around(bounds, static_cast<int>(width) + FFineness));
    const TRect clip = ToWholePixels(MoveBox(seen, origin), FFineness)
                           .Intersected({0, 0, image->width() * FFineness, image->height() * FFineness});
    if (clip.IsEmpty())
        return true;
    TPixelStroke stroke(FFineness);
    stroke.Begin(clip, width, StrokeShift(pen));
    stroke.Polyline(points, origin);
    stroke.Draw(*image, QtColor(pen.Color).rgba());
    return true;
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
    if (IsOnePoint(points))
        return Point(points.front(), pen);
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
