#include "plotkit/fit/FitResults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "calculated/KxFittedLine.h"
#include "calculated/KxInterpolatedLine.h"
#include "calculated/KxLinearRegression.h"
#include "calculated/KxPolinomial.h"
#include "foundation/KxLargeIni.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "plotkit/PlotParts.h"
#include "plotkit/fit/FitCurve.h"
#include "series/KxNotCalculatedSeries.h"
#include "series/KxReadoutText.h"

namespace plotkit {

namespace {

constexpr const char* Section = "Results";

struct TResult
{
    std::string Name, Text;
    std::optional<double> Number;
};

/// The number of "Coeff(2)" for the front "Coeff"; 0 for other names.
std::size_t NumberIn(const std::string& name, std::string_view front)
{
    if (name.size() < front.size() + 3 || !StartsWithText(name, front) || name[front.size()] != '(' ||
        name.back() != ')')
        return 0;
    const auto number = ParseInteger(name.substr(front.size() + 1, name.size() - front.size() - 2));
    return number && *number > 0 ? static_cast<std::size_t>(*number) : 0;
}

std::optional<double> ExactCoefficient(TKxCalculatedSeries& curve, std::size_t number)
{
    if (auto* polynomial = dynamic_cast<TKxPolynomLine*>(&curve);
        polynomial && number <= polynomial->Results().Coeffs.Length())
        return polynomial->Results().Coeffs[number - 1];
    if (auto* fitted = dynamic_cast<TKxFittedLine*>(&curve); fitted && number <= fitted->GetVariables().Length())
        return fitted->GetVariables()[number - 1];
    return std::nullopt;
}

std::optional<double> ExactExtremum(TKxCalculatedSeries& curve, const std::string& name)
{
    auto* const function = dynamic_cast<TKxInterpolatedFunction*>(&curve);
    if (!function)
        return std::nullopt;
    const std::pair<const char*, const TKxRealPosArray*> kinds[] = {{"-Minima", &function->GetMinima()},
                                                                    {"-Maxima", &function->GetMaxima()}};
    for (const auto& [kind, extrema] : kinds)
        for (const char axis : {'X', 'Y'})
            if (const std::size_t number = NumberIn(name, axis + std::string(kind));
                number > 0 && number <= extrema->Length())
                return axis == 'X' ? (*extrema)[number - 1].Position : (*extrema)[number - 1].Value;
    return std::nullopt;
}

/// Published texts have 14 digits; what people take further has all of them.
std::optional<double> ExactValue(TKxCalculatedSeries& curve, const std::string& name)
{
    const std::pair<const char*, double> bounds[] = {{"CalcStart", curve.GetCalculationStart()},
                                                     {"CalcStop", curve.GetCalculationStop()},
                                                     {"DisplayStart", curve.GetDisplayStart()},
                                                     {"DisplayStop", curve.GetDisplayStop()}};
    for (const auto& [key, value] : bounds)
        if (name == key)
            return value;
    if (const std::size_t number = NumberIn(name, "Coeff"))
        return ExactCoefficient(curve, number);
    if (const auto* line = dynamic_cast<TKxLinearRegressionLine*>(&curve)) {
        const TKxLinearRegessionResults& results = line->Results();
        const std::pair<const char*, double> values[] = {
            {"R", results.R},           {"ChiSquare", results.ChiSquare},
            {"Offset", results.Offset}, {"DeltaOffset", results.DeltaOffset},
            {"Slope", results.Slope},   {"DeltaSlope", results.DeltaSlope}};
        for (const auto& [key, value] : values)
            if (name == key)
                return value;
    }
    if (const auto* polynomial = dynamic_cast<TKxPolynomLine*>(&curve); polynomial && name == "ChiSquare")
        return polynomial->Results().ChiSquare;
    if (const auto* fitted = dynamic_cast<TKxFittedLine*>(&curve); fitted && name == "ChiSquare")
        return fitted->ChiSquare();
    return ExactExtremum(curve, name);
}

bool IsText(const std::string& name)
{
    return name == "Calculation" || name == "Caption" || name == "Formula" || NumberIn(name, "CoeffName") > 0;
}

std::vector<TResult> ResultsOf(TKxCalculatedSeries& curve, const TFitWish& wish)
{
    TKxIniList list;
    curve.WriteResults(list, Section);
    TStringList names;
    list.ReadSection(Section, names);
    const std::string letters = CoefficientsOf(wish);
    std::vector<TResult> results;
    for (const std::string& name : names.Lines()) {
        TResult result{name, list.ReadString(Section, name, {}), {}};
        if (const std::size_t number = NumberIn(name, "CoeffName"); number > 0 && number <= letters.size())
            result.Text = letters[number - 1];
        if (!IsText(name))
            result.Number = ExactValue(curve, name);
        if (!result.Number && !IsText(name))
            result.Number = ParseReal(result.Text);
        results.push_back(std::move(result));
    }
    return results;
}

bool IsAbscissa(const std::string& name)
{
    constexpr std::array names{"CalcStart", "CalcStop", "DisplayStart", "DisplayStop"};
    return std::find(names.begin(), names.end(), name) != names.end() || name.starts_with("X-M");
}

/// Dates for people.
std::string ReadableText(const TKxCalculatedSeries& curve, const TResult& result)
{
    const TKxAxis* const axis = curve.GetXAxis();
    const bool isDate = axis && axis->GetScaling() == AxDateTime && result.Number && IsAbscissa(result.Name);
    return isDate ? AxisValueText(*axis, *result.Number) : result.Text;
}

/// What could not be computed keeps a value at the end of doubles.
bool IsKnown(double value)
{
    return std::fabs(value) < 1.7e308;
}

std::string TextOf(const TResult& result)
{
    if (result.Number && !IsKnown(*result.Number))
        return {};
    return result.Number ? FormatExact(*result.Number) : result.Text;
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        const char* const digits = "0123456789abcdef";
        if (const auto code = static_cast<unsigned char>(c); code < 0x20)
            quoted += std::string("\\u00") + digits[code / 16] + digits[code % 16];
        else
            quoted += c;
    }
    return quoted + '"';
}

std::string JsonOf(const TResult& result)
{
    if (!result.Number)
        return Quoted(result.Text);
    return IsKnown(*result.Number) ? FormatExact(*result.Number) : "null";
}

/// `action(fit's text, column, series, wish)`.
template <class TAction>
void ForEachFit(const TPlot& plot, TAction action)
{
    for (const TPlottedFit& fit : plot.Fits) {
        TFitWish wish = plot.Fit.Fits[fit.Wish];
        wish.Column.clear();
        action(FitText(wish), GetStrippedString(plot.Series[fit.Ordinate]->GetCaption()), *fit.Series, wish);
    }
}

}  // namespace

