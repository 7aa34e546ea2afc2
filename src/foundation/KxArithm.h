// The job of KxArithm is powers of ten, decimal exponents and rounding to round steps.
//
// Decimal shifts go through the decimal text of a number, not through binary multiplication: 0.3 shifted by powers of
// ten keeps exactly its digits. Functions that round tolerate what binary representation adds to a value at a step.
#pragma once

#include <cstdint>

#include "foundation/KxConsts.h"
#include "host/Types.h"

namespace plotkit {

/// The box with these two corners, whichever they are.
TRect OrderedRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2);

/// Copies every element of `source` to the same place in `dest`, which is not resized: ERangeError when it is shorter.
void AssignRealArrays(const TKxRealArray& source, TKxRealArray& dest);

void SwapReal(double& a, double& b);
void SwapInteger(int& a, int& b);

/// 10 to the power x; exactly 1 for 0, 1.7e308 on overflow.
double Exp10(double x);
/// 10 to the power n by repeated multiplication; 1.7e308 on overflow.
double IntExp10(int n);

/// Decimal exponent of x after rounding to 15 significant digits; 0 for 0, NaN and infinities.
int GetExponent(double x);
/// x times 10 to the power -n, exact in decimal digits after rounding x to 15 of them. x itself when the result is
/// beyond doubles, and for NaN and infinities.
double ExpMinus(double x, int n);

/// Up to a multiple of step * 10^exponent. A positive value at most 0.1 % of a step above a multiple counts as that
/// multiple; a value <= 0 may lie 1e-9 * 10^exponent above one. A step of 0 gives NaN.
double RoundUp(double value, double step, int exponent);
/// Down to a multiple of step * 10^exponent, the mirror image of `RoundUp`.
double RoundDown(double value, double step, int exponent);

/// The mantissa of value / base rounded up to a multiple of `step`; a rounded mantissa below 1.1 gives the exact
/// decade. EMathError when value / base is not positive.
double RoundLogUp(double value, double base, double step);
/// The same downwards.
double RoundLogDown(double value, double base, double step);

/// Number of significant digits of x, at most 15; 0 for 0, NaN and infinities.
int LastSignificant(double x);

/// Horner's scheme over the first degree + 1 coefficients, lowest power first. There must be that many; a negative
/// degree gives 0.
double EvaluatePolynomial(TKxRealArray coefficients, double x, std::int16_t degree);

}  // namespace plotkit
