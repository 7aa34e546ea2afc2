// The job of KxFormula is to turn a typed text such as "a*exp(-b*x)+c" into the model of a fit.
#pragma once

#include <string_view>

#include "calculated/KxTypedFormula.h"

namespace plotkit {

/// `x` is the variable, every other letter that stands alone a coefficient, in alphabetical order (`e` too), `pi` the
/// constant. Operators + - * / ^ (to the right, before signs), brackets, and the functions of `FormulaFunctions`; the
/// decimal separator is the point. Letter case and blanks do not count. EConvertError says at which character, from 1,
/// the text is wrong and what was expected there.
TKxTypedFormula CompileFormula(std::string_view text);

/// The names of all functions, separated by ", ".
std::string_view FormulaFunctions();

/// Lets fitted lines compile their expressions; to be called at the program's start.
void UseTypedFormulas();

}  // namespace plotkit
