#include "foundation/KxArithm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "host/CheckedMath.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"

namespace plotkit {

namespace {

constexpr double Overflown = 1.7e308;

// The parts of the scientific text: sign, mantissa, "E", exponent with its sign.
constexpr std::size_t MantissaStart = 1, MantissaLength = 16, ExponentStart = 18;
/// Share of a step that a value may lie beyond a multiple of the step without counting as beyond it.
constexpr double StepTolerance = 0.001;
constexpr double AbsoluteTolerance = 1e-9;

/// A number whose shortest text has up to 15 digits: `Digits` * 10^`LastAt`, positive, the first one at 10^`FirstAt`.
struct TShortDecimal
{
    std::int64_t Digits = 0;
    int FirstAt = 0, LastAt = 0;
};

/// Most numbers of axes are short. Their shortest digits are those that rounding to 15 would leave.
std::optional<TShortDecimal> ShortDecimalOf(double x)
{
    constexpr int mostDigits = 15;
    // The shortest digits of a number next to 0 say less than those of its value.
    if (x != 0 && std::fabs(x) < std::numeric_limits<double>::min())
        return std::nullopt;
    std::array<char, 32> text{};
    const char* const end =
        std::to_chars(text.data(), text.data() + text.size(), std::fabs(x), std::chars_format::scientific).ptr;
    TShortDecimal decimal;
    int count = 0;
    const char* at = text.data();
    for (; *at != 'e'; ++at)
        if (*at != '.') {
            decimal.Digits = 10 * decimal.Digits + (*at - '0');
            if (++count > mostDigits)
                return std::nullopt;
        }
    ++at;
    std::from_chars(at + (*at == '+'), end, decimal.FirstAt);
    decimal.LastAt = decimal.FirstAt - count + 1;
    return decimal;
}

/// Powers of ten that doubles hold exactly.
constexpr std::array ExactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double StepsTowardsZero(double value, double step)
{
    return std::trunc(value / step) * step;
}

double RoundLog(double value, double base, double step, bool up)
{
    const double logarithm = Log10(Divide(value, base));
    double whole = std::trunc(logarithm);
    double fraction = logarithm - whole;
    if (fraction < 0) {
        fraction += 1;
        whole -= 1;
    }
    const double mantissa = Exp10(fraction);
    const double rounded = up ? RoundUp(mantissa, step, 0) : RoundDown(mantissa, step, 0);
    // A mantissa that is only near 1 would miss the exact power of ten.
    if (rounded < 1.1)
        return Exp10(whole) * base;
    return Exp10(Log10(rounded) + whole) * base;
}

}  // namespace

TRect OrderedRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2)
{
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

void AssignRealArrays(const TKxRealArray& source, TKxRealArray& dest)
{
    if (dest.Length() < source.Length())
        throw ERangeError("Array of " + std::to_string(dest.Length()) + " elements is too short for " +
                          std::to_string(source.Length()));
    const TKxRealArray kept = source;
    std::copy_n(kept.Read(), kept.Length(), dest.Write());
}

void SwapReal(double& a, double& b)
{
    std::swap(a, b);
}

void SwapInteger(int& a, int& b)
{
    std::swap(a, b);
}

double Exp10(double x)
{
    if (x == 0)
        return 1;
    const double result = std::pow(10.0, x);
    return std::isinf(result) ? Overflown : result;
}

double IntExp10(int n)
{
    // A wider type keeps the reciprocals of powers that doubles cannot hold exactly.
    long double result = 1, factor = 10;
    for (auto rest = static_cast<std::uint32_t>(std::abs(static_cast<long long>(n))); rest > 0; rest >>= 1) {
        if (rest & 1)
            result *= factor;
        factor *= factor;
    }
    const auto power = static_cast<double>(n < 0 ? 1 / result : result);
    return std::isinf(power) ? Overflown : power;
}

int GetExponent(double x)
{
    if (!std::isfinite(x))
        return 0;
    if (const auto decimal = ShortDecimalOf(x))
        return decimal->FirstAt;
    return static_cast<int>(ParseInteger(FormatScientific(x).substr(ExponentStart)).value_or(0));
}

double ExpMinus(double x, int n)
{
    if (!std::isfinite(x))
        return x;
    if (const auto decimal = ShortDecimalOf(x)) {
        // One operation on two exact numbers rounds once, as reading the digits would (Clinger, 1990).
        const std::int64_t shift = std::int64_t{decimal->LastAt} - n;
        const auto places = static_cast<std::size_t>(std::abs(shift));
        const auto digits = static_cast<double>(x < 0 ? -decimal->Digits : decimal->Digits);
        if (places < ExactPowers.size())
            return shift < 0 ? digits / ExactPowers[places] : digits * ExactPowers[places];
    }
    const std::string text = FormatScientific(x);
    const long long exponent = ParseInteger(text.substr(ExponentStart)).value_or(0) - n;
    const std::string shifted =
        (x < 0 ? "-" : "") + text.substr(MantissaStart, MantissaLength) + "E" + std::to_string(exponent);
    const double result = ParseReal(shifted).value_or(x);
    return std::isfinite(result) ? result : x;
}

double RoundUp(double value, double step, int exponent)
{
    double units = ExpMinus(value, exponent);
    if (value > 0)
        units = units + step - StepTolerance * step;
    else
        units -= AbsoluteTolerance;
    return ExpMinus(StepsTowardsZero(units, step), -exponent);
}

double RoundDown(double value, double step, int exponent)
{
    double units = ExpMinus(value, exponent);
    if (value < 0)
        units -= step - StepTolerance * step;
    else
        units += AbsoluteTolerance;
    return ExpMinus(StepsTowardsZero(units, step), -exponent);
}

double RoundLogUp(double value, double base, double step)
{
    return RoundLog(value, base, step, true);
}

double RoundLogDown(double value, double base, double step)
{
    return RoundLog(value, base, step, false);
}

int LastSignificant(double x)
{
    if (!std::isfinite(x))
        return 0;
    std::string digits = FormatScientific(x).substr(MantissaStart, MantissaLength);
    digits.erase(1, 1);
    return static_cast<int>(digits.find_last_not_of('0') + 1);
}

double EvaluatePolynomial(TKxRealArray coefficients, double x, std::int16_t degree)
{
    if (degree < 0)
        return 0;
    double result = coefficients[static_cast<std::size_t>(degree)];
    for (auto i = static_cast<std::size_t>(degree); i-- > 0;)
        result = result * x + coefficients[i];
    return result;
}

}  // namespace plotkit
