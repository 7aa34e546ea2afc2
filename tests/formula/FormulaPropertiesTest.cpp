#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <functional>

#include "formula/KxFormula.h"
#include "host/Errors.h"

namespace plotkit {
namespace {

/// A text, how tightly its loosest operator binds, and what it means for the coefficients a, b and c.
struct TTerm
{
    std::string Text;
    int Binding;
    std::function<double(double x, std::span<const double> coefs)> Value;

    std::string In(int least) const { return Binding < least ? "(" + Text + ")" : Text; }
};

TTerm Leaf()
{
    const std::size_t kind = *rc::gen::inRange<std::size_t>(0, 5);
    if (const int number = *rc::gen::inRange(0, 9); kind == 4)
        return {std::to_string(number), 9, [number](double, auto) { return number; }};
    const bool isCapital = *rc::gen::arbitrary<bool>();
    return {std::string(1, (isCapital ? "ABCX" : "abcx")[kind]), 9,
            [kind](double x, auto coefs) { return kind < 3 ? coefs[kind] : x; }};
}

TTerm Drawn(int depth)
{
    if (depth == 0)
        return Leaf();
    const TTerm a = Drawn(depth - 1), b = Drawn(*rc::gen::inRange(0, depth));
    const bool isNumber = std::isdigit(b.Text[0]) && b.Binding == 9;
    const char* const blank = *rc::gen::element("", " ", "\t");
    const auto joined = [&](const char* sign, int binding, int left, int right, auto operation) {
        return TTerm{a.In(left) + blank + sign + blank + b.In(right), binding,
                     [=](double x, auto coefs) { return operation(a.Value(x, coefs), b.Value(x, coefs)); }};
    };
    switch (*rc::gen::inRange(0, 8)) {
        case 0:
            return joined("+", 1, 1, 2, std::plus());
        case 1:
            return joined("-", 1, 1, 2, std::minus());
        case 2:
            return joined("*", 3, 3, 4, std::multiplies());
        case 3:
            return joined("/", 3, 3, 4, std::divides());
        case 4:
            return joined("^", 6, 7, 6, [isNumber](double p, double q) {
                return isNumber && q == 2 ? p * p : isNumber && q == 3 ? p * p * p : std::pow(p, q);
            });
        case 5:
            return {"-" + a.In(5), 2, [a](double x, auto coefs) { return -a.Value(x, coefs); }};
        case 6:
            return {"Sin(" + a.Text + ")", 9, [a](double x, auto coefs) { return std::sin(a.Value(x, coefs)); }};
        default:
            return {"max(" + a.Text + " ," + b.Text + ")", 9,
                    [a, b](double x, auto coefs) { return std::fmax(a.Value(x, coefs), b.Value(x, coefs)); }};
    }
}

RC_GTEST_PROP(FormulaProperties, ATextMeansWhatItsPartsMean, ())
{
    const TTerm term = Drawn(*rc::gen::inRange(0, 6));
    RC_LOG() << term.Text << '\n';
    const TKxTypedFormula formula = CompileFormula(term.Text + "+0*a*b*c");
    RC_ASSERT(formula.Coefficients == "abc");
    std::vector<double> coefs{1.5, -0.25, 7}, x, y(600);
    for (int i = -300; i < 300; ++i)
        x.push_back(i / 16.0);
    formula.Function.Run(x, coefs, y.data());
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double expected = term.Value(x[i], coefs) + 0.0;
        RC_ASSERT(y[i] == expected || (std::isnan(y[i]) && std::isnan(expected)));
    }
}

RC_GTEST_PROP(FormulaProperties, AnyTextIsReadOrToldByPlace, ())
{
    std::string text;
    for (const std::string& word : *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
             "x", "a", "B", "e", "1", ".5", "2e", "1e-3", "+", "-", "*", "/", "^", "(", ")", ",", " ", "sin(", "max(",
             "pi", "\xC2\xB5", "\xB5", "=", "_", "&&", "?", ":", "\"", std::string(1, '\0'))))
        text += word;
    try {
        const TKxTypedFormula formula = CompileFormula(text);
        std::vector<double> coefs(formula.Coefficients.size(), 0.5);
        formula.Function(1, coefs);
    } catch (const EConvertError& error) {
        int position = 0;
        RC_ASSERT(std::sscanf(error.Message().c_str(), "Formula, position %d:", &position) == 1);
        RC_ASSERT(position >= 1 && position <= static_cast<int>(text.size()) + 1);
    }
}

}  // namespace
}  // namespace plotkit
