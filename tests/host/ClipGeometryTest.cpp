#include "host/ClipGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "host/PenPattern.h"
#include "host/StrokeReduction.h"

namespace plotkit {
namespace {

constexpr TVectorBox Box{-20, -15, 25, 30};
constexpr int Rounds = 300;
constexpr double Close = 1e-6;

std::mt19937 Random(7);

int Number(int low, int high)
{
    return std::uniform_int_distribution(low, high)(Random);
}

std::vector<TVectorPoint> RandomPoints(int count, int extent)
{
    std::vector<TVectorPoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back({1.0 * Number(-extent, extent), 1.0 * Number(-extent, extent)});
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

/// The point that far along a polyline.
TVectorPoint PointAt(std::span<const TVectorPoint> points, double place)
{
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double length = LengthOf(points.subspan(i - 1, 2));
        if (place <= length && length > 0)
            return points[i - 1] + (points[i] - points[i - 1]) * (place / length);
        place -= length;
    }
    return points.back();
}

/// How far a point is inside a box; negative outside.
double Depth(TVectorPoint p, const TVectorBox& box)
{
    return std::min({p.X - box.Left, box.Right - p.X, p.Y - box.Top, box.Bottom - p.Y});
}

double DistanceTo(TVectorPoint p, TVectorPoint a, TVectorPoint b)
{
    const TVectorPoint along = b - a;
    const double square = along.X * along.X + along.Y * along.Y;
    const double t = square == 0 ? 0 : ((p.X - a.X) * along.X + (p.Y - a.Y) * along.Y) / square;
    return LengthOf(std::array{p, a + along * std::clamp(t, 0.0, 1.0)});
}

double DistanceTo(TVectorPoint p, std::span<const TVectorPoint> points)
{
    double least = LengthOf(std::array{p, points.front()});
    for (std::size_t i = 1; i < points.size(); ++i)
        least = std::min(least, DistanceTo(p, points[i - 1], points[i]));
    return least;
}

bool IsInside(TVectorPoint p, std::span<const TVectorPoint> corners)
{
    bool inside = false;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const TVectorPoint a = corners[i], b = corners[(i + 1) % corners.size()];
        if ((a.Y > p.Y) != (b.Y > p.Y) && p.X < a.X + (b.X - a.X) * (p.Y - a.Y) / (b.Y - a.Y))
            inside = !inside;
    }
    return inside;
}

}  // namespace

TEST(ClipGeometryTest, PiecesAreWhatOfAPolylineLiesInTheBox)
{
    for (int round = 0; round < Rounds; ++round) {
        const auto line = RandomPoints(Number(2, 12), 60);
        if (line.size() < 2)
            continue;
        const auto pieces = CutPolyline(line, Box);
        const auto isCovered = [&](double place) {
            return std::any_of(pieces.begin(), pieces.end(), [&](const TCutPiece& piece) {
                return place >= piece.Start && place <= piece.Start + LengthOf(piece.Points);
            });
        };
        for (double place = 0.05; place < LengthOf(line); place += 0.37) {
            const double depth = Depth(PointAt(line, place), Box);
            if (std::abs(depth) > Close) {
                ASSERT_EQ(isCovered(place), depth > 0) << round << " at " << place;
            }
        }
        for (const TCutPiece& piece : pieces)
            for (double place = 0; place <= LengthOf(piece.Points); place += 1)
                ASSERT_LT(LengthOf(std::array{PointAt(piece.Points, place), PointAt(line, piece.Start + place)}),
                          Close);
        if (!pieces.empty()) {
            EXPECT_EQ(pieces.front().CutFirst, Depth(line.front(), Box) < 0 || pieces.front().Start > 0);
            EXPECT_EQ(pieces.back().CutLast, pieces.back().Points.back() != line.back()) << round;
        }
    }
}

TEST(ClipGeometryTest, CutPolygonsFillTheSameInsideTheBoxAndNothingOutside)
{
    for (int round = 0; round < Rounds; ++round) {
        const auto corners = RandomPoints(Number(3, 9), 60), cut = CutPolygon(corners, Box);
        for (const TVectorPoint& p : cut)
            ASSERT_GE(Depth(p, Box), -Close);
        for (int i = 0; i < 50; ++i) {
            const TVectorPoint p{Number(-50, 50) + 0.317, Number(-50, 50) + 0.713};
            if (Depth(p, Box) > 0) {
                ASSERT_EQ(IsInside(p, cut), IsInside(p, corners)) << round;
            }
        }
    }
}

