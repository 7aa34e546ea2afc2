// The job of KxFormulaProgram is to run the steps of a formula over blocks of abscissae.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace plotkit {

/// Is recorded operation by operation. While recording, values are doubles: numbers stand for themselves, what is known
/// only when the program runs is a NaN that says where to find it. Each recorded value is used once.
class TKxFormulaProgram
{
public:
    using TFunction1 = double (*)(double);
    using TFunction2 = double (*)(double, double);

    explicit TKxFormulaProgram(std::size_t coefficients);

    double Abscissa() const;
    double Coefficient(std::size_t k) const;

    double Add(double a, double b) { return Record({.Kind = kAdd}, a, b); }
    double Subtract(double a, double b) { return Record({.Kind = kSubtract}, a, b); }
    double Multiply(double a, double b) { return Record({.Kind = kMultiply}, a, b); }
    double Divide(double a, double b) { return Record({.Kind = kDivide}, a, b); }
    double Negate(double a) { return Record({.Kind = kNegate}, a, a); }
    double Power(double base, double exponent);
    double Call(TFunction1 function, double a) { return Record({.Kind = kCall1, .Function1 = function}, a, a); }
    double Call(TFunction2 function, double a, double b)
    {
        return Record({.Kind = kCall2, .Function2 = function}, a, b);
    }
    void Finish(double result) { FResult = PlaceOf(result); }

    /// EMathError when there are fewer coefficients than the formula has.
    void Run(std::span<const double> x, std::span<const double> coefs, double* y);

private:
    enum TKind : std::uint8_t
    {
        kAdd,
        kSubtract,
        kMultiply,
        kDivide,
        kNegate,
        kSquare,
        kCube,
        kCall1,
        kCall2
    };
    /// A single value, or a block with one value per abscissa; block 0 is the abscissae.
    struct TPlace
    {
        bool IsBlock = false;
        std::uint32_t Index = 0;
    };
    struct TStep
    {
        TKind Kind = kAdd;
        TFunction1 Function1 = nullptr;
        TFunction2 Function2 = nullptr;
        TPlace A = {}, B = {}, Result = {};
    };

    static double ToDouble(TPlace place);
    TPlace PlaceOf(double value);
    double Record(TStep step, double a, double b);
    std::uint32_t FreeBlock();
    void Release(TPlace place);

    double* BlockAt(std::uint32_t index) { return &FBlocks[(index - 1) * BlockSize]; }
    void RunOnSingles(const TStep& step);
    void RunOnBlock(const TStep& step, const double* x, std::size_t count);
    template <class TOperation>
    void Apply(const TStep& step, const double* x, std::size_t count, TOperation operation);

    static constexpr std::size_t BlockSize = 256;

    std::size_t FCoefficients;
    std::vector<double> FSingles;  ///< the coefficients, then numbers and what is made of both
    std::vector<double> FBlocks;
    std::vector<std::uint32_t> FFree;  ///< blocks whose value has been used
    std::vector<TStep> FOnSingles, FOnBlocks;
    TPlace FResult;
};

}  // namespace plotkit
