#include "calculated/CalculatedClasses.h"
#include "calculated/CalculatedFixture.h"
#include "support/AllClasses.h"

namespace plotkit {
namespace {

TEST_F(TCalculatedTest, CurvesAreSampledAtEachPixel)
{
    Fill({0, 1, 2, 3, 4, 5, 6, 7}, {0, 1, 4, 9, 16, 25, 36, 50});
    auto* const child = MakeChild<TSquares>("Child");
    EXPECT_EQ(std::exchange(child->Calculations, 0), 1) << "the parent has points";
    Form->Picture();
    EXPECT_EQ(std::exchange(child->Calculations, 0), 1);
    const double width = child->GetXAxis()->RealToIntPosition(7) - child->GetXAxis()->RealToIntPosition(0);
    EXPECT_NEAR(child->XResult().GetCount(), width + 1, 1.1);
    EXPECT_EQ(child->YResult().GetValue(9), std::pow(child->XResult().GetValue(9), 2));
    EXPECT_GT(child->Points().Values().size(), 100U);
}

TEST_F(TCalculatedTest, ZoomSamplesAgainOneStepShortOfTheEnd)
{
    Fill({0, 10}, {0, 100});
    auto* const child = MakeChild<TSquares>("Child");
    Form->Picture();
    const int count = child->XResult().GetCount();
    const int samples = child->Samples;
    Graph->Modified();
    Form->Picture();
    EXPECT_EQ(child->Samples, samples);
    child->GetXAxis()->ZoomIn(4, 6);
    Parent->Modified();
    Form->Picture();
    ASSERT_EQ(child->XResult().GetCount(), count);
    const double start = child->GetXAxis()->GetStart(), stop = child->GetXAxis()->GetStop();
    for (const int i : {0, 1, count - 1}) {
        const double x = start + i * (stop - start) / (count + 1);
        EXPECT_EQ(child->XResult().GetValue(i), x);
        EXPECT_EQ(child->YResult().GetValue(i), x * x);
    }
    child->GetXAxis()->SetStartEnd(AxFixed);
    child->GetXAxis()->SetStopEnd(AxFixed);
    child->GetXAxis()->ZoomIn(4.9999999, 5);
    Y->SetValue(1, 90);
    Form->Picture();
    EXPECT_LT(child->XResult().GetCount(), 100000) << "a sample for each pixel would be billions";
    EXPECT_NEAR(child->XResult().GetValue(3), 5, 1e-5) << "what is shown is sampled finely";
}

TEST_F(TCalculatedTest, LimitsFollowTheirFlags)
{
    Fill({2, -1, NAN, 7}, {1, 1, 1, 1});
    auto* const child = MakeChild<TSquares>("Child");
    const auto limits = [&] {
        child->SetLimits();
        return std::array{child->GetCalculationStart(), child->GetCalculationStop(), child->GetDisplayStart(),
                          child->GetDisplayStop()};
    };
    EXPECT_EQ(limits(), (std::array{-1., 7., -1., 7.})) << "before the first paint, too";
    child->SetCalculationStop(3);
    EXPECT_EQ(limits(), (std::array{-1., 3., -1., 3.}));
    EXPECT_TRUE(child->GetAutoStart() && !child->GetAutoStop());
    child->SetCoupleCalcAndDisplay(false);
    Form->Picture();
    EXPECT_EQ(limits(), (std::array{-1., 3., child->GetXAxis()->GetStart(), child->GetXAxis()->GetStop()}));
    child->SetCoupleCalcAndDisplay(true);
    child->SetDisplayStart(0.5);
    EXPECT_FALSE(child->GetCoupleCalculationAndDisplay() || child->GetDisplayAutoStart());
    EXPECT_EQ(limits()[2], 0.5);
}

TEST_F(TCalculatedTest, ResultsStandUnderTheNumberOfTheSeries)
{
    Fill({1, 2}, {1, 4});
    auto* first = MakeChild<TSquares>("First");
    auto* const second = MakeChild<TSquares>("Second");
    second->SetCaption("two");
    const TKxResultLabel* const label = MakeLabel(second, "CalcStop");
    TKxResultLabel* const caption = MakeLabel(second, "Caption");
    Form->Picture();
    EXPECT_EQ(label->GetCaption() + caption->GetCaption(), "2two");
    EXPECT_EQ(first->GetCaption(), "x^2") << "nobody gave it a caption";
    TKxIniList& results = Parent->CaptionIni();
    EXPECT_EQ(results.ReadString("MySquares", "Caption", ""), "x^2");
    EXPECT_EQ(results.ReadString("MySquares(2)", "Caption", ""), "two");
    EXPECT_EQ(second->GetOwnIndex(), " (2)");

    const int lines = results.Count();
    Y->SetValue(1, 5);
    Form->Picture();
    EXPECT_EQ(results.Count(), lines) << "publishing again leaves nothing behind";
    delete first;
    EXPECT_EQ(results.ReadString("MySquares", "Caption", ""), "two");
    EXPECT_FALSE(results.SectionExists("MySquares(2)"));
    delete second;
    EXPECT_FALSE(results.SectionExists("MySquares"));
    EXPECT_EQ(label->GetCaption(), "...");
    EXPECT_EQ(caption->GetSeries(), nullptr);
}

TEST_F(TCalculatedTest, WithoutAHandlerErrorsGoToTheCaller)
{
    Fill({1, 2, 3}, {1, 4, 9});
    auto* const child = MakeChild<TSquares>("Child");
    child->SetCaption("Fit");
    child->Fault = "Not enough data!";
    EXPECT_EQ(MessageOf<EMathError>([&] { child->Calculate(); }), "Fit: Not enough data!");
    // The formula tells which of them fails where nobody gave a caption.
    EXPECT_EQ(MessageOf<EMathError>([&] { MakeChild<TKxCalculatedSeries>("Unfinished"); }),
              "no Function defined: TCalculatedSeries: CalculateFunction must be overridden in derived class!");
}

TEST_F(TCalculatedTest, WindowReportsAnErrorOnceAndPaintsOn)
{
    TFakeHost host;
    const THostGuard guard(host);
    Fill({1, 2, 3}, {1, 4, 9});
    const TRecording without = Form->Picture();
    auto* const bad = MakeChild<TSquares>("Bad");
    bad->SetCaption("Bad");
    bad->Fault = "Singular";
    auto* const good = MakeChild<TSquares>("Good");
    const auto errorOfPaint = [&] {
        host.LastError.clear();
        Form->Picture();
        return host.LastError;
    };
    Parent->RangesModified();
    EXPECT_EQ(errorOfPaint(), "Bad: Singular");
    EXPECT_GT(good->PointsCount(), 0) << "the others are calculated all the same";
    Y->SetValue(1, 5);
    EXPECT_EQ(errorOfPaint(), "") << "live data would bring it up with each value";
    bad->Fault = "Another";
    Y->SetValue(1, 6);
    EXPECT_EQ(errorOfPaint(), "Bad: Another");
    delete bad;
    delete good;
    Y->SetValue(1, 4);
    EXPECT_EQ(Form->Picture(), without);
}

TEST_F(TCalculatedTest, ParentOwnsItsChildren)
{
    Fill({1, 2}, {1, 4});
    auto* const child = MakeChild<TSquares>("Child");
    MakeChild<TSquares>("Other");
    Form->Picture();
    auto* const second = MakeSeries<TKxDataSeries>();
    child->SetParentSeries(second);
    EXPECT_EQ(Parent->Childs().Count(), 1);
    EXPECT_EQ(second->Childs().Items(), (std::vector<TKxPlottable*>{child}));
    EXPECT_EQ(Graph->GetSeriesList().Count(), 2) << "only plain series";
    child->SetParentSeries(nullptr);
    EXPECT_EQ(child->XResult().GetCount(), 0);
    EXPECT_FALSE(child->GetXAxis());
    child->SetParentSeries(second);
    delete second;
    EXPECT_EQ(Form->FindComponent("Child"), nullptr);
    EXPECT_NE(Form->FindComponent("Other"), nullptr);
}

TEST_F(TCalculatedTest, SettingsOutliveAnIniList)
{
    auto* const child = MakeChild<TSquares>("Child");
    TKxLiveVector* const own = new TKxLiveVector(Form.get());
    own->SetName("Own");
    child->SetWeight(own);
    EXPECT_EQ(child->GetWeight(), own);
    child->SetParentWeight(true);
    EXPECT_EQ(child->GetWeight(), nullptr) << "the parent has none";
    child->SetCalculationStart(0.25);
    child->SetDisplayStop(8);
    TKxIniList list;
    child->WriteToIni(list, "S");
    auto* const other = MakeChild<TSquares>("Other");
    other->ReadFromIni(list, "S");
    TKxIniList again;
    other->WriteToIni(again, "S");
    EXPECT_EQ(again.Text(), list.Text());
    const std::string keys = KeysOf(list, "S");
    EXPECT_EQ(keys.substr(keys.find("ParentSeries")),
              "ParentSeries ParentWeight AutoStart AutoStop CoupleCalcAndDisplay DisplayAutoStart DisplayAutoStop "
              "Calculation Formula CalcStart CalcStop DisplayStart DisplayStop ");
}

}  // namespace
}  // namespace plotkit
