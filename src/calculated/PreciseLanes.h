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

PLOTKIT_INLINE void AddTo(TPreciseLanes& sums, std::size_t i, TDoubleDouble term)
{
    const TDoubleDouble sum = TwoSum(sums.High[i], term.High);
    sums.High[i] = sum.High;
    sums.Low[i] += sum.Low + term.Low;
}

template <class TArithmetic>
PLOTKIT_INLINE TDoubleDouble Multiply(TDoubleDouble a, TDoubleDouble b)
{
    const TDoubleDouble product = TArithmetic::Product(a.High, b.High);
    const double low = TArithmetic::MultiplyAdd(a.High, b.Low, product.Low);
    return {product.High, TArithmetic::MultiplyAdd(a.Low, b.High, low)};
}

PLOTKIT_INLINE void Add(const TPreciseLanes& terms, TPreciseLanes& sums)
{
    for (std::size_t i = 0; i < StripLength; ++i)
        AddTo(sums, i, {terms.High[i], terms.Low[i]});
}

// Multiplies the terms by the factors again and again, and adds each result to the next of `count` sums: two per pass,
// for the sake of fewer loads and stores.
template <class TArithmetic>
PLOTKIT_INLINE void AddPowers(TPreciseLanes& terms, const TPreciseLanes& factors, TPreciseLanes* sums,
                              std::size_t count)
{
    for (; count >= 2; count -= 2, sums += 2) {
        for (std::size_t i = 0; i < StripLength; ++i) {
            const TDoubleDouble factor{factors.High[i], factors.Low[i]};
            const TDoubleDouble first = Multiply<TArithmetic>({terms.High[i], terms.Low[i]}, factor);
            AddTo(sums[0], i, first);
            const TDoubleDouble second = Multiply<TArithmetic>(first, factor);
            AddTo(sums[1], i, second);
            terms.High[i] = second.High;
            terms.Low[i] = second.Low;
        }
    }
    for (std::size_t i = 0; count > 0 && i < StripLength; ++i)
        AddTo(sums[0], i, Multiply<TArithmetic>({terms.High[i], terms.Low[i]}, {factors.High[i], factors.Low[i]}));
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
