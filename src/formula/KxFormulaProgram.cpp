#include "formula/KxFormulaProgram.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::uint64_t QuietNaN = 0x7FF8000000000000;
constexpr std::uint64_t BlockBit = std::uint64_t{1} << 40;
constexpr std::uint64_t StandInBit = std::uint64_t{1} << 41;

}  // namespace

TKxFormulaProgram::TKxFormulaProgram(std::size_t coefficients) : FCoefficients(coefficients), FSingles(coefficients) {}

double TKxFormulaProgram::Abscissa() const
{
    return ToDouble({true, 0});
}

double TKxFormulaProgram::Coefficient(std::size_t k) const
{
    return ToDouble({false, static_cast<std::uint32_t>(k)});
}

double TKxFormulaProgram::Power(double base, double exponent)
{
    if (exponent == 1)
        return base;
    if (exponent == 2)
        return Record({.Kind = kSquare}, base, base);
    if (exponent == 3)
        return Record({.Kind = kCube}, base, base);
    return Call(static_cast<TFunction2>(&std::pow), base, exponent);
}

double TKxFormulaProgram::ToDouble(TPlace place)
{
    return std::bit_cast<double>(QuietNaN | StandInBit | (place.IsBlock ? BlockBit : 0) | place.Index);
}

TKxFormulaProgram::TPlace TKxFormulaProgram::PlaceOf(double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if ((bits & (QuietNaN | StandInBit)) == (QuietNaN | StandInBit))
        return {(bits & BlockBit) != 0, static_cast<std::uint32_t>(bits)};
    FSingles.push_back(value);
    return {false, static_cast<std::uint32_t>(FSingles.size() - 1)};
}

double TKxFormulaProgram::Record(TStep step, double a, double b)
{
    step.A = PlaceOf(a);
    step.B = std::isnan(a) && std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ? step.A : PlaceOf(b);
    const bool isUnary = step.Kind >= kNegate && step.Kind != kCall2;
    Release(step.A);
    if (!isUnary)
        Release(step.B);
    step.Result.IsBlock = step.A.IsBlock || step.B.IsBlock;
    if (step.Result.IsBlock) {
        step.Result.Index = FreeBlock();
        FOnBlocks.push_back(step);
    } else {
        FSingles.push_back(0);
        step.Result.Index = static_cast<std::uint32_t>(FSingles.size() - 1);
        FOnSingles.push_back(step);
    }
    return ToDouble(step.Result);
}

std::uint32_t TKxFormulaProgram::FreeBlock()
{
    if (FFree.empty()) {
        FBlocks.resize(FBlocks.size() + BlockSize);
        return static_cast<std::uint32_t>(FBlocks.size() / BlockSize);
    }
    const std::uint32_t index = FFree.back();
    FFree.pop_back();
    return index;
}

void TKxFormulaProgram::Release(TPlace place)
{
    if (place.IsBlock && place.Index > 0)
        FFree.push_back(place.Index);
}

void TKxFormulaProgram::Run(std::span<const double> x, std::span<const double> coefs, double* y)
{
    if (coefs.size() < FCoefficients)
        throw EMathError("Formula: " + std::to_string(FCoefficients) + " coefficients expected, " +
                         std::to_string(coefs.size()) + " given");
    std::copy_n(coefs.begin(), FCoefficients, FSingles.begin());
    for (const TStep& step : FOnSingles)
        RunOnSingles(step);
    for (std::size_t first = 0; first < x.size(); first += BlockSize) {
        const std::size_t count = std::min(BlockSize, x.size() - first);
        const double* abscissae = x.data() + first;
        for (const TStep& step : FOnBlocks)
            RunOnBlock(step, abscissae, count);
        if (!FResult.IsBlock)
            std::fill_n(y + first, count, FSingles[FResult.Index]);
        else
            std::copy_n(FResult.Index == 0 ? abscissae : BlockAt(FResult.Index), count, y + first);
    }
}

void TKxFormulaProgram::RunOnSingles(const TStep& step)
{
    const double a = FSingles[step.A.Index], b = FSingles[step.B.Index];
    double& result = FSingles[step.Result.Index];
    switch (step.Kind) {
        case kAdd:
            result = a + b;
            break;
        case kSubtract:
            result = a - b;
            break;
        case kMultiply:
            result = a * b;
            break;
        case kDivide:
            result = a / b;
            break;
        case kNegate:
            result = -a;
            break;
        case kSquare:
            result = a * a;
            break;
        case kCube:
            result = a * a * a;
            break;
        case kCall1:
            result = step.Function1(a);
            break;
        case kCall2:
            result = step.Function2(a, b);
            break;
    }
}

template <class TOperation>
void TKxFormulaProgram::Apply(const TStep& step, const double* x, std::size_t count, TOperation operation)
{
    const auto block = [&](TPlace place) -> const double* {
        return !place.IsBlock ? nullptr : place.Index == 0 ? x : BlockAt(place.Index);
    };
    double* result = BlockAt(step.Result.Index);
    const double* a = block(step.A);
    const double* b = block(step.B);
    const double singleA = a ? 0 : FSingles[step.A.Index], singleB = b ? 0 : FSingles[step.B.Index];
    if (a && b)
        for (std::size_t i = 0; i < count; ++i)
            result[i] = operation(a[i], b[i]);
    else if (a)
        for (std::size_t i = 0; i < count; ++i)
            result[i] = operation(a[i], singleB);
    else
        for (std::size_t i = 0; i < count; ++i)
            result[i] = operation(singleA, b[i]);
}

void TKxFormulaProgram::RunOnBlock(const TStep& step, const double* x, std::size_t count)
{
    switch (step.Kind) {
        case kAdd:
            return Apply(step, x, count, [](double a, double b) { return a + b; });
        case kSubtract:
            return Apply(step, x, count, [](double a, double b) { return a - b; });
        case kMultiply:
            return Apply(step, x, count, [](double a, double b) { return a * b; });
        case kDivide:
            return Apply(step, x, count, [](double a, double b) { return a / b; });
        case kNegate:
            return Apply(step, x, count, [](double a, double) { return -a; });
        case kSquare:
            return Apply(step, x, count, [](double a, double) { return a * a; });
        case kCube:
            return Apply(step, x, count, [](double a, double) { return a * a * a; });
        case kCall1:
            return Apply(step, x, count, [call = step.Function1](double a, double) { return call(a); });
        case kCall2:
            return Apply(step, x, count, [call = step.Function2](double a, double b) { return call(a, b); });
    }
}

}  // namespace plotkit
