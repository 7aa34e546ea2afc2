#include <gtest/gtest.h>

#include "calculated/KxFittedLine.h"
#include "formula/KxFormula.h"
#include "series/KxDataSeries.h"

using namespace plotkit;

TEST(FittedFormula, AnExpressionIsTheFunctionUnlessThereIsACallback)
{
    UseTypedFormulas();
    TComponent owner(nullptr);
    auto* const parent = new TKxDataSeries(&owner);
    auto* const x = new TKxLiveVector(&owner);
    auto* const y = new TKxLiveVector(&owner);
    x->Assign(std::vector<double>{0, 1, 2, 3});
    y->Assign(std::vector<double>{5, 8, 11, 14});
    parent->SetXData(x);
    parent->SetYData(y);
    auto* const line = new TKxFittedLine(&owner);
    std::string error;
    line->OnError = [&](EError& told) { error = told.Message(); };
    line->SetParentSeries(parent);
    line->SetExpression("k*x+t");
    line->Calculate();
    EXPECT_EQ(error, "");
    EXPECT_EQ(line->GetOrder(), 2);
    EXPECT_NEAR(line->GetVariables()[0], 3, 1e-6);
    EXPECT_NEAR(line->GetVariables()[1], 5, 1e-6);

    line->SetExpression("k*x+");
    line->Calculate();
    EXPECT_NE(error.find("position 5"), std::string::npos) << error;
    EXPECT_EQ(line->XResult().GetCount(), 0);

    line->SetFittingFunction([](double, std::span<const double> coefs) { return coefs[0]; });
    line->SetExpression("a*b*c*x");
    EXPECT_EQ(line->GetOrder(), 2);
    EXPECT_EQ(line->GetY(1), line->GetVariables()[0]);
    line->SetFittingFunction({});
    EXPECT_EQ(line->GetOrder(), 3);
    SetFormulaCompiler(nullptr);
}
