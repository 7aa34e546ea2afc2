#include "calculated/CalculatedClasses.h"
#include "calculated/CalculatedFixture.h"
#include "calculated/KxASplineIntegral.h"
#include "calculated/KxIntegral.h"
#include "support/AllClasses.h"

namespace plotkit {
namespace {

class TInterpolatedTest : public TCalculatedTest
{
protected:
    TInterpolatedTest()
    {
        std::vector<double> xs, ys;
        for (int i = 0; i <= 40; ++i) {
            xs.push_back(i / 4.0);
            ys.push_back(std::sin(xs.back()));
        }
        Fill(xs, ys);
    }
    std::string Result(TKxCalculatedSeries* series, const char* key) { return series->ResultText(key); }
};

TEST_F(TInterpolatedTest, CurvesPublishTheirExtrema)
{
    auto* const line = MakeChild<TKxInterpolatedLine>("Line");
    auto* const slope = MakeChild<TKxDifferential>("Slope");
    auto* const area = MakeChild<TKxIntegral>("Area");
    Form->Picture();
    for (int i = 0; i < area->XResult().GetCount(); ++i) {
        const double x = area->XResult().GetValue(i);
        EXPECT_NEAR(line->GetY(x), std::sin(x), 0.01);
        EXPECT_NEAR(slope->YResult().GetValue(i), std::cos(slope->XResult().GetValue(i)), 0.06);
        EXPECT_NEAR(area->YResult().GetValue(i), 1 - std::cos(x), 0.01);
    }
    EXPECT_NEAR(std::stod(Result(line, "X-Maxima(1)")), M_PI / 2, 0.01);
    EXPECT_NEAR(std::stod(Result(line, "Y-Minima(1)")), -1, 0.01);
    EXPECT_EQ(Result(line, "X-Minima(2)"), "...");
    EXPECT_NEAR(std::stod(Result(slope, "X-Minima(1)")), M_PI, 0.1);
    EXPECT_EQ(Parent->CaptionIni().ReadString("Integration", "Formula", ""), "Integration");
    EXPECT_TRUE(Result(area, "Y-Maxima(1)") != "...");

    const double second = area->XResult().GetValue(1);
    Parent->GetXAxis()->ZoomIn(2, 3);
    Parent->Modified();
    Form->Picture();
    EXPECT_EQ(area->XResult().GetValue(1), second) << "sums are not sampled again";
    EXPECT_GE(line->XResult().GetValue(1), 2);

    std::string told;
    line->OnError = [&](EError& error) { told = error.Message(); };
    line->SetCalculationStop(0.3);
    Form->Picture();
    EXPECT_EQ(told + Result(line, "X-Maxima(1)"), "Interpolation: Not enough data!...");
}

TEST_F(TInterpolatedTest, IntegralsGoOverMorePointsThanPixels)
{
    std::vector<double> xs, ys;
    for (int i = 0; i <= 5000; ++i) {
        xs.push_back(i / 500.0);
        ys.push_back(std::sin(xs.back()));
    }
    Fill(xs, ys);
    auto* const area = MakeChild<TKxIntegral>("Area");
    auto* const smooth = MakeChild<TKxASplineIntegral>("Smooth");
    smooth->SetWeightFactor(1e6);
    Form->Picture();
    const int last = area->XResult().GetCount() - 1;
    ASSERT_LT(last, 2000);
    for (TKxCalculatedSeries* const series :
         {static_cast<TKxCalculatedSeries*>(area), static_cast<TKxCalculatedSeries*>(smooth)})
        for (const int i : {last / 2, last})
            EXPECT_NEAR(series->YResult().GetValue(i), 1 - std::cos(series->XResult().GetValue(i)), 1e-4);
    EXPECT_EQ(Result(area, "X-Maxima(3)"), "...");
}

TEST_F(TInterpolatedTest, SmoothingIsASettingOfTheSeries)
{
    auto* const line = MakeChild<TKxInterpolatedLine>("Line");
    line->SetSmoothRange(0);
    EXPECT_FALSE(line->GetDoSmoothing()) << "no change";
    Form->Picture();
    const double plain = line->GetY(M_PI / 2);
    line->SetSmoothRange(1.5);
    EXPECT_TRUE(line->GetDoSmoothing());
    Form->Picture();
    EXPECT_LT(line->GetY(M_PI / 2), plain - 0.05);
    line->SetDoSmoothing(false);
    TKxIniList list;
    line->WriteToIni(list, "S");
    EXPECT_EQ(list.ReadReal("S", "SmoothM", 0), 1.5);
    auto* const other = MakeChild<TKxInterpolatedLine>("Other");
    other->ReadFromIni(list, "S");
    EXPECT_TRUE(other->GetSmoothRange() == 1.5 && !other->GetDoSmoothing());
    line->SetCalculationStop(0.1);
    line->WriteToIni(list, "S");
    TKxInterpolatedLine orphan(Form.get());
    orphan.ReadFromIni(list, "S");
    EXPECT_TRUE(orphan.GetParentSeries() == Parent && orphan.GetSmoothRange() == 1.5) << "what is read cannot fail";
    orphan.SetParentSeries(nullptr);
    line->SetAutoStop(true);
    Parent->GetXAxis()->SetScaling(AxDateTime);
    Form->Picture();
    EXPECT_TRUE(line->Akima().GetSmoothLog());
}

TEST_F(TInterpolatedTest, DerivedQuantitiesFindAnAxisOfTheirOwn)
{
    auto* const slope = MakeChild<TKxDifferential>("Slope");
    auto* area = MakeChild<TKxIntegral>("Area");
    ASSERT_TRUE(slope->GetYAxis() && area->GetYAxis());
    EXPECT_EQ(slope->GetYAxis()->GetName() + area->GetYAxis()->GetName(), "SecondaryAxis1SecondaryAxis2");
    EXPECT_TRUE(area->GetYAxis()->GetPosition() == AxRightPos && area->GetYAxis()->Parent() == Graph);
    Form->Picture();
    EXPECT_LT(slope->GetYAxis()->GetStart(), -0.9);
    EXPECT_GE(area->GetYAxis()->GetStart(), -0.1);
    EXPECT_GT(area->PointsCount(), 100);

    TKxAxis* const spare = slope->GetYAxis();
    delete slope;
    spare->SetMasterAxis(Graph->GetPrimaryYAxis());
    auto* const again = MakeChild<TKxDifferential>("Again");
    EXPECT_EQ(again->GetYAxis(), spare);
    EXPECT_FALSE(spare->GetIsSlaveAxis());
    auto* const x = new TKxAxis(Form.get());
    x->SetParent(Graph);
    x->SetPosition(AxTopPos);
    Parent->SetXAxis(x);
    Parent->SetYAxis(nullptr);
    EXPECT_TRUE(again->GetXAxis() == x && again->GetYAxis() == spare);
    again->SetParentSeries(nullptr);
    EXPECT_TRUE(spare->GetIsSlaveAxis());

    delete area;
    Graph->SetShareYAxes(true);
    area = MakeChild<TKxIntegral>("Shared");
    EXPECT_EQ(area->GetYAxis(), nullptr) << "the parent has none";
    Parent->SetYAxis(Graph->GetPrimaryYAxis());
    EXPECT_EQ(area->GetYAxis(), Graph->GetPrimaryYAxis());
    TKxIniList list;
    Graph->SaveOutfit("G", list);
    Graph->SetShareYAxes(false);
    Graph->LoadOutfit("G", list);
    EXPECT_TRUE(Graph->GetShareYAxes());
    const std::string keys = KeysOf(list, "G");
    EXPECT_EQ(keys.substr(keys.find("SeriesCount")), "SeriesCount ShareYAxes ");
}

TEST_F(TInterpolatedTest, FormsKeepCurvesAndTheirAxes)
{
    X->SetPersistentValues(true), Y->SetPersistentValues(true);
    MakeChild<TKxInterpolatedLine>("Line")->SetSmoothRange(0.5);
    MakeChild<TKxDifferential>("Slope")->SetDoSmoothing(true);
    MakeChild<TKxIntegral>("Area");
    const auto picture = [this] {  // the axes' final lengths decide how many samples there are
        Form->Picture();
        dynamic_cast<TKxDataSeries*>(Form->FindComponent("Parent"))->RangesModified();
        return Form->Picture().ToText();
    };
    const std::string before = picture();
    const std::string text = WriteComponentTree(*Form);
    Form = nullptr;
    const TReadResult read = ReadComponentTree(text, AllClasses());
    EXPECT_TRUE(read.Problems.empty());
    Form.reset(dynamic_cast<TForm*>(read.Root));
    ASSERT_TRUE(Form);
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(WriteComponentTree(*Form), text);
    EXPECT_EQ(Form->FindComponent("SecondaryAxis3"), nullptr);
}

}  // namespace
}  // namespace plotkit
