#include "plotkit/fit/FitWish.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

struct TKindWord
{
    std::string_view Word;
    TFitKind Kind;
    bool NeedsValue;
    bool TakesValue;
};
constexpr std::array Words{
    TKindWord{"linear", fkLinear, false, true},     TKindWord{"poly", fkPolynomial, true, true},
    TKindWord{"akima", fkAkima, false, false},      TKindWord{"smooth", fkSmooth, true, true},
    TKindWord{"spline", fkSpline, true, true},      TKindWord{"derivative", fkDerivative, false, false},
    TKindWord{"integral", fkIntegral, false, false}};
constexpr int LeastOrder = 2, MostOrder = 30;

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// Between commas, without blanks around; none in a blank text.
std::vector<std::string_view> Parts(std::string_view text)
{
    std::vector<std::string_view> parts;
    if (Trimmed(text).empty())
        return parts;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t comma = std::min(text.find(',', from), text.size());
        parts.push_back(Trimmed(text.substr(from, comma - from)));
        from = comma + 1;
    }
    return parts;
}

[[noreturn]] void Fail(std::string_view text, const std::string& what)
{
    throw EConvertError("\"" + std::string(text) + "\": " + what);
}

const TKindWord* WordOf(std::string_view name)
{
    const auto found =
        std::find_if(Words.begin(), Words.end(), [&](const TKindWord& word) { return SameText(name, word.Word); });
    return found == Words.end() ? nullptr : &*found;
}

void CheckValue(const TFitWish& wish, std::string_view text)
{
    const double value = wish.Value.value_or(0);
    if (wish.Kind == fkPolynomial && (value != std::floor(value) || value < LeastOrder || value > MostOrder))
        Fail(text,
             "an order is a whole number from " + std::to_string(LeastOrder) + " to " + std::to_string(MostOrder));
    if ((wish.Kind == fkSmooth || wish.Kind == fkSpline) && !(value > 0))
        Fail(text, "the number has to be positive");
}

void ReadValue(TFitWish& wish, const TKindWord& word, std::string_view text, std::string_view number)
{
    if (!word.TakesValue)
        Fail(text, "it takes no number");
    wish.Value = ParseReal(number);
    if (!wish.Value || !std::isfinite(*wish.Value))
        Fail(text, "behind the colon stands a number");
    CheckValue(wish, text);
}

}  // namespace

TFitWish ParseFit(std::string_view text)
{
    TFitWish wish;
    std::string_view curve = text;
    if (const std::size_t at = text.rfind('@'); at != std::string_view::npos) {
        wish.Column = Trimmed(text.substr(at + 1));
        curve = text.substr(0, at);
        if (wish.Column.empty())
            Fail(text, "behind @ stands the name or number of a column");
    }
    curve = Trimmed(curve);
    if (curve.empty())
        Fail(text,
             "no fit; there are linear, poly:ORDER, akima, smooth:RANGE, spline:WEIGHT, derivative, integral and "
             "formulas in x");
    const std::size_t colon = curve.find(':');
    const TKindWord* const word = WordOf(Trimmed(curve.substr(0, colon)));
    wish.Kind = word ? word->Kind : fkFormula;
    if (!word)
        wish.Formula = curve;
    else if (colon != std::string_view::npos)
        ReadValue(wish, *word, text, Trimmed(curve.substr(colon + 1)));
    else if (word->NeedsValue)
        Fail(text, "a number is missing, such as " + std::string(word->Word) + ":2");
    return wish;
}

std::string FitText(const TFitWish& wish)
{
    std::string text = wish.Formula;
    for (const TKindWord& word : Words)
        if (word.Kind == wish.Kind)
            text = word.Word;
    if (wish.Value)
        text += ":" + FormatExact(*wish.Value);
    return wish.Column.empty() ? text : text + "@" + wish.Column;
}

std::vector<TStartValue> ParseStartValues(std::string_view text)
{
    std::vector<TStartValue> values;
    for (const std::string_view part : Parts(text)) {
        const std::size_t equals = part.find('=');
        const std::string_view letter = Trimmed(part.substr(0, equals));
        const double value = equals == part.npos ? NAN : ParseReal(Trimmed(part.substr(equals + 1))).value_or(NAN);
        if (letter.size() != 1 || !std::isalpha(static_cast<unsigned char>(letter[0])) || !std::isfinite(value))
            Fail(text, "start values are written as a=1,b=0.5");
        values.push_back({static_cast<char>(std::tolower(static_cast<unsigned char>(letter[0]))), value});
    }
    return values;
}

std::string StartValuesText(const std::vector<TStartValue>& values)
{
    std::string text;
    for (const TStartValue& value : values)
        text += (text.empty() ? "" : ",") + std::string(1, value.Letter) + "=" + FormatExact(value.Value);
    return text;
}

std::vector<std::string> ParseResultNames(std::string_view text)
{
    std::vector<std::string> names;
    for (const std::string_view part : Parts(text)) {
        if (part.empty())
            Fail(text, "names of results are separated by commas, such as Slope,R");
        names.emplace_back(part);
    }
    return names;
}

std::string ResultNamesText(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ",") + name;
    return text;
}

}  // namespace plotkit
