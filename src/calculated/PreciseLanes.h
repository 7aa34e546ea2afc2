// The job of PreciseLanes is to run sums of two doubles over many points with the processor's vector instructions.
#pragma once

#include <cmath>
#include <cstddef>

#include "calculated/DoubleDouble.h"

// The loops below run over strips of fixed length whose elements do not depend on each other: compilers turn them into
// vector code without being allowed to reorder any sum.
#if defined(__x86_64__) && defined(__GNUC__)
#define PLOTKIT_FUSED_VARIANTS
#endif

#define PLOTKIT_INLINE [[gnu::always_inline]] inline

namespace plotkit {

inline constexpr std::size_t StripLength = 32;
// Sums are brought back to high and low part before the low part has grown enough to lose bits.
inline constexpr std::size_t StripsPerRenewal = 16;

struct alignas(64) TLanes
{
    double Values[StripLength] = {};

    double& operator[](std::size_t i) { return Values[i]; }
    const double& operator[](std::size_t i) const { return Values[i]; }
};

struct TPreciseLanes
{
    TLanes High;
    TLanes Low;
};

struct TFused
{
    PLOTKIT_INLINE static double MultiplyAdd(double a, double b, double c) { return __builtin_fma(a, b, c); }
    PLOTKIT_INLINE static TDoubleDouble Product(double a, double b) { return {a * b, __builtin_fma(a, b, -(a * b))}; }
};

struct TPlain
{
    PLOTKIT_INLINE static double MultiplyAdd(double a, double b, double c) { return a * b + c; }
    PLOTKIT_INLINE static TDoubleDouble Product(double a, double b) { return TwoProductSplit(a, b); }
};

#ifdef FP_FAST_FMA
using TUsual = TFused;
#else
using TUsual = TPlain;
#endif

PLOTKIT_INLINE void Add(const TPreciseLanes& terms, TPreciseLanes& sums)
{
    for (std::size_t i = 0; i < StripLength; ++i) {
        const TDoubleDouble sum = TwoSum(sums.High[i], terms.High[i]);
        sums.High[i] = sum.High;
        sums.Low[i] += sum.Low + terms.Low[i];
    }
}

template <class TArithmetic>
PLOTKIT_INLINE void Multiply(TPreciseLanes& values, const TPreciseLanes& factors)
{
    for (std::size_t i = 0; i < StripLength; ++i) {
        TDoubleDouble product = TArithmetic::Product(values.High[i], factors.High[i]);
        product.Low = TArithmetic::MultiplyAdd(values.High[i], factors.Low[i], product.Low);
        values.Low[i] = TArithmetic::MultiplyAdd(values.Low[i], factors.High[i], product.Low);
        values.High[i] = product.High;
    }
}

PLOTKIT_INLINE void Renew(TPreciseLanes* sums, std::size_t count)
{
    for (std::size_t k = 0; k < count; ++k) {
        for (std::size_t i = 0; i < StripLength; ++i) {
            const TDoubleDouble sum = TwoSum(sums[k].High[i], sums[k].Low[i]);
            sums[k].High[i] = sum.High;
            sums[k].Low[i] = sum.Low;
        }
    }
}

#ifdef PLOTKIT_FUSED_VARIANTS
template <class TKernel>
[[gnu::target("avx2,fma")]] void RunOnAvx2(TKernel& kernel)
{
    kernel.template Run<TFused>();
}

template <class TKernel>
[[gnu::target("avx2,fma,avx512f,avx512vl,avx512dq")]] void RunOnAvx512(TKernel& kernel)
{
    kernel.template Run<TFused>();
}
#endif

template <class TKernel>
void RunOnUsual(TKernel& kernel)
{
    kernel.template Run<TUsual>();
}

template <class TKernel>
void Run(TKernel&& kernel)
{
#ifdef PLOTKIT_FUSED_VARIANTS
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq"))
        return RunOnAvx512(kernel);
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return RunOnAvx2(kernel);
#endif
    RunOnUsual(kernel);
}

}  // namespace plotkit
