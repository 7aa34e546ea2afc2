// The job of VectorPath is outlines in real coordinates and how they are stroked and filled.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "host/DrawDevice.h"

namespace plotkit {

struct TVectorPoint
{
    double X = 0;
    double Y = 0;

    friend constexpr bool operator==(const TVectorPoint&, const TVectorPoint&) = default;
    friend constexpr TVectorPoint operator+(TVectorPoint a, TVectorPoint b) { return {a.X + b.X, a.Y + b.Y}; }
    friend constexpr TVectorPoint operator-(TVectorPoint a, TVectorPoint b) { return {a.X - b.X, a.Y - b.Y}; }
    friend constexpr TVectorPoint operator*(TVectorPoint a, double factor) { return {a.X * factor, a.Y * factor}; }
};

/// A box whose edges belong to it.
struct TVectorBox
{
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;

    static constexpr TVectorBox Of(const TRect& box)
    {
        return {double{1} * box.Left, double{1} * box.Top, double{1} * box.Right, double{1} * box.Bottom};
    }
    constexpr double Width() const { return Right - Left; }
    constexpr double Height() const { return Bottom - Top; }
    constexpr bool IsEmpty() const { return Right < Left || Bottom < Top; }
    constexpr bool Contains(TVectorPoint p) const { return p.X >= Left && p.X <= Right && p.Y >= Top && p.Y <= Bottom; }
    constexpr bool Contains(const TVectorBox& b) const
    {
        return b.Left >= Left && b.Right <= Right && b.Top >= Top && b.Bottom <= Bottom;
    }
    constexpr TVectorBox Inset(double by) const { return {Left + by, Top + by, Right - by, Bottom - by}; }
    constexpr TVectorBox Intersected(const TVectorBox& b) const
    {
        return {std::max(Left, b.Left), std::max(Top, b.Top), std::min(Right, b.Right), std::min(Bottom, b.Bottom)};
    }
};

/// One or more outlines; `Ends` holds for each where its points end.
struct TVectorPath
{
    std::vector<TVectorPoint> Points;
    std::vector<std::size_t> Ends;
    bool Closed = false;

    std::span<const TVectorPoint> Outline(std::size_t i) const
    {
        const std::size_t first = i == 0 ? 0 : Ends[i - 1];
        return std::span(Points).subspan(first, Ends[i] - first);
    }
    void Add(std::span<const TVectorPoint> outline)
    {
        Points.insert(Points.end(), outline.begin(), outline.end());
        Ends.push_back(Points.size());
    }
};

enum TVectorEnds : std::uint8_t
{
    veFlat,    ///< ends with the last point
    veSquare,  ///< half the width further
    veRound
};

struct TVectorPen
{
    TColor Color = clBlack;
    double Width = 1;
    TPenStyle Style = psSolid;
    TVectorEnds Ends = veSquare;
    bool RoundJoins = false;  ///< otherwise mitered
    double DashStart = 0;     ///< how far, in the path's units, the dashes have run before it begins
    double Opacity = 1;

    friend bool operator==(const TVectorPen&, const TVectorPen&) = default;
};

/// Even-odd.
struct TVectorFill
{
    TColor Color = clWhite;
    double Opacity = 1;

    friend bool operator==(const TVectorFill&, const TVectorFill&) = default;
};

}  // namespace plotkit
