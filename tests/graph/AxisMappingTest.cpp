#include "graph/KxAxisMapping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "graph/KxAxis.h"
#include "host/Errors.h"

namespace plotkit {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(AxisMappingTest, PositionsComeBackAndManyValuesMapLikeEachOne)
{
    const std::vector<double> values{-1e300, -1,  -0.0, 0.0,     1e-300,   0.3,       1,         2.5,
                                     3.5,    1e9, 1e12, 1.7e308, Infinity, -Infinity, NotANumber};
    const auto check = [&values](const TKxAxisMapping& mapping) {
        SCOPED_TRACE(testing::PrintToString(std::tuple(mapping.Scaling, mapping.Forward, mapping.PixelLength)));
        for (int position = -20; position <= mapping.PixelLength + 20; position += 3)
            ASSERT_EQ(mapping.RealToInt(mapping.IntToReal(position)), position);
        std::vector<std::int32_t> positions(values.size());
        std::vector<TPoint> points(values.size(), TPoint{77, 88});
        mapping.RealToInt(values, positions);
        mapping.RealToIntX(values, points);
        for (std::size_t i = 0; i < values.size(); ++i) {
            ASSERT_EQ(positions[i], mapping.RealToInt(values[i])) << values[i];
            ASSERT_EQ(points[i], (TPoint{positions[i], 88})) << values[i];
        }
        mapping.RealToIntY(values, points);
        ASSERT_EQ(points[7], (TPoint{positions[7], positions[7]}));
    };
    for (const TKxAxScaling scaling : {AxNormal, AxLog, AxLogEE, AxDateTime})
        for (const bool forward : {true, false})
            for (const int length : {1, 7, 340, 5000})
                for (const double extent : {1e-3, 0.7, 12.0})
                    check({scaling, forward, length, -2.5, extent / length});
}

TEST(AxisMappingTest, RoundsTiesToEvenSaturatesAndMarksWhatIsNoNumber)
{
    // Backwards the rounded position is mirrored.
    const TKxAxisMapping forward{AxNormal, true, 300, 0, 1}, backward{AxNormal, false, 299, 0, 1};
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    for (const auto& [value, there, back] : {std::tuple{2.5, 2, 297},
                                             {3.5, 4, 295},
                                             {-0.5, 0, 299},
                                             {1e300, largest, -largest},
                                             {-Infinity, -largest, largest},
                                             {NotANumber, MissingPosition, MissingPosition}}) {
        EXPECT_EQ(forward.RealToInt(value), there) << value;
        EXPECT_EQ(backward.RealToInt(value), back) << value;
    }
    EXPECT_EQ(backward.IntToReal(std::numeric_limits<int>::min()), 299 + 2147483648.0);
    // Not mirrored: there is no place for them on either end.
    const TKxAxisMapping log{AxLog, false, 300, 0, 1e-3};
    for (const auto& [value, position] : {std::pair{NotANumber, MissingPosition}, {0.0, -1}, {-5.0, -1}})
        EXPECT_EQ(log.RealToInt(value), position) << value;
}

TEST(AxisMappingTest, UnknownScalingsRaise)
{
    TKxAxis axis(nullptr);
    axis.SetScaling(static_cast<TKxAxScaling>(9));
    EXPECT_THROW(axis.IntToRealPosition(1), EConvertError);
    try {
        axis.RealToIntPosition(1);
        ADD_FAILURE();
    } catch (const EConvertError& error) {
        EXPECT_STREQ(error.what(), "Axis scaling not supportet");
    }
}

TEST(AxisMappingTest, EachPositionHasItsDirection)
{
    for (const auto& [position, atStart] :
         {std::pair{AxBottomPos, 0}, {AxTopPos, 0}, {AxLeftPos, 340}, {AxRightPos, 340}, {AxFreeFloating, 340}})
        for (const bool twisted : {false, true}) {
            TKxAxis axis(nullptr);
            axis.SetPosition(position);
            axis.SetTwisted(twisted);
            axis.CalculateEnds();
            axis.CalculateTicks();
            EXPECT_EQ(axis.RealToIntPosition(0), twisted ? 340 - atStart : atStart) << int{position};
            EXPECT_EQ(axis.RealToIntPosition(100), twisted ? atStart : 340 - atStart) << int{position};
            axis.SetScaling(AxDateTime);
            EXPECT_FALSE(axis.GetTwisted());
        }
}

}  // namespace
}  // namespace plotkit
