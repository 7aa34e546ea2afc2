#include "series/KxPyramid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plotkit {

namespace {

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

void TKxPyramid::Clear()
{
    FKnown = 0;
    FLevels.clear();
}

void TKxPyramid::Extend(std::span<const double> values)
{
    FKnown = std::max(FKnown, values.size());
    const std::size_t complete = FKnown / BlockLength;
    if (FLevels.empty())
        FLevels.emplace_back();
    std::vector<TBlock>& blocks = FLevels.front();
    if (blocks.size() == complete)
        return;
    for (std::size_t i = blocks.size(); i < complete; ++i)
        blocks.push_back(BlockOf(values.subspan(i * BlockLength, BlockLength)));
    ExtendLevels();
}

void TKxPyramid::ExtendLevels()
{
    for (std::size_t level = 0; FLevels[level].size() >= FanOut; ++level) {
        if (level + 1 == FLevels.size())
            FLevels.emplace_back();
        const std::span<const TBlock> blocks = FLevels[level];
        std::vector<TBlock>& joined = FLevels[level + 1];
        for (std::size_t i = joined.size(); i < blocks.size() / FanOut; ++i)
            joined.push_back(Joined(blocks.subspan(i * FanOut, FanOut)));
    }
}

void TKxPyramid::Renew(std::span<const double> values, std::size_t i)
{
    std::size_t block = i / BlockLength;
    for (std::size_t level = 0; level < FLevels.size() && block < FLevels[level].size(); ++level) {
        FLevels[level][block] = level == 0 ? BlockOf(values.subspan(block * BlockLength, BlockLength))
                                           : Joined(std::span(FLevels[level - 1]).subspan(block * FanOut, FanOut));
        block /= FanOut;
    }
}

TKxExtremes TKxPyramid::Extremes(std::span<const double> values, std::size_t first, std::size_t end) const
{
    std::size_t from = RoundedUp(first, BlockLength), to = end / BlockLength;
    if (from >= to)
        return StretchOf(values.subspan(first, end - first)).Extremes;
    TKxExtremes found = StretchOf(values.subspan(first, from * BlockLength - first)).Extremes;
    found.Add(StretchOf(values.subspan(to * BlockLength, end - to * BlockLength)).Extremes);
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
    for (std::size_t first = 0; first < values.size(); first += BlockLength) {
        const std::size_t block = first / BlockLength;
        const bool isKnown = first + BlockLength <= values.size() && FLevels[0][block].Content() == coWhole;
        const auto stretch = values.subspan(first, std::min(BlockLength, values.size() - first));
        search.Add(isKnown ? FLevels[0][block].Extremes : StretchOf(stretch).Extremes, first);
    }
    return search.Found();
}

int TKxPyramid::LevelAt(std::size_t first, std::size_t end, TContent content) const
{
    int found = -1;
    std::size_t length = BlockLength;
    for (std::size_t level = 0; level < FLevels.size(); ++level, length *= FanOut) {
        const std::size_t block = first / length;
        if (first % length != 0 || first + length > end || block >= FLevels[level].size())
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
            std::size_t length = BlockLength;
            for (int i = 0; i < level; ++i)
                length *= FanOut;
            first += length;
            continue;
        }
        const std::size_t stop = std::min(end, (first / BlockLength + 1) * BlockLength);
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
