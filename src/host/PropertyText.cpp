#include <algorithm>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/PropertyTable.h"
#include "host/StringList.h"
#include "host/ValueText.h"

namespace plotkit {

namespace {

std::string EnumerationText(const TPropertyRow& row, std::int64_t ordinal)
{
    const auto names = row.ValueNames;
    if (ordinal < 0 || ordinal >= static_cast<std::int64_t>(names.size()))
        return std::to_string(ordinal);
    return std::string(names[static_cast<std::size_t>(ordinal)]);
}

std::string Expected(const TPropertyRow& row)
{
    switch (row.Kind) {
        case pkBoolean:
            return "True or False";
        case pkInteger:
            return "an integer";
        case pkReal:
            return "a number";
        case pkText:
            return "a text in double quotes";
        case pkColor:
            return "a colour like $00FF0000";
        case pkEnumeration: {
            std::string names;
            for (const std::string_view name : row.ValueNames)
                names += (names.empty() ? "" : ", ") + std::string(name);
            return "one of " + names;
        }
        default:
            return "no single value";
    }
}

template <class T, class TSource>
std::optional<TPropertyValue> Wrapped(const std::optional<TSource>& value)
{
    return value ? std::optional<TPropertyValue>(T(*value)) : std::nullopt;
}

std::optional<TPropertyValue> ParseEnumeration(const TPropertyRow& row, std::string_view text)
{
    const auto name = std::ranges::find_if(row.ValueNames, [text](std::string_view n) { return SameText(n, text); });
    if (name == row.ValueNames.end())
        return {};
    return std::int64_t{name - row.ValueNames.begin()};
}

std::optional<TPropertyValue> Parsed(const TPropertyRow& row, std::string_view text)
{
    switch (row.Kind) {
        case pkBoolean:
            if (SameText(text, "True") || SameText(text, "False"))
                return SameText(text, "True");
            return {};
        case pkInteger:
            return Wrapped<std::int64_t>(ParseInteger(text));
        case pkReal:
            return Wrapped<double>(ParseExactReal(text));
        case pkText:
            return Wrapped<std::string>(UnquoteText(text));
        case pkColor:
            return Wrapped<std::int64_t>(ParseColorText(text));
        case pkEnumeration:
            return ParseEnumeration(row, text);
        default:
            return {};
    }
}

}  // namespace

std::string PropertyText(const TPropertyRow& row, const TPropertyValue& value)
{
    switch (row.Kind) {
        case pkBoolean:
            return std::get<bool>(value) ? "True" : "False";
        case pkInteger:
            return std::to_string(std::get<std::int64_t>(value));
        case pkReal:
            return FormatExact(std::get<double>(value));
        case pkText:
            return QuoteText(std::get<std::string>(value));
        case pkColor:
            return ColorText(static_cast<std::int32_t>(std::get<std::int64_t>(value)));
        case pkEnumeration:
            return EnumerationText(row, std::get<std::int64_t>(value));
        default:
            throw EConvertError(std::string(row.Name) + " has no single value");
    }
}

TPropertyValue ParsePropertyText(const TPropertyRow& row, std::string_view text)
{
    text = TrimBlanks(text);
    if (auto value = Parsed(row, text))
        return *std::move(value);
    throw EConvertError(Expected(row) + " was expected, not " + (text.empty() ? "nothing" : Excerpt(text)));
}

}  // namespace plotkit
