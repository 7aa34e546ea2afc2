// The job of KxTypedFormula is the place where a program that has typed formulas says who compiles them.
#pragma once

#include <string>
#include <string_view>

#include "calculated/KxFittingFkt.h"

namespace plotkit {

struct TKxTypedFormula
{
    TKxFittingFkt Function;
    std::string Coefficients;  ///< their letters, in the order of the function's coefficients
};

/// EConvertError says where the text is wrong and what was expected.
using TKxFormulaCompiler = TKxTypedFormula (*)(std::string_view text);

/// None at the start: texts are then only carried along.
TKxFormulaCompiler FormulaCompiler();
/// To be called at the program's start, before components are made or read.
void SetFormulaCompiler(TKxFormulaCompiler compiler);

}  // namespace plotkit
