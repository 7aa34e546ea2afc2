#include "data/KxExtremes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__) && defined(__GNUC__)
#define PLOTKIT_WIDE_VARIANT
#endif

#define PLOTKIT_INLINE [[gnu::always_inline]] inline

namespace plotkit {

namespace {

/// Few enough that the place of an extreme is found quickly.
constexpr std::size_t ChunkLength = 4096;

// Four values that are looked at together, and as many sets of them as hide how long each step takes.
constexpr std::size_t PackLength = 4;
using TPack = double __attribute__((vector_size(PackLength * sizeof(double))));
using TMask = std::int64_t __attribute__((vector_size(PackLength * sizeof(double))));
constexpr std::size_t StripLength = 4 * PackLength;

PLOTKIT_INLINE void Load(const double* values, TPack& pack)
{
    std::memcpy(&pack, values, sizeof pack);
}

/// Processors do not read ahead into the next page of memory by themselves.
PLOTKIT_INLINE void AskFor(const double* values)
{
    constexpr std::uintptr_t page = 4096;
    __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(values) + page));
}

struct TLook
{
    TPack Low = TPack{} + TKxExtremes().Min;
    TPack High = TPack{} + TKxExtremes().Max;
    TPack Nothing = {};  ///< not a number once a value was not finite

    PLOTKIT_INLINE void Add(const double* values)
    {
        TPack pack;
        Load(values, pack);
        Low = pack < Low ? pack : Low;
        High = pack > High ? pack : High;
        Nothing += pack - pack;
    }
    PLOTKIT_INLINE void Add(const TLook& other)
    {
        Low = other.Low < Low ? other.Low : Low;
        High = other.High > High ? other.High : High;
        Nothing += other.Nothing;
    }
    /// Every value of the packs is what all of them tell.
    PLOTKIT_INLINE void Spread()
    {
        Add(TLook{__builtin_shufflevector(Low, Low, 2, 3, 0, 1), __builtin_shufflevector(High, High, 2, 3, 0, 1),
                  __builtin_shufflevector(Nothing, Nothing, 2, 3, 0, 1)});
        Add(TLook{__builtin_shufflevector(Low, Low, 1, 0, 3, 2), __builtin_shufflevector(High, High, 1, 0, 3, 2),
                  __builtin_shufflevector(Nothing, Nothing, 1, 0, 3, 2)});
    }
};

PLOTKIT_INLINE TKxStretch LookThrough(const double* values, std::size_t count)
{
    TLook a, b, c, d;
    std::size_t at = 0;
    for (; at + StripLength <= count; at += StripLength) {
        AskFor(values + at);
        AskFor(values + at + 2 * PackLength);
        a.Add(values + at);
        b.Add(values + at + PackLength);
        c.Add(values + at + 2 * PackLength);
        d.Add(values + at + 3 * PackLength);
    }
    for (; at + PackLength <= count; at += PackLength)
        a.Add(values + at);
    a.Add(b);
    c.Add(d);
    a.Add(c);
    a.Spread();
    TKxStretch stretch{{a.Low[0], a.High[0]}};
    double nothing = a.Nothing[0];
    for (; at < count; ++at) {
        stretch.Extremes.Add({values[at], values[at]});
        nothing += values[at] - values[at];
    }
    stretch.IsWhole = nothing == 0;
    return stretch;
}

PLOTKIT_INLINE bool IsAscending(const double* values, std::size_t count)
{
    TMask ascends = TMask{} - 1;
    std::size_t at = 1;
    for (; at + PackLength <= count; at += PackLength) {
        AskFor(values + at);
        TPack before, pack;
        Load(values + at - 1, before);
        Load(values + at, pack);
        ascends &= before <= pack;
    }
    bool all = true;
    for (std::size_t i = 0; i < PackLength; ++i)
        all = all && ascends[i] != 0;
    for (; at < count; ++at)
        all = all && values[at - 1] <= values[at];
    return all;
}

#ifdef PLOTKIT_WIDE_VARIANT
[[gnu::target("avx2")]] TKxStretch LookThroughWide(const double* values, std::size_t count)
{
    return LookThrough(values, count);
}
[[gnu::target("avx2")]] bool IsAscendingWide(const double* values, std::size_t count)
{
    return IsAscending(values, count);
}
const bool HasWideVariant = __builtin_cpu_supports("avx2");
#endif

TKxStretch AnyStretch(const double* values, std::size_t count)
{
#ifdef PLOTKIT_WIDE_VARIANT
    if (HasWideVariant)
        return LookThroughWide(values, count);
#endif
    return LookThrough(values, count);
}

bool AnyAscending(const double* values, std::size_t count)
{
#ifdef PLOTKIT_WIDE_VARIANT
    if (HasWideVariant)
        return IsAscendingWide(values, count);
#endif
    return IsAscending(values, count);
}

/// The index of a value that stands behind `from`.
int PlaceOf(double value, std::span<const double> values, std::size_t from)
{
    return static_cast<int>(std::find(values.data() + from, values.data() + values.size(), value) - values.data());
}

}  // namespace

TKxStretch StretchOf(std::span<const double> values)
{
    TKxStretch stretch = AnyStretch(values.data(), values.size());
    if (stretch.IsWhole)
        return stretch;
    stretch.Extremes = {};
    for (const double value : values)
        if (std::isfinite(value))
            stretch.Extremes.Add({value, value});
    return stretch;
}

TKxPlacedExtremes PlacedExtremesOf(std::span<const double> values)
{
    TKxExtremeSearch search(values);
    for (std::size_t first = 0; first < values.size(); first += ChunkLength)
        search.Add(StretchOf(values.subspan(first, std::min(ChunkLength, values.size() - first))).Extremes, first);
    return search.Found();
}

void TKxExtremeSearch::Add(const TKxExtremes& stretch, std::size_t first)
{
    if (stretch.Min < FFound.Min) {
        FFound.Min = stretch.Min;
        FLowest = first;
    }
    if (stretch.Max > FFound.Max) {
        FFound.Max = stretch.Max;
        FHighest = first;
    }
}

TKxPlacedExtremes TKxExtremeSearch::Found() const
{
    TKxPlacedExtremes found = FFound;
    if (FLowest)
        found.MinIndex = PlaceOf(found.Min, FValues, *FLowest);
    if (FHighest)
        found.MaxIndex = PlaceOf(found.Max, FValues, *FHighest);
    return found;
}

bool Ascends(std::span<const double> values)
{
    if (values.empty())
        return true;
    return std::isfinite(values.front()) && std::isfinite(values.back()) && LastDescent(values) == 0;
}

std::size_t LastDescent(std::span<const double> values)
{
    // Memory is read faster forward.
    std::size_t ordered = 0;
    while (ordered + 1 < values.size() &&
           AnyAscending(values.data() + ordered, std::min(ChunkLength + 1, values.size() - ordered)))
        ordered += ChunkLength;
    if (ordered + 1 >= values.size())
        return 0;
    for (std::size_t last = values.size(); last > 1;) {
        const std::size_t first = last - std::min(ChunkLength, last - 1) - 1;
        if (!AnyAscending(values.data() + first, last - first))
            while (--last > first)
                if (!(values[last - 1] <= values[last]))
                    return last;
        last = first + 1;
    }
    return 0;
}

}  // namespace plotkit