std::vector<std::string> ResultNames(TKxCalculatedSeries& curve)
{
    TKxIniList list;
    curve.WriteResults(list, Section);
    TStringList names;
    list.ReadSection(Section, names);
    return names.Lines();
}

std::string FindResult(TKxCalculatedSeries& curve, const TFitWish& wish, const std::string& name)
{
    const std::vector<std::string> names = ResultNames(curve);
    for (const std::string& candidate : names)
        if (SameText(candidate, name))
            return candidate;
    if (dynamic_cast<TKxInterpolatedFunction*>(&curve))
        for (const char* kind : {"X-Minima", "Y-Minima", "X-Maxima", "Y-Maxima"})
            if (const std::size_t number = NumberIn(name, kind))
                return kind + std::string("(") + std::to_string(number) + ")";
    if (name.size() != 1)
        return {};
    for (const TResult& result : ResultsOf(curve, wish))
        if (const std::size_t number = NumberIn(result.Name, "CoeffName"); number && SameText(result.Text, name))
            return "Coeff(" + std::to_string(number) + ")";
    return {};
}

std::vector<std::string> ResultsForLabels(TKxCalculatedSeries& curve)
{
    constexpr std::size_t mostExtrema = 4;
    std::vector<std::string> names = ResultNames(curve);
    std::erase_if(names, [](const std::string& name) {
        const bool isExtremum = name.starts_with("X-M") || name.starts_with("Y-M");
        const std::size_t number = isExtremum ? NumberIn(name, name.substr(0, name.find('('))) : 0;
        return IsText(name) || name == "DoFixedOffset" || name == "VarianceCoVariance" || number > mostExtrema ||
               (IsAbscissa(name) && !isExtremum);
    });
    return names;
}

std::string ReadableName(const TFitWish& wish, const std::string& result)
{
    const std::string name = GetStrippedString(ResultMarkup(wish, result));
    return NumberIn(result, "Coeff") ? result + "  " + name : result;
}

std::string ResultMarkup(const TFitWish& wish, const std::string& result)
{
    constexpr std::string_view delta = "Delta";
    if (result == "ChiSquare")
        return "\\sc\\s\\+2\\+";
    if (result == "r2")
        return "\\ir\\i\\+2\\+";
    if (result == "R")
        return "\\iR\\i";
    if (result.starts_with(delta))
        return "\\sD\\s" + result.substr(delta.size());
    if (const std::size_t number = NumberIn(result, "Coeff")) {
        const std::string letters = wish.Kind == fkFormula ? CoefficientsOf(wish) : "abcdefghijklmnopqrstuvwxyz";
        if (number <= letters.size())
            return std::string("\\i") + letters[number - 1] + "\\i";
    }
    return CaptionOf(result);
}

std::string ResultsText(const TPlot& plot)
{
    std::string text;
    ForEachFit(plot, [&](const std::string& fit, const std::string& column, auto& curve, const TFitWish& wish) {
        text += (text.empty() ? "" : "\n") + fit + " of " + column + "\n";
        for (const TResult& result : ResultsOf(curve, wish))
            text += "  " + result.Name + " = " + ReadableText(curve, result) + "\n";
    });
    return text;
}

std::string ResultsJson(const TPlot& plot)
{
    std::string text;
    ForEachFit(plot, [&](const std::string& fit, const std::string& column, auto& curve, const TFitWish& wish) {
        text += std::string(text.empty() ? "" : ",\n") + " {\"fit\": " + Quoted(fit) +
                ", \"column\": " + Quoted(column) + ", \"results\": {";
        bool isFirst = true;
        for (const TResult& result : ResultsOf(curve, wish)) {
            text += std::string(isFirst ? "" : ",") + "\n  " + Quoted(result.Name) + ": " + JsonOf(result);
            isFirst = false;
        }
        text += "}}";
    });
    return "[" + (text.empty() ? text : "\n" + text + "\n") + "]\n";
}

std::string ResultsTable(const TPlot& plot)
{
    std::string text = "Fit\tColumn\tResult\tValue\n";
    ForEachFit(plot, [&](const std::string& fit, const std::string& column, auto& curve, const TFitWish& wish) {
        for (const TResult& result : ResultsOf(curve, wish))
            text += fit + "\t" + column + "\t" + result.Name + "\t" + TextOf(result) + "\n";
    });
    return text;
}

}  // namespace plotkit
