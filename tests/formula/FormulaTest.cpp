#include "formula/KxFormula.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <vector>

#include "host/Errors.h"
#include "support/MessageOf.h"

using namespace plotkit;

namespace {

double ValueOf(const char* text, double x, std::vector<double> coefs)
{
    return CompileFormula(text).Function(x, coefs);
}

}  // namespace

TEST(Formula, HasTheValueThatItsTextSays)
{
    const double a = 1.5, b = -0.75, c = 3, x = 0.8;
    const std::pair<const char*, double> cases[]{
        {"a*exp(-b*x)+c", a * std::exp(-b * x) + c},
        {"A * EXP( - B * X )\t+ C", a * std::exp(-b * x) + c},
        {"-a^2+b*0+c*0", -a * a},
        {"a^b^2+c*0", std::pow(a, b * b)},
        {"a^-b+c^x", std::pow(a, -b) + std::pow(c, x)},
        {"a-b-c/2/x", a - b - c / 2 / x},
        {"2*pi*x^3+1e-2*a*b*c", 2 * M_PI * x * x * x + 1e-2 * a * b * c},
        {"max(a,min(b,c))+atan2(x,a)-log10(c)", a + std::atan2(x, a) - std::log10(c)},
        {"(a-b)*(c-a)/((x+a)*(x-b))*(x*x+1)^3", (a - b) * (c - a) / ((x + a) * (x - b)) * std::pow(x * x + 1, 3)},
        {"a+b+c", a + b + c},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_NEAR(ValueOf(text, x, {a, b, c}), expected, 1e-14 * std::fabs(expected)) << text;
    EXPECT_EQ(ValueOf("x", x, {}), x);
    EXPECT_TRUE(std::isnan(ValueOf("ln(x)", -1, {})));
}

TEST(Formula, LettersThatStandAloneAreCoefficients)
{
    EXPECT_EQ(CompileFormula("T*x + k*exp(e*x) - K").Coefficients, "ekt");
    EXPECT_EQ(CompileFormula("max(b,a)*1e5*pi").Coefficients, "ab");
    EXPECT_EQ(CompileFormula("2*x").Coefficients, "");
    EXPECT_EQ(ValueOf("z-e*x", 2, {3, 10}), 4);
    EXPECT_EQ(MessageOf<EMathError>([] { ValueOf("a+b", 1, {1}); }), "Formula: 2 coefficients expected, 1 given");
}

TEST(Formula, ManyAbscissaeGiveWhatEachOneGives)
{
    const TKxTypedFormula formula = CompileFormula("a*sin(x)^2/(b+x)-(x-a)*(x+b)^1.5");
    std::vector<double> x(700), y(700), coefs{2, 30};
    std::iota(x.begin(), x.end(), 0);
    formula.Function.Run(x, coefs, y.data());
    for (std::size_t i = 0; i < x.size(); ++i)
        ASSERT_EQ(y[i], formula.Function(x[i], coefs)) << i;
}

TEST(Formula, AWrongTextIsToldByPlaceAndExpectation)
{
    const std::string operand = R"(a number, "x", a coefficient (one letter), "pi", a function or "(" expected, )";
    const std::pair<const char*, std::string> cases[]{
        {"", "1: " + operand + "the end found"},
        {"a*", "3: " + operand + "the end found"},
        {"a+*b", "3: " + operand + "\"*\" found"},
        {"a b", "3: an operator or the end expected, \"b\" found"},
        {"2x", "2: an operator or the end expected, \"x\" found"},
        {"ab+c", "1: " + operand + "\"ab\" found"},
        {"a*(b+c", "7: an operator or \")\" expected, the end found"},
        {"a*b)", "4: an operator or the end expected, \")\" found"},
        {"exp a", "5: \"(\" expected, \"a\" found"},
        {"exp()", "5: " + operand + "\")\" found"},
        {"exp(a,b)", "6: an operator or \")\" expected, \",\" found"},
        {"max(a)", "6: \",\" expected, \")\" found"},
        {"max(a,)", "7: " + operand + "\")\" found"},
        {"a,b", "2: an operator or the end expected, \",\" found"},
        {"(a,b)", "3: an operator or \")\" expected, \",\" found"},
        {"a?b:c", "2: an operator or the end expected, \"?\" found"},
        {"a=b", "2: an operator or the end expected, \"=\" found"},
        {"1e+x", "1: " + operand + "\"1e\" found"},
        {"1.2.3", "4: an operator or the end expected, \".3\" found"},
        {"x+\xC3\xA4*\xC2\xB5", "3: " + operand + "\"\xC3\xA4\" found"},
        {"\"\xC2\xB5", "1: " + operand + "\"\"\" found"},
        {"f(x)", "1: one of the functions " + std::string(FormulaFunctions()) + " expected, \"f\" found"},
        {"()", "2: " + operand + "\")\" found"},
        {"sin", "4: \"(\" expected, the end found"},
        {"2(a)", "2: an operator or the end expected, \"(\" found"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(MessageOf<EConvertError>([&, t = text] { CompileFormula(t); }), "Formula, position " + expected)
            << text;
}
