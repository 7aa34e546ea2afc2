#include "plotkit/fit/FitWishes.h"

#include <algorithm>
#include <memory>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "plotkit/fit/FitCurve.h"
#include "plotkit/fit/FitResults.h"

namespace plotkit {

namespace {

[[noreturn]] void Fail(const char* option, const std::string& what)
{
    throw EConvertError(std::string(option) + ": " + what);
}

void GiveStartValues(std::vector<TFitWish>& wishes, const std::vector<TStartValue>& values)
{
    for (const TStartValue& value : values) {
        bool isUsed = false;
        for (TFitWish& wish : wishes)
            if (CoefficientsOf(wish).find(value.Letter) != std::string::npos) {
                std::erase_if(wish.Start, [&](const TStartValue& own) { return own.Letter == value.Letter; });
                wish.Start.push_back(value);
                isUsed = true;
            }
        if (!isUsed)
            Fail("--start", std::string("no formula has a coefficient \"") + value.Letter + "\"");
    }
}

void GiveRange(std::vector<TFitWish>& wishes, const TTypedRange& range, const TChosenColumn& x)
{
    if (range.IsDate && !x.IsDateTime)
        Fail("--range", "column \"" + x.Name + "\" holds no dates but numbers");
    if (!range.IsDate && x.IsDateTime)
        Fail("--range", "column \"" + x.Name + "\" holds dates; write the range so, such as 1990-01..1999-12");
    for (TFitWish& wish : wishes)
        wish.Range = range;
}

std::string ListOf(const std::vector<std::string>& names)
{
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

void GiveResult(std::vector<TFitWish>& wishes, const std::string& name)
{
    bool isKnown = false;
    std::vector<std::string> names;
    for (TFitWish& wish : wishes) {
        const std::unique_ptr<TKxCalculatedSeries> curve(NewCurve(nullptr, wish));
        const std::string result = FindResult(*curve, wish, name);
        isKnown = isKnown || !result.empty();
        if (!result.empty() && std::find(wish.Results.begin(), wish.Results.end(), result) == wish.Results.end())
            wish.Results.push_back(result);
        for (const std::string& own : ResultNames(*curve))
            if (std::find(names.begin(), names.end(), own) == names.end())
                names.push_back(own);
    }
    if (!isKnown)
        Fail("--label", "\"" + name + "\" is no result; there are " + ListOf(names));
}

std::vector<std::size_t> FindOrdinates(const TFitWish& wish, const TColumnChoice& choice)
{
    const auto matching = [&](auto matches) {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < choice.Ys.size(); ++i)
            if (matches(choice.Ys[i]))
                found.push_back(i);
        return found;
    };
    const std::string& name = wish.Column;
    auto found = matching([&](const TChosenColumn& y) { return name.empty() || y.Name == name; });
    if (found.empty())
        found = matching([&](const TChosenColumn& y) { return SameText(y.Name, name); });
    if (const auto number = ParseInteger(name); found.empty() && number && *number > 0)
        found = matching([&](const TChosenColumn& y) {
            return !y.Sources.empty() && y.Sources.front() + 1 == static_cast<std::size_t>(*number);
        });
    return found;
}

}  // namespace

bool HasOrdinates(const TFitWish& wish, const TColumnChoice& choice)
{
    return !FindOrdinates(wish, choice).empty();
}

std::vector<std::size_t> OrdinatesOf(const TFitWish& wish, const TColumnChoice& choice)
{
    std::vector<std::size_t> found = FindOrdinates(wish, choice);
    if (!found.empty())
        return found;
    std::vector<std::string> plotted;
    for (const TChosenColumn& y : choice.Ys)
        plotted.push_back(y.Name);
    Fail("--fit", "\"" + wish.Column + "\" is not among the ordinates " + ListOf(plotted));
}

void CheckKind(const TSeriesKind& kind)
{
    if (kind.HasBars || kind.HasArrows)
        Fail("--fit", "curves go through points, not through bars or arrows");
}

void CheckFit(const TFitWish& wish, const TColumnChoice& choice)
{
    OrdinatesOf(wish, choice);
    try {
        CoefficientsOf(wish);
    } catch (const EConvertError& error) {
        Fail("--fit", "\"" + wish.Formula + "\": " + error.Message());
    }
}

std::vector<TFitWish> WishesOf(const TFitOptions& options, const TColumnChoice& choice)
{
    std::vector<TFitWish> wishes = options.Fits;
    for (const TFitWish& wish : wishes)
        CheckFit(wish, choice);
    GiveStartValues(wishes, options.Start);
    if (options.Range)
        GiveRange(wishes, *options.Range, choice.X);
    for (const std::string& name : options.Results)
        GiveResult(wishes, name);
    return wishes;
}

}  // namespace plotkit
