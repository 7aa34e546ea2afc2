#include "formula/KxFormulaErrors.h"

#include <muParser.h>

#include <algorithm>
#include <string>
#include <vector>

#include "formula/KxFormula.h"
#include "formula/KxFormulaText.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::string_view Operand = R"(a number, "x", a coefficient (one letter), "pi", a function or "(")";
constexpr std::string_view WordCharacters = "abcdefghijklmnopqrstuvwxyz0123456789_.";
constexpr std::string_view OtherCharacters = "+-*/^(), ";

[[noreturn]] void Raise(std::string_view plain, std::size_t position, std::string_view expected)
{
    position = std::min(position, plain.size());
    const auto characters = std::ranges::count_if(plain.substr(0, position), [](char c) { return (c & 0xC0) != 0x80; });
    std::string found = "the end";
    if (position < plain.size())
        found = '"' + std::string(FormulaWordAt(plain, position)) + '"';
    throw EConvertError("Formula, position " + std::to_string(characters + 1) + ": " + std::string(expected) +
                        " expected, " + found + " found");
}

const TKxFormulaFunction* FindFunction(std::string_view word)
{
    const auto table = FormulaFunctionTable();
    const auto found = std::ranges::find(table, word, &TKxFormulaFunction::Name);
    return found == table.end() ? nullptr : &*found;
}

/// In the bracket that follows a name, or anything else.
std::size_t CommasOf(std::string_view name)
{
    const TKxFormulaFunction* const function = FindFunction(name);
    return function && function->Two ? 1 : 0;
}

/// What may stand at a byte, judged by what stands before it.
[[noreturn]] void RaiseAt(std::string_view plain, std::size_t position)
{
    position = std::min(position, plain.size());
    const std::size_t before = plain.substr(0, position).find_last_not_of(' ');
    const bool isOperand =
        before == std::string_view::npos || std::string_view("+-*/^(,").find(plain[before]) != std::string_view::npos;
    if (!isOperand) {
        const auto depth =
            std::ranges::count(plain.substr(0, position), '(') - std::ranges::count(plain.substr(0, position), ')');
        Raise(plain, position, depth > 0 ? "an operator or \")\"" : "an operator or the end");
    }
    if (position < plain.size()) {
        const std::string_view word = FormulaWordAt(plain, position);
        const std::size_t behind = std::min(plain.find_first_not_of(' ', position + word.size()), plain.size());
        if (FindFunction(word))
            Raise(plain, behind, "\"(\"");
        if (WordCharacters.find(word[0]) != std::string_view::npos && behind < plain.size() && plain[behind] == '(')
            Raise(plain, position, "one of the functions " + std::string(FormulaFunctions()));
    }
    Raise(plain, position, Operand);
}

}  // namespace

void CheckFormulaText(std::string_view plain)
{
    std::vector<std::size_t> commas;  // that may still come, for each bracket that is open
    std::string_view name;
    for (std::size_t i = 0; i < plain.size();) {
        const std::string_view word = FormulaWordAt(plain, i);
        if (WordCharacters.find(word[0]) == std::string_view::npos &&
            OtherCharacters.find(word[0]) == std::string_view::npos)
            RaiseAt(plain, i);
        if (word == "(") {
            commas.push_back(CommasOf(name));
        } else if (word == ")" && !commas.empty()) {
            commas.pop_back();
        } else if (word == ",") {
            if (commas.empty() || commas.back() == 0)
                RaiseAt(plain, i);
            --commas.back();
        }
        if (word != " ")
            name = word;
        i += word.size();
    }
}

[[noreturn]] void RaiseFormulaError(std::string_view plain, int code, int position)
{
    const std::size_t at = position < 0 ? 0 : static_cast<std::size_t>(position);
    switch (code) {
        case mu::ecTOO_FEW_PARAMS:
            if (at > 0 && plain[std::min(at, plain.size()) - 1] != '(')
                Raise(plain, at, "\",\"");
            break;
        case mu::ecEXPRESSION_TOO_LONG:
            throw EConvertError("Formula: the text is too long");
        default:
            break;
    }
    RaiseAt(plain, at);
}

std::string_view FormulaFunctions()
{
    static const std::string names = [] {
        std::string list;
        for (const TKxFormulaFunction& function : FormulaFunctionTable())
            list += (list.empty() ? "" : ", ") + std::string(function.Name);
        return list;
    }();
    return names;
}

}  // namespace plotkit
