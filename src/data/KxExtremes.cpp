#include "data/KxExtremes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#if defined(__x86_64__) && defined(__GNUC__)
#define PLOTKIT_WIDE_VARIANT
#endif

#define PLOTKIT_INLINE [[gnu::always_inline]] inline

namespace plotkit {

namespace {

constexpr std::size_t Lanes = 16;
/// Few enough that the place of an extreme is found quickly.
constexpr std::size_t ChunkLength = 4096;

// The lanes do not depend on each other: compilers turn the inner loops into vector code without reordering anything.
PLOTKIT_INLINE TKxStretch LookThrough(const double* values, std::size_t count)
{
    double low[Lanes], high[Lanes], nothing[Lanes];
    for (std::size_t i = 0; i < Lanes; ++i) {
        low[i] = TKxExtremes().Min;
        high[i] = TKxExtremes().Max;
        nothing[i] = 0;
    }
    std::size_t at = 0;
    for (; at + Lanes <= count; at += Lanes)
        for (std::size_t i = 0; i < Lanes; ++i) {
            const double value = values[at + i];
            low[i] = value < low[i] ? value : low[i];
            high[i] = value > high[i] ? value : high[i];
            nothing[i] += value - value;  // not a number once one is not finite
        }
    for (std::size_t i = 0; at + i < count; ++i) {
        const double value = values[at + i];
        low[i] = value < low[i] ? value : low[i];
        high[i] = value > high[i] ? value : high[i];
        nothing[i] += value - value;
    }
    for (std::size_t width = Lanes / 2; width > 0; width /= 2)
        for (std::size_t i = 0; i < width; ++i) {
            low[i] = low[i + width] < low[i] ? low[i + width] : low[i];
            high[i] = high[i + width] > high[i] ? high[i + width] : high[i];
            nothing[i] += nothing[i + width];
        }
    return {{low[0], high[0]}, nothing[0] == 0};
}

PLOTKIT_INLINE bool IsAscending(const double* values, std::size_t count)
{
    std::int64_t falls[Lanes] = {};
    std::size_t at = 1;
    for (; at + Lanes <= count; at += Lanes)
        for (std::size_t i = 0; i < Lanes; ++i)
            falls[i] += values[at + i - 1] <= values[at + i] ? 0 : 1;
    for (; at < count; ++at)
        falls[0] += values[at - 1] <= values[at] ? 0 : 1;
    return std::all_of(falls, falls + Lanes, [](std::int64_t n) { return n == 0; });
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
    TKxPlacedExtremes found;
    std::optional<std::size_t> lowest, highest;  // the chunks that hold them
    for (std::size_t first = 0; first < values.size(); first += ChunkLength) {
        const auto [min, max] = StretchOf(values.subspan(first, std::min(ChunkLength, values.size() - first))).Extremes;
        if (min < found.Min) {
            found.Min = min;
            lowest = first;
        }
        if (max > found.Max) {
            found.Max = max;
            highest = first;
        }
    }
    if (lowest)
        found.MinIndex = PlaceOf(found.Min, values, *lowest);
    if (highest)
        found.MaxIndex = PlaceOf(found.Max, values, *highest);
    return found;
}

bool Ascends(std::span<const double> values)
{
    if (values.empty())
        return true;
    if (!std::isfinite(values.front()) || !std::isfinite(values.back()))
        return false;
    for (std::size_t first = 0; first + 1 < values.size(); first += ChunkLength)
        if (!AnyAscending(values.data() + first, std::min(ChunkLength + 1, values.size() - first)))
            return false;
    return true;
}

}  // namespace plotkit
