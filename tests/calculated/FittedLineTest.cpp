#include "calculated/KxFittedLine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "calculated/KxTypedFormula.h"
#include "foundation/KxLargeIni.h"
#include "series/SeriesFixture.h"

using namespace plotkit;

namespace {

double Decay(double x, std::span<const double> coefs)
{
    return coefs[0] * std::exp(-coefs[1] * x);
}

class TFittedLineTest : public TSeriesTest
{
protected:
    TFittedLineTest()
    {
        std::vector<double> xs, ys, truth{2, 0.5};
        for (int i = 0; i < 12; ++i) {
            xs.push_back(i);
            ys.push_back(Decay(i, truth));
        }
        ys[3] = std::numeric_limits<double>::quiet_NaN();
        Parent = MakeSeries<TKxDataSeries>();
        Parent->SetXAxis(Graph->GetPrimaryXAxis());
        Parent->SetYAxis(Graph->GetPrimaryYAxis());
        Fill(xs, ys);
        Line = new TKxFittedLine(Form.get());
        Line->SetName("Fit");
        Line->OnError = [this](EError& error) { Error = error.Message(); };
        Line->SetFittingFunction(&Decay);
        Line->SetOrder(2);
    }

    /// The error of a calculation, "" for none.
    std::string Calculate()
    {
        Error.clear();
        if (Line->GetParentSeries())
            Line->Calculate();
        else
            Line->SetParentSeries(Parent);
        return Error;
    }
    std::string Result(const char* name) const { return Line->ResultText(name); }

    TKxDataSeries* Parent;
    TKxFittedLine* Line;
    std::string Error;
};

}  // namespace

TEST_F(TFittedLineTest, FindsTheCoefficientsAndPublishesThem)
{
    EXPECT_EQ(Calculate(), "");
    EXPECT_EQ(Line->PointCount(), 11);
    EXPECT_NEAR(Line->GetVariables()[0], 2, 1e-7);
    EXPECT_NEAR(Line->GetVariables()[1], 0.5, 1e-7);
    EXPECT_NEAR(Line->Statistics().Determination, 1, 1e-12);
    ASSERT_GT(Line->XResult().GetCount(), 10);
    EXPECT_NEAR(Line->YResult().GetValue(5), 2 * std::exp(-0.5 * Line->XResult().GetValue(5)), 1e-6);
    EXPECT_EQ(Result("Calculation"), "Nonlinear Regression");
    EXPECT_EQ(Result("VarianceCoVariance"), "Variance");
    EXPECT_EQ(Result("CoeffName(2)"), "b");
    EXPECT_NEAR(std::stod(Result("Coeff(2)")), 0.5, 1e-6);

    TKxIniList list;
    Line->WriteToIni(list, "Fit");
    TKxFittedLine read(Form.get());
    read.ReadFromIni(list, "Fit");
    ASSERT_EQ(read.GetOrder(), 2);
    EXPECT_NEAR(read.GetVariables()[0], 2, 1e-6);

    Y->SetNewest(6);  // the first abscissae have no partner any more
    EXPECT_EQ(Calculate(), "");
    EXPECT_EQ(Line->PointCount(), 6);
    EXPECT_NEAR(Line->GetVariables()[0], 2, 1e-6);
}

TEST_F(TFittedLineTest, AHandlerWatchesAndStopsTheFit)
{
    int steps = 0;
    Line->OnIteration = [&](TKxFittedLine&) { ++steps; };
    Line->SetIterations(1);
    Calculate();
    EXPECT_EQ(steps, 2);

    Line->SetIterations(300);
    Line->OnIteration = [&](TKxFittedLine& line) {
        if (++steps == 5)
            line.SetIterations(3);
        line.Calculate();  // as a paint in between does
        EXPECT_GT(line.XResult().GetCount(), 0);
    };
    steps = 0;
    Line->SetVariables({1, 1});
    Calculate();
    EXPECT_EQ(steps, 8);
    EXPECT_EQ(Line->GetIterations(), 300);
    EXPECT_EQ(Line->YResult().GetCount(), Line->XResult().GetCount());

    Line->OnIteration = [&](TKxFittedLine& line) { ++steps, line.SetIterations(0); };
    Calculate();
    EXPECT_EQ(steps, 9);

    Line->OnIteration = [](TKxFittedLine& line) { line.SetOrder(1); };
    Calculate();
    EXPECT_EQ(Line->GetVariables().Length(), 1U);
}

TEST_F(TFittedLineTest, FailuresAreToldAndLeaveTheCoefficients)
{
    Line->SetVariables({0, 3});
    Line->SetFittingFunction([](double, std::span<double> c) -> double {
        c[0] = 7;
        throw std::runtime_error("no model");
    });
    EXPECT_EQ(Calculate(), "Fit: no model");
    EXPECT_EQ(Line->GetVariables(), (TKxRealArray{0, 3}));
    EXPECT_EQ(Line->GetIterations(), 300);
    EXPECT_EQ(Line->XResult().GetCount(), 0);

    Line->SetFittingFunction([](double, std::span<double>) { return std::numeric_limits<double>::infinity(); });
    EXPECT_EQ(Calculate(), "Fit: Floating point overflow");
    EXPECT_EQ(Line->GetVariables(), (TKxRealArray{0, 3}));

    Line->SetFittingFunction(&Decay);
    Line->SetCalculationStop(0.5);
    EXPECT_EQ(Calculate(), "Fit: Not enough data!");
    Line->SetAutoStop(true);
    EXPECT_EQ(Calculate(), "");
    EXPECT_EQ(Line->GetFormula(), "");

    Line->SetOrder(0);
    EXPECT_EQ(Calculate(), "Fit: Simplex Fit: no order set!");
    Line->SetFittingFunction({});
    EXPECT_EQ(Calculate(), "Fit: Fitted Line: no FittingFunction defined");
}

TEST_F(TFittedLineTest, ErrorsInAbscissaeNeedOrdinatesThatDiffer)
{
    Line->SetDoCovariance(true);
    Y->Take(std::vector<double>{1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2});
    EXPECT_EQ(Calculate(), "Fit: Reciprocal indefinite!");
    EXPECT_FALSE(Line->GetDoCovariance());
    EXPECT_EQ(Calculate(), "");
}

TEST_F(TFittedLineTest, ErrorsInAbscissaeCountWithCovariance)
{
    Line->SetDoCovariance(true);
    EXPECT_EQ(Calculate(), "");
    EXPECT_NEAR(Line->GetVariables()[0], 2, 1e-4);
    EXPECT_NEAR(Line->GetVariables()[1], 0.5, 1e-4);
    EXPECT_EQ(Result("VarianceCoVariance"), "Covariance");
}

TEST_F(TFittedLineTest, WithoutFormulasAnExpressionIsCarriedAlong)
{
    ASSERT_EQ(FormulaCompiler(), nullptr);
    Line->SetExpression("a*exp(-b*x)");
    EXPECT_EQ(Calculate(), "");
    EXPECT_EQ(Result("Formula"), "a*exp(-b*x)");
    Line->SetFittingFunction({});
    EXPECT_EQ(Calculate(), "a*exp(-b*x): Fitted Line: no FittingFunction defined");
}
