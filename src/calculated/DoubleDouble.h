// The job of DoubleDouble is arithmetic with about 106 bits: a number is the exact sum of two doubles.
//
// Exact sums: D. E. Knuth, The Art of Computer Programming, vol. 2, section 4.2.2. Exact products: T. J. Dekker, A
// floating-point technique for extending the available precision, Numer. Math. 18 (1971). Number arithmetic: Y. Hida,
// X. S. Li, D. H. Bailey, Algorithms for quad-double precision floating point arithmetic, ARITH-15 (2001).
// Needs rounding to nearest and code compiled without contraction. Factors beyond 2^995 overflow where the processor
// has no fused product; the error of a product below 2^-969 is lost: scale data by powers of two first.
#pragma once

#include <cmath>
#include <compare>

namespace plotkit {

/// `High` is the double nearest to the number, `Low` what it lacks.
struct TDoubleDouble
{
    double High = 0;
    double Low = 0;

    constexpr TDoubleDouble() = default;
    // A double is a number as it is: formulas mix both.
    constexpr TDoubleDouble(double value) : High(value) {}
    constexpr TDoubleDouble(double high, double low) : High(high), Low(low) {}

    explicit constexpr operator double() const { return High; }
    friend constexpr bool operator==(const TDoubleDouble&, const TDoubleDouble&) = default;
    friend constexpr auto operator<=>(const TDoubleDouble&, const TDoubleDouble&) = default;
};

/// a + b exactly, for |a| >= |b| or a = 0.
constexpr TDoubleDouble FastTwoSum(double a, double b)
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a + b exactly.
constexpr TDoubleDouble TwoSum(double a, double b)
{
    const double sum = a + b;
    const double shareOfB = sum - a;
    return {sum, (a - (sum - shareOfB)) + (b - shareOfB)};
}

/// a b exactly, on processors without a fused product.
constexpr TDoubleDouble TwoProductSplit(double a, double b)
{
    constexpr double splitter = 0x1p27 + 1;
    const double bigA = splitter * a;
    const double highA = bigA - (bigA - a);
    const double lowA = a - highA;
    const double bigB = splitter * b;
    const double highB = bigB - (bigB - b);
    const double lowB = b - highB;
    const double product = a * b;
    return {product, ((highA * highB - product) + highA * lowB + lowA * highB) + lowA * lowB};
}

/// a b exactly.
inline TDoubleDouble TwoProduct(double a, double b)
{
#ifdef FP_FAST_FMA
    const double product = a * b;
    return {product, std::fma(a, b, -product)};
#else
    return TwoProductSplit(a, b);
#endif
}

constexpr TDoubleDouble operator-(TDoubleDouble a)
{
    return {-a.High, -a.Low};
}

/// The error is below 2^-104 of the sum, also where the terms nearly cancel.
constexpr TDoubleDouble operator+(TDoubleDouble a, TDoubleDouble b)
{
    TDoubleDouble sum = TwoSum(a.High, b.High);
    const TDoubleDouble low = TwoSum(a.Low, b.Low);
    sum = FastTwoSum(sum.High, sum.Low + low.High);
    return FastTwoSum(sum.High, sum.Low + low.Low);
}

constexpr TDoubleDouble operator-(TDoubleDouble a, TDoubleDouble b)
{
    return a + -b;
}

inline TDoubleDouble operator*(TDoubleDouble a, TDoubleDouble b)
{
    const TDoubleDouble product = TwoProduct(a.High, b.High);
    return FastTwoSum(product.High, product.Low + (a.High * b.Low + a.Low * b.High));
}

/// Division by zero and overflow give infinities and NaN as doubles do.
inline TDoubleDouble operator/(TDoubleDouble a, TDoubleDouble b)
{
    const double first = a.High / b.High;
    if (!std::isfinite(first))
        return first;
    TDoubleDouble rest = a - b * first;
    const double second = rest.High / b.High;
    rest = rest - b * second;
    return FastTwoSum(first, second) + rest.High / b.High;
}

constexpr TDoubleDouble& operator+=(TDoubleDouble& a, TDoubleDouble b)
{
    return a = a + b;
}

constexpr TDoubleDouble& operator-=(TDoubleDouble& a, TDoubleDouble b)
{
    return a = a - b;
}

inline TDoubleDouble& operator*=(TDoubleDouble& a, TDoubleDouble b)
{
    return a = a * b;
}

inline TDoubleDouble& operator/=(TDoubleDouble& a, TDoubleDouble b)
{
    return a = a / b;
}

constexpr TDoubleDouble Abs(TDoubleDouble a)
{
    return a.High < 0 || (a.High == 0 && a.Low < 0) ? -a : a;
}

/// NaN for negative numbers.
inline TDoubleDouble Sqrt(TDoubleDouble a)
{
    const double root = std::sqrt(a.High);
    if (!(root > 0) || !std::isfinite(root))
        return root;
    const TDoubleDouble rest = a - TwoProduct(root, root);
    return FastTwoSum(root, rest.High / (2 * root));
}

/// a times 2^exponent, exact but for overflow and underflow.
inline TDoubleDouble ScaleByPowerOfTwo(TDoubleDouble a, int exponent)
{
    return {std::ldexp(a.High, exponent), std::ldexp(a.Low, exponent)};
}

}  // namespace plotkit
