// The job of Types is to name the plain values that every other unit passes around: points, rectangles and colours.
#pragma once

#include <algorithm>
#include <cstdint>

namespace plotkit {

/// A position in pixels; x grows to the right, y grows downwards.
struct TPoint
{
    std::int32_t X = 0;
    std::int32_t Y = 0;

    friend constexpr bool operator==(const TPoint&, const TPoint&) = default;
    friend constexpr TPoint operator+(TPoint a, TPoint b) { return {a.X + b.X, a.Y + b.Y}; }
    friend constexpr TPoint operator-(TPoint a, TPoint b) { return {a.X - b.X, a.Y - b.Y}; }
};

struct TSize
{
    std::int32_t Width = 0;
    std::int32_t Height = 0;

    friend constexpr bool operator==(const TSize&, const TSize&) = default;
};

/// A box in pixels; `Right` and `Bottom` are exclusive.
struct TRect
{
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    constexpr std::int32_t Width() const { return Right - Left; }
    constexpr std::int32_t Height() const { return Bottom - Top; }
    constexpr TPoint TopLeft() const { return {Left, Top}; }
    constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    constexpr bool Contains(TPoint p) const { return p.X >= Left && p.X < Right && p.Y >= Top && p.Y < Bottom; }
    constexpr TRect Shifted(TPoint by) const { return {Left + by.X, Top + by.Y, Right + by.X, Bottom + by.Y}; }
    /// A box around both; an empty one adds nothing.
    constexpr TRect United(const TRect& other) const
    {
        if (IsEmpty() || other.IsEmpty())
            return IsEmpty() ? other : *this;
        return {std::min(Left, other.Left), std::min(Top, other.Top), std::max(Right, other.Right),
                std::max(Bottom, other.Bottom)};
    }
    /// The common part; empty boxes come back with no extent, never inverted.
    constexpr TRect Intersected(const TRect& other) const
    {
        TRect r{std::max(Left, other.Left), std::max(Top, other.Top), std::min(Right, other.Right),
                std::min(Bottom, other.Bottom)};
        r.Right = std::max(r.Left, r.Right);
        r.Bottom = std::max(r.Top, r.Bottom);
        return r;
    }

    friend constexpr bool operator==(const TRect&, const TRect&) = default;
};

/// A colour: 0x00BBGGRR, or a system-colour code 0x800000NN that the host resolves when it is drawn.
enum class TColor : std::int32_t
{
};

inline constexpr TColor clBlack{0x000000};
inline constexpr TColor clRed{0x0000FF};
inline constexpr TColor clBlue{0xFF0000};
inline constexpr TColor clGray{0x808080};
inline constexpr TColor clWhite{0xFFFFFF};
inline constexpr TColor clWindow{static_cast<TColor>(0x80000005U)};
inline constexpr TColor clWindowText{static_cast<TColor>(0x80000008U)};
inline constexpr TColor clHighlight{static_cast<TColor>(0x8000000DU)};
inline constexpr TColor clHighlightText{static_cast<TColor>(0x8000000EU)};
inline constexpr TColor clButtonFace{static_cast<TColor>(0x8000000FU)};
inline constexpr TColor clButtonShadow{static_cast<TColor>(0x80000010U)};
inline constexpr TColor clGrayText{static_cast<TColor>(0x80000011U)};
inline constexpr TColor clButtonText{static_cast<TColor>(0x80000012U)};
inline constexpr TColor clButtonHighlight{static_cast<TColor>(0x80000014U)};

constexpr std::int32_t ColorToInt(TColor color)
{
    return static_cast<std::int32_t>(color);
}
constexpr TColor IntToColor(std::int32_t value)
{
    return static_cast<TColor>(value);
}
constexpr bool IsSystemColor(TColor color)
{
    return ColorToInt(color) < 0;
}
constexpr TColor RgbColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<TColor>(red | green << 8 | blue << 16);
}
constexpr std::uint8_t RedOf(TColor color)
{
    return static_cast<std::uint8_t>(ColorToInt(color) & 0xFF);
}
constexpr std::uint8_t GreenOf(TColor color)
{
    return static_cast<std::uint8_t>(ColorToInt(color) >> 8 & 0xFF);
}
constexpr std::uint8_t BlueOf(TColor color)
{
    return static_cast<std::uint8_t>(ColorToInt(color) >> 16 & 0xFF);
}

}  // namespace plotkit
