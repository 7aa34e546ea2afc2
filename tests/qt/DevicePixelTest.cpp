#include <gtest/gtest.h>

#include <QPixmap>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

#include "PixelSheet.h"
#include "qt/KxQtLines.h"

namespace plotkit {

namespace {

constexpr int Far = std::numeric_limits<int>::max();
constexpr int ShapeCount = 6;

void DrawShape(int shape, TQtDevice& device, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    constexpr std::array<TPoint, 5> zigzag{{{5, 40}, {20, 8}, {33, 50}, {34, 10}, {58, 31}}};
    constexpr std::array<TPoint, 3> triangle{{{30, 5}, {52, 47}, {8, 47}}};
    constexpr TRect box{10, 12, 51, 40};
    switch (shape) {
        case 0:
            return device.Line({50, 44}, {7, 3}, pen, state);
        case 1:
            return device.Polyline(zigzag, pen, state);
        case 2:
            return device.Polygon(triangle, pen, brush, state);
        case 3:
            return device.Ellipse(box, pen, brush, state);
        case 4:
            return device.Rectangle(box, pen, brush, state);
        default:
            return device.FocusRect(box, state);
    }
}

}  // namespace

TEST(Line, HasItsFirstAndNotItsLastPixel)
{
    constexpr TPoint from{20, 20};
    for (int place = 0; place < 41 * 41; ++place) {
        const TPoint to{place % 41, place / 41};
        SCOPED_TRACE(std::to_string(to.X) + "," + std::to_string(to.Y));
        TPixelSheet sheet(41, 41);
        sheet.Device().Line(from, to, Pen(), {});
        const auto marked = sheet.Marked();
        const auto steps = static_cast<std::size_t>(std::max(std::abs(to.X - from.X), std::abs(to.Y - from.Y)));
        EXPECT_EQ(marked.size(), steps);
        EXPECT_EQ(marked.count({from.X, from.Y}), steps > 0 ? 1U : 0U);
        EXPECT_EQ(marked.count({to.X, to.Y}), 0U);
        for (const auto& [x, y] : marked) {
            const int off = (x - from.X) * (to.Y - from.Y) - (y - from.Y) * (to.X - from.X);
            EXPECT_LE(std::abs(off), 0.55 * static_cast<double>(steps));
        }
    }
}

TEST(Line, OfWidePenFillsWholePixels)
{
    const std::tuple<TPoint, int, TRect> cases[] = {{{30, 20}, 3, {19, 19, 31, 22}},
                                                    {{10, 20}, 3, {10, 19, 22, 22}},
                                                    {{20, 30}, 5, {18, 18, 23, 32}},
                                                    {{30, 20}, 2, {19, 19, 30, 21}},
                                                    {{20, 21}, 3, {19, 19, 22, 22}}};
    for (const auto& [to, width, extent] : cases) {
        TPixelSheet sheet;
        sheet.Device().Line({20, 20}, to, Pen(psSolid, width), {});
        EXPECT_EQ(sheet.Extent(), extent);
        EXPECT_EQ(sheet.CountOf(Black), extent.Width() * extent.Height());
    }
}

TEST(Polyline, SetsPixelsNearestToEachSegmentWhereverItIsCut)
{
    std::mt19937 random(3);
    const auto any = [&](int reach) {
        return static_cast<int>(random() % (2U * static_cast<unsigned>(reach))) - reach + 32;
    };
    for (const int reach : {20, 200, 100'000, 2'000'000'000})
        for (int i = 0; i < 300; ++i) {
            const std::array line{TPoint{any(reach), any(reach)}, TPoint{any(reach), any(reach)}};
            const std::array back{line[1], line[0]};
            TPixelSheet there, reversed;
            there.Device().Polyline(line, Pen(), {});
            reversed.Device().Polyline(back, Pen(), {});
            EXPECT_TRUE(there.Image() == reversed.Image());
            const double dx = 1.0 * line[1].X - line[0].X, dy = 1.0 * line[1].Y - line[0].Y;
            const bool isFlat = std::abs(dx) >= std::abs(dy);
            for (int along = 0; along < 64; ++along)
                for (int across = 0; across < 64; ++across) {
                    const int x = isFlat ? along : across, y = isFlat ? across : along;
                    const bool isBeside =
                        isFlat ? (x < std::min(line[0].X, line[1].X) || x > std::max(line[0].X, line[1].X))
                               : (y < std::min(line[0].Y, line[1].Y) || y > std::max(line[0].Y, line[1].Y));
                    const double off = std::abs(isFlat ? line[0].Y + (x - line[0].X) * (dy / dx) - y
                                                       : line[0].X + (y - line[0].Y) * (dx / dy) - x);
                    if (isBeside || off > 0.501) {
                        EXPECT_EQ(there.Image().pixel(x, y), White);
                    } else if (off < 0.499) {
                        EXPECT_EQ(there.Image().pixel(x, y), Black) << dx << " " << dy;
                    }
                }
        }
}

TEST(Polyline, HasBothEndsAndDroppedPointsAndPiecesLeaveNoTrace)
{
    TPixelSheet whole(200, 170), segments(200, 170), all(200, 170), some(200, 170), dot;
    dot.Device().Polyline(std::array{TPoint{7, 9}, TPoint{7, 9}}, Pen(), {});
    EXPECT_EQ(dot.Extent(), (TRect{7, 9, 8, 10}));
    std::mt19937 random(7);
    std::vector<TPoint> noise;
    QPolygon noisy;
    for (int i = 0; i < 4000; ++i) {
        noise.push_back({i / 20, 10 + static_cast<int>(random() % 150)});
        noisy << QPoint(noise.back().X, noise.back().Y);
    }
    whole.Device().Polyline(noise, Pen(), {});
    for (std::size_t i = 1; i < noise.size(); ++i)
        segments.Device().Polyline(std::span(noise).subspan(i - 1, 2), Pen(), {});
    EXPECT_TRUE(whole.Image() == segments.Image());
    EXPECT_EQ(whole.Extent().Right, 200);
    for (TPixelSheet* sheet : {&all, &some})
        sheet->Painter().setPen(QPen(Qt::black, 0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    all.Painter().drawPolyline(noisy);
    some.Painter().drawPolyline(WithoutHiddenPoints(noise));
    EXPECT_TRUE(some.Image() == all.Image());
}

double DistanceTo(const std::vector<TPoint>& way, double x, double y)
{
    double nearest = Far;
    for (std::size_t i = 0; i < way.size(); ++i) {
        const TPoint from = way[i], to = way[std::min(i + 1, way.size() - 1)];
        const double dx = 1.0 * to.X - from.X, dy = 1.0 * to.Y - from.Y, square = dx * dx + dy * dy;
        const double at = square == 0 ? 0 : std::clamp(((x - from.X) * dx + (y - from.Y) * dy) / square, 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(x - from.X - at * dx, y - from.Y - at * dy));
    }
    return nearest;
}

/// Ways of a few points: steep, to and fro in a column, with points that coincide, out of the picture and back.
std::vector<TPoint> AnyWay(std::mt19937& random, int reach)
{
    std::vector<TPoint> way{{32 + static_cast<int>(random() % 9), 30}};
    for (unsigned i = 0; i < 2 + random() % 6; ++i)
        way.push_back({random() % 3 == 0 ? way.back().X : static_cast<int>(random() % 64U) * reach,
                       random() % 4 == 0 ? way.back().Y : static_cast<int>(random() % 64U) * reach});
    return way;
}

TEST(WidePolyline, CoversWhatARoundPenPassesWhereverItIsPartedOrCut)
{
    std::mt19937 random(23);
    for (const int reach : {1, 40, 30'000'000})
        for (int i = 0; i < 60; ++i) {
            const int width = 2 + i % 9;
            const std::vector<TPoint> way = AnyWay(random, reach);
            const TRect clip{static_cast<int>(random() % 30), 5, 50, 60};
            TPixelSheet whole, parts, cut;
            whole.Device().Polyline(way, Pen(psSolid, width), {});
            cut.Device().Polyline(way, Pen(psSolid, width), {dmCopy, clip});
            for (std::size_t k = way.size() - 1; k > 0; --k)
                parts.Device().Polyline(std::array{way[k], way[k - 1]}, Pen(psSolid, width), {});
            if (way.front() != way.back()) {
                EXPECT_TRUE(parts.Image() == whole.Image()) << i;
            }
            const double middle = width % 2 == 0 ? 0.5 : 0, slack = reach < 100 ? 1e-9 : 0.01;
            for (int y = 0; y < 64; ++y)
                for (int x = 0; x < 64; ++x) {
                    const QRgb pixel = whole.Image().pixel(x, y);
                    EXPECT_EQ(cut.Image().pixel(x, y), clip.Contains({x, y}) ? pixel : White);
                    if (const double off = DistanceTo(way, x + middle, y + middle) - width / 2.0;
                        std::abs(off) > slack) {
                        EXPECT_EQ(pixel, off < 0 ? Black : White) << i << " at " << x << "," << y << " off " << off;
                    }
                }
        }
}

TEST(WidePolyline, CoversASmoothPixelAsFarAsTheStrokeDoes)
{
    std::mt19937 random(29);
    for (int i = 0; i < 40; ++i) {
        const int width = 4 + 2 * (i % 9);
        const std::vector<TPoint> way = AnyWay(random, 4);
        const TRect clip{48, 16, 200, 240};
        std::vector<TPoint> andBack(20, way.front());  // too many for a closed shape
        andBack.insert(andBack.end(), way.begin(), way.end());
        andBack.insert(andBack.end(), way.rbegin(), way.rend());
        TPixelSheet sheet, again;
        for (const auto& [at, points] : {std::pair(&sheet, &way), std::pair(&again, &std::as_const(andBack))}) {
            at->Painter().setRenderHint(QPainter::Antialiasing);
            at->Painter().scale(0.25, 0.25);
            TQtDevice(at->Painter(), 4).Polyline(*points, Pen(psSolid, width), {dmCopy, clip});
        }
        // Hair lines to and fro are the painter's.
        EXPECT_TRUE(width == 4 || sheet.Image() == again.Image()) << i;
        const double shift = std::lround(width / 4.0) % 2 == 0 ? 0 : 2;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x) {
                int covered = 0;
                for (int k = 0; k < 64; ++k)
                    covered +=
                        clip.Contains({4 * x, 4 * y}) &&
                        DistanceTo(way, 4 * x + k % 4 + 0.5 - shift, 4 * y + (k / 4 + 0.5) / 4 - shift) < width / 2.0;
                EXPECT_NEAR(255 - qGreen(sheet.Image().pixel(x, y)), covered * 255 / 64.0, 9) << i;
            }
    }
}

TEST(WidePolyline, IsTheSameFromThePainterButForEdges)
{
    std::mt19937 random(31);
    for (int i = 0; i < 40; ++i) {
        const std::vector<TPoint> way = AnyWay(random, 1);
        TPixelSheet own;
        own.Device().Polyline(way, Pen(psSolid, 2 + i % 9), {});
        QPixmap other(64, 64);
        other.fill(Qt::white);
        {
            QPainter painter(&other);
            TQtDevice(painter).Polyline(way, Pen(psSolid, 2 + i % 9), {});
        }
        const QImage there = other.toImage();
        int differing = 0;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                differing += own.Image().pixel(x, y) != there.pixel(x, y);
        EXPECT_LT(differing, 0.06 * own.CountOf(Black) + 4) << i;
    }
}

TEST(Boxes, ExcludeRightAndBottom)
{
    for (const TRect& box : {TRect{10, 12, 21, 19}, TRect{10, 12, 12, 14}, TRect{10, 12, 11, 13}, TRect{10, 12, 40, 13},
                             TRect{10, 12, 11, 40}, TRect{40, 50, 10, 12}, TRect{3, 4, 44, 45}, TRect{5, 5, 8, 9}}) {
        const TRect inside{std::min(box.Left, box.Right), std::min(box.Top, box.Bottom), std::max(box.Left, box.Right),
                           std::max(box.Top, box.Bottom)};
        SCOPED_TRACE(std::to_string(inside.Width()) + "x" + std::to_string(inside.Height()));
        const int area = inside.Width() * inside.Height();
        const int within = std::max(0, inside.Width() - 2) * std::max(0, inside.Height() - 2);
        TPixelSheet framed, bare, wide, oval, filledOval;
        framed.Device().Rectangle(box, Pen(), Brush(), {});
        EXPECT_EQ(framed.CountOf(Black), area - within);
        EXPECT_EQ(framed.CountOf(Red), within);
        bare.Device().Rectangle(box, NoPen, Brush(), {});
        EXPECT_EQ(bare.CountOf(Red), area);
        wide.Device().Rectangle(box, Pen(psInsideFrame, 3), Brush(), {});
        EXPECT_EQ(wide.CountOf(Black) + wide.CountOf(Red), area);
        oval.Device().Ellipse(box, Pen(), NoBrush, {});
        filledOval.Device().Ellipse(box, NoPen, Brush(), {});
        for (const TPixelSheet* sheet : {&framed, &bare, &wide, &oval, &filledOval})
            EXPECT_EQ(sheet->Extent(), inside);
    }
    TPixelSheet nothing, focus;
    nothing.Device().Rectangle({10, 10, 10, 30}, Pen(), Brush(), {});
    nothing.Device().Ellipse({10, 10, 30, 10}, Pen(), Brush(), {});
    nothing.Device().FocusRect({10, 10, 10, 10}, {});
    EXPECT_TRUE(nothing.Marked().empty());
    focus.Device().FocusRect({40, 30, 10, 11}, {});
    EXPECT_EQ(focus.CountOf(Black), 2 * (30 + 19 - 2) / 2) << "every other pixel";
    for (const auto& [x, y] : focus.Marked())
        EXPECT_TRUE(x == 10 || x == 39 || y == 11 || y == 29);
}

TEST(Shapes, StandSymmetrically)
{
    for (int size = 2; size < 22; ++size) {
        SCOPED_TRACE(size);
        const TRect box{30 - size, 30 - size, 31 + size, 31 + size};
        TPixelSheet triangle(61, 61), circle(61, 61);
        const std::array corners{TPoint{30, box.Top}, TPoint{30 + size, 30 + size}, TPoint{box.Left, 30 + size}};
        triangle.Device().Polygon(corners, Pen(), Brush(), {});
        circle.Device().Ellipse(box, Pen(), Brush(), {});
        EXPECT_EQ(triangle.Extent(), box);
        EXPECT_TRUE(triangle.Image() == triangle.Image().mirrored(true, false));
        EXPECT_TRUE(circle.Image() == circle.Image().mirrored(true, true));
    }
}

TEST(ExclusiveOr, TogglesBitsAndIsUndoneByTheSameShape)
{
    constexpr TDrawState toggle{dmXor, NoClip};
    TPixelSheet sheet(64, 64, 0xFF3366CC);
    const QImage before = sheet.Image().copy();
    for (int shape = 0; shape < ShapeCount; ++shape) {
        for (const TPenState& pen : {Pen(), Pen(psSolid, 4), Pen(psDash), Pen(psDot, 3), NoPen}) {
            for (const TBrushState& brush : {NoBrush, Brush(), Brush(bsDiagonalCross)}) {
                SCOPED_TRACE(std::to_string(shape) + " " + std::string(PenStyleNames[pen.Style]));
                TPenState toggling = pen;
                toggling.Color = RgbColor(255, 0, 170);
                DrawShape(shape, sheet.Device(), toggling, brush, toggle);
                EXPECT_TRUE(pen.Style == psClear || !(sheet.Image() == before));
                DrawShape(shape, sheet.Device(), toggling, brush, toggle);
                EXPECT_TRUE(sheet.Image() == before);
            }
        }
    }
    sheet.Device().Rectangle({10, 10, 30, 30}, Pen(psSolid, 1, clWhite), Brush(), toggle);
    EXPECT_EQ(sheet.CountOf(0xFFCC9933), 4 * 19);
    EXPECT_EQ(sheet.CountOf(0xFFCC66CC), 18 * 18);
}

TEST(Clip, LetsOnlyItsPixelsThroughAndEndsWithTheCall)
{
    const TRect clip{8, 15, 37, 30};
    for (int shape = 0; shape < ShapeCount; ++shape) {
        SCOPED_TRACE(shape);
        TPixelSheet whole, cut;
        DrawShape(shape, whole.Device(), Pen(), Brush(), {});
        DrawShape(shape, cut.Device(), Pen(), Brush(), {dmCopy, clip});
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                EXPECT_EQ(cut.Image().pixel(x, y), clip.Contains({x, y}) ? whole.Image().pixel(x, y) : White);
        cut.Device().Rectangle({0, 0, 64, 64}, NoPen, Brush(), {});
        EXPECT_EQ(cut.CountOf(Red), 64 * 64);
    }
}

TEST(Dashes, FollowTheirPatterns)
{
    const std::tuple<TPenStyle, int, std::string> cases[] = {{psDash, 0, "####.."},
                                                             {psDot, 1, "#.."},
                                                             {psDashDot, 0, "####..#.."},
                                                             {psDashDotDot, 1, "####..#..#.."},
                                                             {psDash, 2, "########...."},
                                                             {psDot, 2, "##...."},
                                                             {psDashDot, 2, "########....##...."}};
    for (const auto& [style, width, period] : cases) {
        SCOPED_TRACE(std::string(PenStyleNames[style]) + " " + std::to_string(width));
        TPixelSheet line, polyline;
        line.Device().Line({5, 20}, {60, 20}, Pen(style, width), {});
        std::vector<TPoint> points;
        for (int x = 5; x <= 60; ++x)
            points.push_back({x, 20});
        polyline.Device().Polyline(points, Pen(style, width), {});
        std::string expected, drawn, drawnOn;
        for (int x = 5; x < 60; ++x) {
            expected += period[static_cast<std::size_t>(x - 5) % period.size()];
            drawn += line.Image().pixel(x, 20) == Black ? '#' : '.';
            drawnOn += polyline.Image().pixel(x, 20) == Black ? '#' : '.';
        }
        EXPECT_EQ(drawn, expected);
        EXPECT_EQ(drawnOn, expected);
    }
}

TEST(Hatches, HaveTheirDirectionsAndGrowWithTheScale)
{
    const std::tuple<TBrushStyle, TPoint, TPoint, TPoint> cases[] = {{bsHorizontal, {3, 0}, {5, 8}, {5, 4}},
                                                                     {bsVertical, {0, 3}, {8, 5}, {4, 5}},
                                                                     {bsForwardDiagonal, {3, 3}, {12, 4}, {3, 5}},
                                                                     {bsBackwardDiagonal, {3, 5}, {5, 3}, {3, 3}},
                                                                     {bsCross, {3, 0}, {0, 3}, {3, 3}},
                                                                     {bsDiagonalCross, {3, 3}, {3, 5}, {3, 4}}};
    for (const int scale : {1, 3}) {
        for (const auto& [style, on, alsoOn, off] : cases) {
            TPixelSheet sheet(96, 96);
            TQtDevice(sheet.Painter(), scale).Rectangle({0, 0, 96, 96}, NoPen, Brush(style), {});
            const auto at = [&, &image = sheet.Image()](TPoint p) { return image.pixel(p.X * scale, p.Y * scale); };
            EXPECT_TRUE(at(on) == Red && at(alsoOn) == Red && at(off) == White) << BrushStyleNames[style] << scale;
        }
    }
}

TEST(FarCoordinates, KeepWhatIsVisible)
{
    const std::array spike{TPoint{10, 30}, TPoint{10, Far}, TPoint{Far, Far}, TPoint{Far, 30}};
    TPixelSheet line, filled, wide, boxed;
    line.Device().Line({-Far - 1, 20}, {Far, 20}, Pen(), {});
    EXPECT_EQ(line.Extent(), (TRect{0, 20, 64, 21}));
    filled.Device().Polygon(spike, Pen(), Brush(), {});
    EXPECT_EQ(filled.Extent(), (TRect{10, 30, 64, 64}));
    EXPECT_EQ(filled.CountOf(Red), 53 * 33);
    wide.Device().Polyline(spike, Pen(psSolid, 3), {});
    EXPECT_EQ(wide.Extent(), (TRect{9, 29, 12, 64}));
    boxed.Device().Rectangle({10, 12, Far, Far}, Pen(), Brush(), {});
    boxed.Device().Ellipse({-Far, -Far, Far, Far}, Pen(psSolid, Far), NoBrush, {});
    boxed.Device().FocusRect({-Far, -Far, Far, Far}, {});
    EXPECT_EQ(boxed.CountOf(Red), 53 * 51);
}

TEST(Antialiased, LinesOnMultiplesOfTheFinenessAreSharp)
{
    TPixelSheet sheet;
    sheet.Painter().setRenderHint(QPainter::Antialiasing);
    sheet.Painter().scale(0.25, 0.25);
    TQtDevice device(sheet.Painter(), 4);
    device.Line({40, 80}, {160, 80}, Pen(psSolid, 4), {});
    device.Line({40, 160}, {40, 80}, Pen(psSolid, 4), {});
    device.Rectangle({80, 100, 160, 140}, Pen(psSolid, 4), Brush(), {});
    constexpr int black = 30 + 20 + 2 * (20 + 10 - 2), red = 18 * 8;
    EXPECT_EQ(sheet.CountOf(Black), black);
    EXPECT_EQ(sheet.CountOf(Red), red);
    EXPECT_EQ(sheet.Marked().size(), std::size_t{black + red});
}

}  // namespace plotkit
