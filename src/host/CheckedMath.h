// The job of CheckedMath is arithmetic that raises where it has no result.
#pragma once

#include <cstdint>

namespace plotkit {

/// NaN and infinite operands are carried on as IEEE 754 has it; only finite ones can raise, unless stated otherwise.

/// EMathError "Floating point division by zero", for any dividend, or "Floating point overflow".
double Divide(double dividend, double divisor);
/// EMathError "Invalid floating point operation" unless `value` is positive (NaN is not).
double Log10(double value);
/// EMathError "Invalid floating point operation" for negative values.
double SquareRoot(double value);
/// EMathError "Floating point overflow" when the result is beyond doubles, "Floating point division by zero" for 0 to a
/// negative power, "Invalid floating point operation" for a broken power of a negative base.
double Power(double base, double exponent);

/// To the nearest integer, ties to even; positions beyond 32 bits saturate, NaN gives 0.
std::int32_t RoundToInt(double value);
/// The same with 64 bits.
std::int64_t RoundToInt64(double value);

}  // namespace plotkit