TEST(ClipGeometryTest, PointsLeftOutAreOnTheRestOfTheLine)
{
    for (int round = 0; round < Rounds; ++round) {
        std::vector<TPoint> line{{0, 0}}, kept;
        for (int i = Number(0, 40); i > 0; --i)
            line.push_back({line.back().X + std::max(0, Number(-4, 2)), Number(0, 3) * Number(0, 3)});
        std::vector<TVectorPoint> all, rest;
        for (const bool solid : {true, false}) {
            KeepVisiblePoints(line, solid, kept);
            all.assign(line.size(), {});
            rest.assign(kept.size(), {});
            const auto real = [](TPoint p) { return TVectorPoint{1.0 * p.X, 1.0 * p.Y}; };
            std::transform(line.begin(), line.end(), all.begin(), real);
            std::transform(kept.begin(), kept.end(), rest.begin(), real);
            EXPECT_EQ(kept.front(), line.front());
            EXPECT_EQ(kept.back(), line.back());
            for (const TVectorPoint& p : all)
                ASSERT_LT(DistanceTo(p, rest), Close) << round;
            for (const TVectorPoint& p : rest)
                ASSERT_LT(DistanceTo(p, all), Close);
            if (!solid) {
                EXPECT_NEAR(LengthOf(all), LengthOf(rest), Close) << "dashes would stand elsewhere";
            }
        }
    }
    std::vector<TPoint> noise, kept;
    for (int i = 0; i < 5000; ++i)
        noise.push_back({i / 100, i * 7919 % 500});
    KeepVisiblePoints(noise, true, kept);
    EXPECT_LE(kept.size(), 200U);
}

TEST(ClipGeometryTest, ColumnsKeepWhatIsSeenOfALine)
{
    constexpr int column = 9;
    std::vector<TPoint> kept;
    for (int round = 0; round < Rounds / 3; ++round) {
        std::vector<TPoint> line{{Number(-50, 50), 0}};
        const int back = round % 3 == 0 ? -2 : 0, sign = round % 2 == 0 ? 1 : -1;
        for (int i = Number(0, 300); i > 0; --i)
            line.push_back({line.back().X + sign * Number(back, 2),
                            round % 5 == 0 ? line.back().Y + Number(-9, 9) : Number(-500, 500)});
        KeepColumns(line, column, kept);
        EXPECT_EQ(kept.front(), line.front());
        EXPECT_EQ(kept.back(), line.back());
        std::vector<TVectorPoint> rest;
        for (const TPoint& p : kept)
            rest.push_back({1.0 * p.X, 1.0 * p.Y});
        for (const TPoint& p : line)
            ASSERT_LE(DistanceTo({1.0 * p.X, 1.0 * p.Y}, rest), column) << round;
    }
    std::vector<TPoint> curve, noise, straight;
    for (int i = 0; i < 1000; ++i) {
        straight.push_back({3, i});
        curve.push_back({3 * i, i * i / 100});
        noise.push_back({i / 8, i == 500 ? 900 : i * 7919 % 32});
    }
    KeepColumns(curve, column, kept);
    EXPECT_EQ(kept, curve);
    KeepColumns(straight, column / 2, kept);
    EXPECT_EQ(kept.size(), 2U);
    KeepColumns(noise, column, kept);
    EXPECT_LE(kept.size(), 40U);
    const auto spike = std::find(kept.begin(), kept.end(), noise[500]);
    EXPECT_EQ(std::vector(spike - 1, spike + 2), std::vector(noise.begin() + 499, noise.begin() + 502)) << "thin";
}

TEST(ClipGeometryTest, HatchLinesFillThePolygonAtTheirPlaces)
{
    const THatch hatch = THatch::At(1);
    const std::tuple<TBrushStyle, double, double, double> families[]{{bsHorizontal, 0, 1, 0.5},
                                                                     {bsVertical, 1, 0, 0.5},
                                                                     {bsForwardDiagonal, 1, -1, 0},
                                                                     {bsBackwardDiagonal, 1, 1, 1}};
    for (int round = 0; round < Rounds; ++round) {
        const auto corners = RandomPoints(Number(3, 8), 40);
        for (const auto& [style, a, b, offset] : families) {
            const TVectorPath lines = HatchLines(corners, style, hatch);
            const double level = 8 * Number(-4, 4) + offset, place = Number(-40, 40) + 0.271;
            const TVectorPoint p = b == 0 ? TVectorPoint{level, place} : TVectorPoint{place, (level - a * place) / b};
            bool isCovered = false;
            for (std::size_t i = 0; i < lines.Ends.size(); ++i)
                isCovered = isCovered || DistanceTo(p, lines.Outline(i)) < Close;
            ASSERT_EQ(isCovered, IsInside(p, corners)) << static_cast<int>(style) << " " << round;
        }
    }
    EXPECT_EQ(HatchLines(RandomPoints(5, 40), bsSolid, hatch).Ends.size(), 0U);
}

}  // namespace plotkit
