// The job of KxFormulaText is what a formula's text is made of: its letters and the functions it can name.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace plotkit {

struct TKxFormulaFunction
{
    std::string_view Name;
    double (*One)(double) = nullptr;  ///< of one argument
    double (*Two)(double, double) = nullptr;
};
/// In alphabetical order.
std::span<const TKxFormulaFunction> FormulaFunctionTable();

/// In lower case, with a blank for every control character; as long as `text`.
std::string PlainFormulaText(std::string_view text);

/// Letters but `x` that stand alone between operators, brackets, commas and the ends, and call nothing; each once, in
/// alphabetical order.
std::string CoefficientLetters(std::string_view plain);

/// The name, number or character that starts at a byte.
std::string_view FormulaWordAt(std::string_view plain, std::size_t position);

}  // namespace plotkit
