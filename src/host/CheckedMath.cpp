#include "host/CheckedMath.h"

#include <cmath>
#include <limits>

#include "host/Errors.h"

namespace plotkit {

namespace {

[[noreturn]] void RaiseZeroDivide()
{
    throw EMathError("Floating point division by zero");
}

[[noreturn]] void RaiseInvalid()
{
    throw EMathError("Invalid floating point operation");
}

double Finite(double result, double a, double b)
{
    if (std::isinf(result) && std::isfinite(a) && std::isfinite(b))
        throw EMathError("Floating point overflow");
    return result;
}

template <class TInteger>
TInteger RoundSaturated(double value)
{
    // 2^63 is a double, the largest 64-bit integer is not: the upper bound is compared as a power of two.
    constexpr double bound = -static_cast<double>(std::numeric_limits<TInteger>::min());
    if (std::isnan(value))
        return 0;
    const double rounded = std::nearbyint(value);
    if (rounded >= bound)
        return std::numeric_limits<TInteger>::max();
    if (rounded < -bound)
        return std::numeric_limits<TInteger>::min();
    return static_cast<TInteger>(rounded);
}

}  // namespace

double Divide(double dividend, double divisor)
{
    if (divisor == 0)
        RaiseZeroDivide();
    return Finite(dividend / divisor, dividend, divisor);
}

double Log10(double value)
{
    if (!(value > 0))
        RaiseInvalid();
    return std::log10(value);
}

double SquareRoot(double value)
{
    if (value < 0)
        RaiseInvalid();
    return std::sqrt(value);
}

double Power(double base, double exponent)
{
    if (base == 0 && exponent < 0)
        RaiseZeroDivide();
    const double result = std::pow(base, exponent);
    if (std::isnan(result) && !std::isnan(base) && !std::isnan(exponent))
        RaiseInvalid();
    return Finite(result, base, exponent);
}

std::int32_t RoundToInt(double value)
{
    return RoundSaturated<std::int32_t>(value);
}

std::int64_t RoundToInt64(double value)
{
    return RoundSaturated<std::int64_t>(value);
}

}  // namespace plotkit
