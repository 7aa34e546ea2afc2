#include <functional>
#include <sstream>

#include "calculated/CalculatedFixture.h"
#include "calculated/KxASplineIntegral.h"
#include "calculated/KxFittedLine.h"
#include "calculated/KxIntegral.h"
#include "calculated/KxLinearRegression.h"
#include "calculated/KxPolinomial.h"
#include "foundation/KxStrings.h"

namespace plotkit {
namespace {

/// What a label shows with nine digits.
struct TShown
{
    TShown(double value) : Text(RealToStrDigits(value, 9)) {}
    TShown(std::string text) : Text(std::move(text)) {}
    TShown(const char* text) : Text(text) {}

    std::string Text;
};

/// One series of each class, all on one parent.
class TEverySeriesTest : public TCalculatedTest
{
protected:
    TEverySeriesTest()
    {
        std::vector<double> xs, ys;
        for (int i = 0; i <= 60; ++i)
            xs.push_back(i / 4.0), ys.push_back(std::sin(xs.back()));
        Fill(xs, ys);
        Fit->SetFittingFunction([](double x, std::span<double> c) { return c[0] * x + c[1]; });
        Fit->SetOrder(2);
        Fit->SetParentSeries(Parent);
        for (TKxPlottable* const child : Parent->Childs()) {
            auto* const series = dynamic_cast<TKxCalculatedSeries*>(child);
            series->SetCaption("C-" + series->GetName());
            series->OnCalculated = [this](TKxCalculatedSeries& of) { Calculated += of.GetName() + ' '; };
            series->OnError = [this](EError& error) { Told += error.Message() + '\n'; };
            Every.push_back(series);
            Names += series->GetName() + ' ';
        }
        Form->Picture();
        Calculated.clear();
    }

    TKxFittedLine* MakeFit()
    {
        auto* const fit = new TKxFittedLine(Form.get());
        fit->SetName("Fit");
        return fit;
    }
    template <class TCurve>
    TCurve Curve(std::span<const double> samples) const
    {
        TCurve curve;
        std::vector<double> integral;
        curve.RecalculateCoeffs(0, 15, *X, *Y, nullptr);
        curve.FindExtrema(), curve.FindDiffExtrema(), curve.Integrate(samples, integral);
        return curve;
    }
    /// Labels show each key of the series' section, in its order.
    void ExpectShown(TKxCalculatedSeries* series, const std::string& calculation, const char* formula,
                     const std::string& ownKeys, const std::vector<TShown>& own)
    {
        const std::string keys = "Calculation Caption Formula CalcStart CalcStop DisplayStart DisplayStop " + ownKeys;
        std::vector<TShown> shown{calculation, "C-" + series->GetName(), formula, 0., 15., 0., 15.};
        shown.insert(shown.end(), own.begin(), own.end());
        std::istringstream each(keys);
        std::string key;
        for (const TShown& expected : shown) {
            each >> key;
            TKxResultLabel* const label = MakeLabel(series, key.c_str());
            label->SetDigits(9);
            EXPECT_EQ(label->GetCaption(), expected.Text) << key;
        }
        EXPECT_EQ(KeysOf(series->CaptionIni(), series->GetName()), keys);
        std::string section = calculation;
        std::erase(section, ' ');
        EXPECT_EQ(KeysOf(Parent->CaptionIni(), section), keys);
    }
    void ExpectExtrema(TKxCalculatedSeries* series, const std::string& calculation, const char* formula,
                       const TKxRealPosArray& minima, const TKxRealPosArray& maxima)
    {
        std::string keys;
        std::vector<TShown> shown;
        for (const auto& [found, kind] : {std::pair(&minima, "Minima("), std::pair(&maxima, "Maxima(")}) {
            EXPECT_GE(found->Length(), 2U) << calculation;
            int number = 0;
            for (const auto& [position, value] : found->Span()) {
                const std::string key = kind + std::to_string(++number) + ") ";
                keys += "X-" + key + "Y-" + key;
                shown.insert(shown.end(), {position, value});
            }
        }
        ExpectShown(series, calculation, formula, keys, shown);
    }

