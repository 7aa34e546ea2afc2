#include "calculated/CalculatedFixture.h"
#include "calculated/KxLinearRegression.h"
#include "host/Streaming.h"
#include "support/AllClasses.h"

namespace plotkit {
namespace {

TEST_F(TCalculatedTest, StraightLineAndItsResults)
{
    Fill({0, 1, 2, 3, 4, 5}, {1, 3, 5, 7.5, 8.5, 11});
    auto* const line = MakeChild<TKxLinearRegressionLine>("Line");
    TKxResultLabel* const label = MakeLabel(line, "Slope");
    label->SetDigits(5);
    Form->Picture();
    EXPECT_EQ(line->GetCaption(), "Y=a+b(X)");
    EXPECT_EQ(label->GetCaption(), "1.971");
    EXPECT_EQ(line->XResult().Values()[1], 5);
    EXPECT_NEAR(line->YResult().Values()[1], line->Results().Offset + 5 * line->Results().Slope, 1e-14);

    line->SetFixedOffset(0);
    EXPECT_TRUE(line->GetDoFixedOffset());
    Form->Picture();
    EXPECT_NEAR(line->Results().Slope, 124.5 / 55, 1e-15);
    EXPECT_EQ(line->ResultText("DeltaOffset") + line->ResultText("DeltaOffset%"), "0...");

    TKxLiveVector weight(Form.get());
    weight.Take(TKxRealArray{1, 1, 0, 0, 0, 0});
    Parent->SetWeight(&weight);
    line->SetDoFixedOffset(false);
    Form->Picture();
    EXPECT_EQ(line->Results().Slope, 2);
    line->GetXAxis()->ZoomIn(1, 2);
    Form->Picture();
    EXPECT_EQ(line->XResult().Values()[1], 5) << "the line is not sampled again";
}

/// y = 100 x^-2, with pairs that have no logarithm in one direction or the other.
TEST_F(TCalculatedTest, LogarithmicAxesDropWholePairs)
{
    Fill({1, -2, 2, 4, 10, 5, NAN}, {100, 9, 25, 6.25, 1, -3, 4});
    auto* const line = MakeChild<TKxLinearRegressionLine>("Line");
    for (TKxAxis* const axis : {Parent->GetXAxis(), Parent->GetYAxis()})
        axis->SetScaling(AxLogEE);
    TKxLiveVector weight(Form.get());
    for (const bool weighted : {false, true}) {
        weight.Take(TKxRealArray{1, 50, 2, 1, 2, 50, 50});
        Parent->SetWeight(weighted ? &weight : nullptr);
        Form->Picture();
        EXPECT_EQ(line->GetCaption(), "lg(Y)=a+b(lg(X))");
        EXPECT_NEAR(line->Results().Slope, -2, 1e-14);
        EXPECT_NEAR(line->Results().Offset, 2, 1e-14);
        EXPECT_EQ(line->XResult().Values()[0], 1) << "the axis does not reach -2";
        EXPECT_NEAR(line->YResult().Values()[1], 1, 1e-13);
    }
    EXPECT_NEAR(Parent->CaptionIni().ReadReal("LinearRegression", "AverageX", 0),
                std::pow(10, (2 * std::log10(2.) + std::log10(4.) + 2) / 6), 1e-12);
}

TEST_F(TCalculatedTest, ALineThatCannotBeDrawnLeavesTheAxesAlone)
{
    Fill({2, 2, 2}, {1, 2, 3});
    auto* const line = MakeChild<TKxLinearRegressionLine>("Line");
    Form->Picture();
    EXPECT_EQ(line->Results().Slope, 1.7e308);
    EXPECT_LT(Parent->GetYAxis()->GetStop(), 5);
    std::string told;
    line->OnError = [&](EError& error) { told = error.Message(); };
    X->Clear();
    Form->Picture();
    EXPECT_EQ(told, "Y=a+b(X): Not enough data!");
    Fill({1, 2}, {3, 4});
    Form->Picture();
    EXPECT_EQ(line->Results().Slope, 1);
}

TEST_F(TCalculatedTest, AFormBringsTheLineBack)
{
    X->SetPersistentValues(true);
    Y->SetPersistentValues(true);
    Fill({0, 1, 2, 4}, {1, 3, 5, 8});
    auto* const line = MakeChild<TKxLinearRegressionLine>("Line");
    MakeLabel(line, "Slope")->SetName("Label");
    line->SetFixedOffset(0.5);
    line->SetDisplayStart(-1);
    line->SetCoupleCalcAndDisplay(true);
    const TRecording picture = Form->Picture();
    const std::string text = WriteComponentTree(*Form);
    const TReadResult read = ReadComponentTree(text, AllClasses());
    const std::unique_ptr<TForm> copy(dynamic_cast<TForm*>(read.Root));
    ASSERT_TRUE(copy && read.Problems.empty());
    EXPECT_EQ(WriteComponentTree(*copy), text);
    EXPECT_EQ(copy->Picture().ToText(), picture.ToText());
}

}  // namespace
}  // namespace plotkit
