#include "calculated/KxTypedFormula.h"

namespace plotkit {

namespace {

TKxFormulaCompiler TheCompiler = nullptr;

}  // namespace

TKxFormulaCompiler FormulaCompiler()
{
    return TheCompiler;
}

void SetFormulaCompiler(TKxFormulaCompiler compiler)
{
    TheCompiler = compiler;
}

}  // namespace plotkit
