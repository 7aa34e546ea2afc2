#include "calculated/KxPolinomial.h"

#include "calculated/CalculatedFixture.h"

namespace plotkit {
namespace {

TEST_F(TCalculatedTest, PolynomIsFittedAndPublished)
{
    Fill({0, 1, 2, 3, 4, 5}, {1, 2, 5, 10, 17, 26});
    auto* const line = MakeChild<TKxPolynomLine>("Line");
    const TKxResultLabel* const label = MakeLabel(line, "Coeff(3)");
    Form->Picture();
    EXPECT_EQ(line->GetFormula(), "Y=a+bX+cX\\+2\\+");
    EXPECT_EQ(MessageOf<ERangeError>([&] { line->GetCoeff(3); }), "Polynomial: Index of variable out of range");
    EXPECT_EQ(label->GetCaption(), "1");
    EXPECT_NEAR(line->YResult().GetValue(50), std::pow(line->XResult().GetValue(50), 2) + 1, 1e-14);

    line->SetOrder(0);
    EXPECT_EQ(line->GetOrder(), 2);
    TKxLiveVector weight(Form.get());
    for (const double w : {1, 1, 1, 0, 0, 0})
        weight.Add(w);
    Y->SetValue(5, 99);
    line->SetWeight(&weight);
    Form->Picture();
    EXPECT_NEAR(line->GetY(10), 101, 1e-12) << "the changed point has no weight";
    line->SetOrder(3);
    std::string told;
    line->OnError = [&](EError& error) { told = error.Message(); };
    line->SetCaption("Fit");
    Form->Picture();
    EXPECT_EQ(told, "Fit: Not enough data!");
    EXPECT_EQ(line->XResult().GetCount(), 0);
    line->SetParentWeight(true);
    Form->Picture();
    EXPECT_NE(line->GetCoeff(3), 0);
}

TEST_F(TCalculatedTest, PolynomOfAnyOrderIsKept)
{
    TKxPolynomLine line(Form.get());
    line.SetOrder(30);
    EXPECT_NE(line.GetFormula().find("zX\\+25\\++aaX\\+26\\+"), std::string::npos);
    line.SetOrder(std::numeric_limits<int>::max());
    TKxIniList list;
    line.WriteToIni(list, "S");
    TKxPolynomLine read(Form.get());
    read.ReadFromIni(list, "S");
    EXPECT_EQ(read.GetOrder(), line.GetOrder());
    EXPECT_EQ(read.GetCoeff(1000), 0);
}

}  // namespace
}  // namespace plotkit
