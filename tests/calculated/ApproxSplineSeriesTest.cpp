#include <random>

#include "calculated/CalculatedFixture.h"
#include "calculated/KxASplineIntegral.h"

namespace plotkit {
namespace {

class TApproxSplineTest : public TCalculatedTest
{
protected:
    TApproxSplineTest()
    {
        std::mt19937 random(2);
        std::vector<double> xs, ys;
        for (int i = 0; i <= 400; ++i) {
            xs.push_back(i / 40.0);
            ys.push_back(std::sin(xs.back()) + std::normal_distribution<>(0, 0.1)(random));
        }
        Fill(xs, ys);
    }
};

TEST_F(TApproxSplineTest, CurveSlopeAndIntegralFollowTheWeightFactor)
{
    auto* const line = MakeChild<TKxApproxSplineLine>("Line");
    auto* const slope = MakeChild<TKxASplineDifferential>("Slope");
    auto* const area = MakeChild<TKxASplineIntegral>("Area");
    Form->Picture();
    for (int i = 20; i + 20 < area->XResult().GetCount(); ++i) {
        const double x = area->XResult().GetValue(i);
        EXPECT_NEAR(line->GetY(x), std::sin(x), 0.1);
        EXPECT_NEAR(slope->GetY(x), std::cos(x), 0.4);
        EXPECT_NEAR(area->YResult().GetValue(i), 1 - std::cos(x), 0.1);
    }
    EXPECT_NEAR(std::stod(line->ResultText("X-Maxima(1)")), M_PI / 2, 0.2);
    EXPECT_NEAR(std::stod(line->ResultText("Y-Minima(1)")), -1, 0.1);
    EXPECT_EQ(line->ResultText("X-Minima(2)"), "...");
    EXPECT_NEAR(std::stod(slope->ResultText("X-Minima(1)")), M_PI, 0.5);
    EXPECT_NE(area->ResultText("Y-Maxima(1)"), "...");
    for (const char* section :
         {"ApproximativeSpline", "ApproximativeSplineDifferentiation", "ApproximativeSplineIntegral"})
        EXPECT_TRUE(Parent->CaptionIni().SectionExists(section)) << section;

    line->SetWeightFactor(1e-9);
    Form->Picture();
    EXPECT_NEAR(line->GetY(4) - line->GetY(2), line->GetY(8) - line->GetY(6), 1e-6) << "a regression line";
    EXPECT_EQ(line->ResultText("X-Maxima(2)"), "...");
    TKxIniList list;
    line->WriteToIni(list, "S");
    auto* const other = MakeChild<TKxApproxSplineLine>("Other");
    other->ReadFromIni(list, "S");
    EXPECT_EQ(other->GetWeightFactor(), 1e-9);
    list.EraseSection("S");
    other->ReadFromIni(list, "S");
    EXPECT_EQ(other->GetWeightFactor(), 1);
}

TEST_F(TApproxSplineTest, ZeroWeightsAreReportedAndLeaveTheGraphUsable)
{
    auto* const line = MakeChild<TKxApproxSplineLine>("Line");
    std::string told;
    line->OnError = [&](EError& error) { told += error.Message(); };
    line->SetWeightFactor(0);
    Form->Picture();
    EXPECT_EQ(told, "Approximative Spline: Floating point division by zero");
    EXPECT_EQ(line->PointsCount(), 0);
    EXPECT_EQ(line->ResultText("Formula"), "...");
    line->SetWeightFactor(1);
    Form->Picture();
    EXPECT_GT(line->PointsCount(), 100);
    EXPECT_EQ(told.size(), 53u) << "told once";
}

}  // namespace
}  // namespace plotkit