    TKxLinearRegressionLine* Line = MakeChild<TKxLinearRegressionLine>("Line");
    TKxPolynomLine* Polynom = MakeChild<TKxPolynomLine>("Polynom");
    TKxInterpolatedLine* Akima = MakeChild<TKxInterpolatedLine>("Akima");
    TKxDifferential* Slope = MakeChild<TKxDifferential>("Slope");
    TKxIntegral* Area = MakeChild<TKxIntegral>("Area");
    TKxApproxSplineLine* Spline = MakeChild<TKxApproxSplineLine>("Spline");
    TKxASplineDifferential* SplineSlope = MakeChild<TKxASplineDifferential>("SplineSlope");
    TKxASplineIntegral* SplineArea = MakeChild<TKxASplineIntegral>("SplineArea");
    TKxFittedLine* Fit = MakeFit();
    std::vector<TKxCalculatedSeries*> Every;
    std::string Names, Calculated, Told;
};

TEST_F(TEverySeriesTest, LabelsShowEveryResult)
{
    TKxLinearRegessionResults line;
    LinReg(0, 15, X->Values(), Y->Values(), line);
    const double& a = line.Offset;
    ExpectShown(Line, "Linear Regression", "Y=a+b(X)",
                "DoFixedOffset AverageX VarianceX AverageY VarianceY R ChiSquare Offset DeltaOffset DeltaOffset% Slope "
                "DeltaSlope DeltaSlope% ",
                {"0", 7.5, line.VarianceX, line.AverageY, line.VarianceY, line.R, line.ChiSquare, a, line.DeltaOffset,
                 std::fabs(line.DeltaOffset / a * 100), line.Slope, line.DeltaSlope,
                 std::fabs(line.DeltaSlope / line.Slope * 100)});
    TKxPolynomRegessionResults polynom;
    PolynomRegression(0, 15, X->Values(), Y->Values(), polynom);
    const double* const c = polynom.Coeffs.Read();
    ExpectShown(Polynom, "Polynomial Regression", "Y=a+bX+cX\\+2\\+",
                "Order AverageX VarianceX AverageY VarianceY r2 ChiSquare QRel% CoeffName(1) Coeff(1) CoeffName(2) "
                "Coeff(2) CoeffName(3) Coeff(3) ",
                {"2", 7.5, line.VarianceX, line.AverageY, line.VarianceY, polynom.r2, polynom.ChiSquare,
                 100 * std::sqrt(polynom.ChiSquare / 59), "a", c[0], "b", c[1], "c", c[2]});
    const auto akima = Curve<TKxAkima>(Area->XResult().Values());
    ExpectExtrema(Akima, "Interpolation", "Interpolation", akima.Minima(), akima.Maxima());
    ExpectExtrema(Slope, "Differentiation", "Differentiation", akima.DiffMinima(), akima.DiffMaxima());
    ExpectExtrema(Area, "Integration", "Integration", akima.IntMinima(), akima.IntMaxima());
    const auto spline = Curve<TKxApproxSpline>(SplineArea->XResult().Values());
    const std::string name = "Approximative Spline";
    ExpectExtrema(Spline, name, name.c_str(), spline.Minima(), spline.Maxima());
    ExpectExtrema(SplineSlope, name + " Differentiation", "Differentiation", spline.DiffMinima(), spline.DiffMaxima());
    ExpectExtrema(SplineArea, name + " Integral", "Integration", spline.IntMinima(), spline.IntMaxima());
    ExpectShown(Fit, "Nonlinear Regression", "",
                "VarianceCoVariance ChiSquare Order Iterations CoeffName(1) Coeff(1) CoeffName(2) Coeff(2) ",
                {"Variance", Fit->ChiSquare(), "2", "300", "a", line.Slope, "b", a});
}

TEST_F(TEverySeriesTest, EachChangeCalculatesEachOnceAndPicturesNever)
{
    TKxLiveVector weight(Form.get());
    weight.Take(std::vector<double>(61, 1.5));
    const auto newAxis = [&](TKxAxisPos position) {
        auto* const axis = new TKxAxis(Form.get());
        axis->SetParent(Graph);
        axis->SetPosition(position);
        return axis;
    };
    const auto calculatedBy = [this](const std::function<void()>& change) {
        change();
        Form->Picture();
        return std::exchange(Calculated, "");
    };
    const std::vector<std::function<void()>> changes{[&] { Y->SetValue(30, 2.5); },
                                                     [&] { Y->SetValue(61, 3), X->SetValue(61, 15.25); },
                                                     [&] { Parent->SetWeight(&weight); },
                                                     [&] { weight.SetValue(3, 2); },
                                                     [&] { Slope->SetParentWeight(false); },
                                                     [&] { Parent->SetXAxis(newAxis(AxTopPos)); },
                                                     [&] { Parent->SetYAxis(newAxis(AxRightPos)); },
                                                     [&] { Line->SetCalculationStop(12); },
                                                     [&] { Line->SetAutoStop(true); },
                                                     [&] { Line->SetDisplayStart(-1); },
                                                     [&] { Spline->SetCoupleCalcAndDisplay(false); },
                                                     [&] { Line->SetFixedOffset(1); },
                                                     [&] { Line->SetDoFixedOffset(false); },
                                                     [&] { Polynom->SetOrder(4); },
                                                     [&] { Akima->SetSmoothRange(0.5); },
                                                     [&] { Area->SetDoSmoothing(true); },
                                                     [&] { SplineSlope->SetWeightFactor(5); },
                                                     [&] { Fit->SetIterations(250); },
                                                     [&] { Parent->GetYAxis()->SetScaling(AxDateTime); }};
    for (std::size_t i = 0; i < changes.size(); ++i)
        EXPECT_EQ(calculatedBy(changes[i]), Names) << i;

    EXPECT_TRUE(Line->GetXAxis() == Parent->GetXAxis() && Line->GetYAxis() == Parent->GetYAxis());

    const std::string results = Parent->CaptionIni().Text();
    const TRecording picture = Form->Picture();
    for (const double scale : {3., 0.5, 1.})
        EXPECT_EQ(calculatedBy([&] { Form->SetPixelScale(scale); }), "") << scale;
    EXPECT_EQ(calculatedBy([&] { Graph->GetMetafile(); }), "");
    EXPECT_EQ(Form->Picture(), picture);
    EXPECT_EQ(calculatedBy([&] { Parent->GetXAxis()->ZoomIn(3, 5); }), "");
    EXPECT_EQ(calculatedBy([&] { Graph->SetBounds(0, 0, 300, 200); }), "");
    EXPECT_EQ(Parent->CaptionIni().Text() + Told, results);
}

TEST_F(TEverySeriesTest, FailuresAreToldAndTheNextGoodDataRecover)
{
    Fit->SetIterations(0);
    Form->Picture();
    Calculated.clear();
    const TRecording good = Form->Picture();
    const std::string results = Parent->CaptionIni().Text();
    std::string expected;
    for (TKxCalculatedSeries* const series : Every) {
        MakeLabel(series, "CalcStop")->SetVisible(false);
        series->SetCalculationStart(1e6);
        expected += "C-" + series->GetName() + ": Not enough data!\n";
    }
    Fit->SetIterations(1);
    Form->Picture();
    EXPECT_EQ(Told + Calculated, expected);
    EXPECT_NE(Polynom->GetCoeff(2), 0) << "as before";
    for (TKxCalculatedSeries* const series : Every) {
        EXPECT_EQ(series->PointsCount() + series->XResult().GetCount(), 0) << series->GetName();
        EXPECT_EQ(series->ResultLabels()[0]->GetCaption(), "...");
        EXPECT_FALSE(series->CaptionIni().SectionExists(series->GetName()));
        series->SetAutoStart(true);
    }
    EXPECT_EQ(Parent->CaptionIni().Text().find("Calc"), std::string::npos);
    Fit->SetIterations(0);
    EXPECT_EQ(Form->Picture().ToText(), good.ToText());
    EXPECT_EQ(Parent->CaptionIni().Text(), results);
    EXPECT_EQ(Told + Calculated, expected + Names);
    Told.clear();
    for (TKxCalculatedSeries* const series : {Every[0], Every[1], Every[2], Every[5]}) {
        const TKxResultLabel* const label = series->ResultLabels()[0];
        series->SetParentSeries(nullptr);
        EXPECT_EQ(label->GetCaption(), "...") << series->GetName();
        series->Calculate();
        EXPECT_EQ(std::exchange(Told, ""), "C-" + series->GetName() + ": Not enough data!\n");
        EXPECT_EQ(label->GetCaption(), "...") << series->GetName();
    }
}

TEST_F(TEverySeriesTest, AutomaticEndsOfTheCurveGoWithTheAxis)
{
    for (TKxCalculatedSeries* const series : Every)
        series->SetCoupleCalcAndDisplay(false);
    Line->SetDisplayStart(2);
    Form->Picture();
    Calculated.clear();
    Parent->GetXAxis()->ZoomIn(-10, 30);
    Form->Picture();
    EXPECT_EQ(Line->XResult().Values()[0], 2);
    EXPECT_EQ(Line->XResult().Values()[1], 30);
    EXPECT_EQ(Line->YResult().Values()[1], Line->GetY(30));
    for (const TKxCalculatedSeries* const series : {Every[1], Every[2], Every[3], Every[5], Every[6], Every[8]}) {
        EXPECT_EQ(series->XResult().Values().front(), -10) << series->GetName();
        EXPECT_GT(series->XResult().Values().back(), 29) << series->GetName();
    }
    EXPECT_EQ(Calculated, "") << "only sampled";
}

}  // namespace
}  // namespace plotkit
