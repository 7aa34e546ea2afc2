// The job of KxPyramid is to know the smallest and largest of any stretch of many values without looking at each.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "data/KxExtremes.h"

namespace plotkit {

/// Extremes of blocks of values, of blocks of blocks and so on. It holds no values: every call is given the array that
/// they stand in. The first and the last value of a stretch are there, so that blocks do not keep them.
class TKxPyramid
{
public:
    static constexpr std::size_t BlockLength = 128;
    static constexpr std::size_t FanOut = 8;  ///< blocks in a block of the next level

    void Clear();
    /// How many of the first values it knows.
    std::size_t Known() const { return FKnown; }
    /// The first `count` values went; those behind them are the first ones now.
    void Drop(std::size_t count);
    /// Takes in the values behind the known ones.
    void Extend(std::span<const double> values);
    /// Value `i`, a known one, has changed.
    void Renew(std::span<const double> values, std::size_t i);

    /// The extremes of [first, end), known values that are all finite.
    TKxExtremes Extremes(std::span<const double> values, std::size_t first, std::size_t end) const;
    /// Of all `values`, known ones, that are finite.
    TKxPlacedExtremes PlacedExtremes(std::span<const double> values) const;
    /// The first of the known values [first, end) that is not finite, or that is; `end` for none.
    std::size_t FindMissing(std::span<const double> values, std::size_t first, std::size_t end) const;
    std::size_t FindPresent(std::span<const double> values, std::size_t first, std::size_t end) const;

private:
    enum TContent : unsigned char
    {
        coWhole,  ///< all finite
        coMixed,
        coMissing,  ///< none finite
    };
    struct TBlock
    {
        TKxExtremes Extremes;  ///< of a whole one

        TContent Content() const;
        static TBlock Of(TContent content);
    };

    /// Blocks begin at fixed places, counted from the first value that there ever was, so that those in front can go.
    struct TLevel
    {
        std::vector<TBlock> Blocks;  ///< complete ones only
        std::size_t Gone = 0;        ///< so many went before them

        std::size_t End() const { return Gone + Blocks.size(); }
        TBlock& operator[](std::size_t i) { return Blocks[i - Gone]; }
        const TBlock& operator[](std::size_t i) const { return Blocks[i - Gone]; }
        void Forget(std::size_t first);
    };

    static TBlock BlockOf(std::span<const double> values);
    static TBlock Joined(std::span<const TBlock> blocks);
    static std::size_t LengthOf(std::size_t level);
    std::size_t ToBlockEnd(std::size_t i) const { return BlockLength - (FFirst + i) % BlockLength; }
    TBlock Made(std::span<const double> values, std::size_t level, std::size_t block) const;
    TKxExtremes BlockExtremes(std::size_t from, std::size_t to) const;
    /// The level of the largest block that begins at place `first`, ends before `end` and has this content; -1 for
    /// none.
    int LevelAt(std::size_t first, std::size_t end, TContent content) const;
    template <class TWanted>
    std::size_t Find(std::span<const double> values, std::size_t first, std::size_t end, TContent skipped,
                     TWanted wanted) const;

    std::size_t FFirst = 0;  ///< the place of the first value
    std::size_t FKnown = 0;
    std::vector<TLevel> FLevels;
};

}  // namespace plotkit
