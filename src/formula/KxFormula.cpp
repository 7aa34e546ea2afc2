#include "formula/KxFormula.h"

#include <muParser.h>

#include <string>
#include <vector>

#include "formula/KxFormulaErrors.h"
#include "formula/KxFormulaProgram.h"
#include "formula/KxFormulaText.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

/// The parser's operators get nothing but their operands.
thread_local TKxFormulaProgram* TheProgram = nullptr;

template <double (TKxFormulaProgram::*Operation)(double, double)>
double Record(double a, double b)
{
    return (TheProgram->*Operation)(a, b);
}

double RecordMinus(double a)
{
    return TheProgram->Negate(a);
}

double Unchanged(double a)
{
    return a;
}

double RecordCall1(void* function, double a)
{
    return TheProgram->Call(static_cast<const TKxFormulaFunction*>(function)->One, a);
}

double RecordCall2(void* function, double a, double b)
{
    return TheProgram->Call(static_cast<const TKxFormulaFunction*>(function)->Two, a, b);
}

void DefineLanguage(mu::Parser& parser)
{
    parser.ClearFun();
    parser.ClearConst();
    parser.ClearInfixOprt();
    parser.ClearPostfixOprt();
    parser.EnableBuiltInOprt(false);
    parser.EnableOptimizer(false);
    parser.DefineOprt("+", Record<&TKxFormulaProgram::Add>, mu::prADD_SUB);
    parser.DefineOprt("-", Record<&TKxFormulaProgram::Subtract>, mu::prADD_SUB);
    parser.DefineOprt("*", Record<&TKxFormulaProgram::Multiply>, mu::prMUL_DIV);
    parser.DefineOprt("/", Record<&TKxFormulaProgram::Divide>, mu::prMUL_DIV);
    parser.DefineOprt("^", Record<&TKxFormulaProgram::Power>, mu::prPOW, mu::oaRIGHT);
    parser.DefineInfixOprt("-", RecordMinus, mu::prINFIX, false);
    parser.DefineInfixOprt("+", Unchanged, mu::prINFIX, false);
    parser.DefineConst("pi", 3.14159265358979323846);
    for (const TKxFormulaFunction& function : FormulaFunctionTable()) {
        // The parser hands the pointer back as it is and never writes through it.
        void* entry = const_cast<TKxFormulaFunction*>(&function);
        if (function.One)
            parser.DefineFunUserData(std::string(function.Name), RecordCall1, entry, false);
        else
            parser.DefineFunUserData(std::string(function.Name), RecordCall2, entry, false);
    }
}

/// The parser reads the text and once calls the operators and functions in their order; they record the program.
TKxFormulaProgram Compile(const std::string& text, const std::string& letters)
{
    TKxFormulaProgram program(letters.size());
    const TRestore<TKxFormulaProgram*> restore(TheProgram, &program);
    mu::Parser parser;
    DefineLanguage(parser);
    double abscissa = program.Abscissa();
    std::vector<double> coefficients(letters.size());
    parser.DefineVar("x", &abscissa);
    for (std::size_t k = 0; k < letters.size(); ++k) {
        coefficients[k] = program.Coefficient(k);
        parser.DefineVar(std::string(1, letters[k]), &coefficients[k]);
    }
    parser.SetExpr(text);
    program.Finish(parser.Eval());
    return program;
}

}  // namespace

TKxTypedFormula CompileFormula(std::string_view text)
{
    const std::string plain = PlainFormulaText(text);
    CheckFormulaText(plain);
    const std::string letters = CoefficientLetters(plain);
    try {
        return {TKxFittingFkt([program = Compile(plain, letters)](std::span<const double> x, std::span<double> coefs,
                                                                  double* y) mutable { program.Run(x, coefs, y); }),
                letters};
    } catch (const mu::Parser::exception_type& error) {
        RaiseFormulaError(plain, error.GetCode(), error.GetPos());
    }
}

void UseTypedFormulas()
{
    SetFormulaCompiler(&CompileFormula);
}

}  // namespace plotkit
