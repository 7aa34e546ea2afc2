#include "series/KxPyramid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plotkit {

namespace {

constexpr int HighestSearched = 2;  ///< in whose blocks a value is found quickly

constexpr std::size_t RoundedUp(std::size_t n, std::size_t step)
{
    return (n + step - 1) / step;
}

}  // namespace

// Blocks are many, so what is in them is told by their extremes.
TKxPyramid::TContent TKxPyramid::TBlock::Content() const
{
    if (!std::isnan(Extremes.Min))
        return coWhole;
    return std::isnan(Extremes.Max) ? coMissing : coMixed;
}

TKxPyramid::TBlock TKxPyramid::TBlock::Of(TContent content)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    return {{nan, content == coMissing ? nan : 0}};
}

TKxPyramid::TBlock TKxPyramid::BlockOf(std::span<const double> values)
{
    const TKxStretch stretch = StretchOf(values);
    if (stretch.IsWhole)
        return {stretch.Extremes};
    return TBlock::Of(stretch.Extremes.IsEmpty() ? coMissing : coMixed);
}

TKxPyramid::TBlock TKxPyramid::Joined(std::span<const TBlock> blocks)
{
    const TContent content = blocks.front().Content();
    TBlock joined{{}};
    for (const TBlock& block : blocks) {
        if (block.Content() != content)
            return TBlock::Of(coMixed);
        joined.Extremes.Add(block.Extremes);
    }
    return content == coWhole ? joined : TBlock::Of(content);
}

std::size_t TKxPyramid::LengthOf(std::size_t level)
{
    std::size_t length = BlockLength;
    for (; level > 0; --level)
        length *= FanOut;
    return length;
}

void TKxPyramid::TLevel::Forget(std::size_t first)
{
    if (first <= Gone + Blocks.size() / 2)
        return;
    const std::size_t count = std::min(first - Gone, Blocks.size());
    Blocks.erase(Blocks.begin(), Blocks.begin() + static_cast<std::ptrdiff_t>(count));
    Gone = Blocks.empty() ? first : Gone + count;
}

void TKxPyramid::Clear()
{
    FFirst = 0;
    FKnown = 0;
    FLevels.clear();
}

void TKxPyramid::Drop(std::size_t count)
{
    if (count >= FKnown)
        return Clear();
    FFirst += count;
    FKnown -= count;
}

/// A block that begins before the first value holds nothing that anybody asks for.
TKxPyramid::TBlock TKxPyramid::Made(std::span<const double> values, std::size_t level, std::size_t block) const
{
    if (block * LengthOf(level) < FFirst)
        return TBlock::Of(coMixed);
    if (level == 0)
        return BlockOf(values.subspan(block * BlockLength - FFirst, BlockLength));
    return Joined({&FLevels[level - 1][block * FanOut], FanOut});
}

void TKxPyramid::Extend(std::span<const double> values)
{
    FKnown = std::max(FKnown, values.size());
    std::size_t complete = (FFirst + FKnown) / BlockLength, first = FFirst / BlockLength;
    for (std::size_t level = 0; level == 0 || complete > 0; ++level, complete /= FanOut, first /= FanOut) {
        if (level == FLevels.size()) {
            FLevels.emplace_back();
            FLevels[level].Gone = first;
        }
        TLevel& blocks = FLevels[level];
        if (level == 0 && blocks.End() == complete)
            return;
        blocks.Forget(first);
        for (std::size_t i = blocks.End(); i < complete; ++i)
            blocks.Blocks.push_back(Made(values, level, i));
    }
}

void TKxPyramid::Renew(std::span<const double> values, std::size_t i)
{
    std::size_t block = (FFirst + i) / BlockLength;
    for (std::size_t level = 0; level < FLevels.size() && block < FLevels[level].End(); ++level) {
        if (block >= FLevels[level].Gone)
            FLevels[level][block] = Made(values, level, block);
        block /= FanOut;
    }
}

TKxExtremes TKxPyramid::Extremes(std::span<const double> values, std::size_t first, std::size_t end) const
{
    std::size_t from = RoundedUp(FFirst + first, BlockLength), to = (FFirst + end) / BlockLength;
    if (from >= to)
        return StretchOf(values.subspan(first, end - first)).Extremes;
    const std::size_t left = from * BlockLength - FFirst, right = to * BlockLength - FFirst;
    TKxExtremes found = StretchOf(values.subspan(first, left - first)).Extremes;
    found.Add(StretchOf(values.subspan(right, end - right)).Extremes);
    found.Add(BlockExtremes(from, to));
    return found;
}

TKxExtremes TKxPyramid::BlockExtremes(std::size_t from, std::size_t to) const
{
    TKxExtremes found;
    for (std::size_t level = 0;; ++level) {
        const std::size_t innerFrom = RoundedUp(from, FanOut), innerTo = to / FanOut;
        const bool isLast = innerFrom >= innerTo;
        const std::size_t left = isLast ? to : innerFrom * FanOut, right = isLast ? to : innerTo * FanOut;
        for (std::size_t i = from; i < left; ++i)
            found.Add(FLevels[level][i].Extremes);
        for (std::size_t i = right; i < to; ++i)
            found.Add(FLevels[level][i].Extremes);
        if (isLast)
            return found;
        from = innerFrom;
        to = innerTo;
    }
}

TKxPlacedExtremes TKxPyramid::PlacedExtremes(std::span<const double> values) const
{
    TKxExtremeSearch search(values);
    for (std::size_t first = 0; first < values.size();) {
        const int level = std::min(LevelAt(first, values.size(), coWhole), HighestSearched);
        if (level >= 0) {
            const std::size_t length = LengthOf(static_cast<std::size_t>(level));
            search.Add(FLevels[static_cast<std::size_t>(level)][(FFirst + first) / length].Extremes, first);
            first += length;
            continue;
        }
        const auto stretch = values.subspan(first, std::min(ToBlockEnd(first), values.size() - first));
        search.Add(StretchOf(stretch).Extremes, first);
        first += stretch.size();
    }
    return search.Found();
}

int TKxPyramid::LevelAt(std::size_t first, std::size_t end, TContent content) const
{
    int found = -1;
    const std::size_t place = FFirst + first;
    std::size_t length = BlockLength;
    for (std::size_t level = 0; level < FLevels.size(); ++level, length *= FanOut) {
        const std::size_t block = place / length;
        if (place % length != 0 || first + length > end || block >= FLevels[level].End())
            break;
        if (FLevels[level][block].Content() == content)
            found = static_cast<int>(level);
    }
    return found;
}

template <class TWanted>
std::size_t TKxPyramid::Find(std::span<const double> values, std::size_t first, std::size_t end, TContent skipped,
                             TWanted wanted) const
{
    while (first < end) {
        const int level = LevelAt(first, end, skipped);
        if (level >= 0) {
            first += LengthOf(static_cast<std::size_t>(level));
            continue;
        }
        const std::size_t stop = std::min(end, first + ToBlockEnd(first));
        for (; first < stop; ++first)
            if (wanted(values[first]))
                return first;
    }
    return end;
}

std::size_t TKxPyramid::FindMissing(std::span<const double> values, std::size_t first, std::size_t end) const
{
    return Find(values, first, end, coWhole, [](double value) { return !std::isfinite(value); });
}

std::size_t TKxPyramid::FindPresent(std::span<const double> values, std::size_t first, std::size_t end) const
{
    return Find(values, first, end, coMissing, [](double value) { return std::isfinite(value); });
}

}  // namespace plotkit
