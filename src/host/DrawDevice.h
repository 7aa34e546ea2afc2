// The job of DrawDevice is the thin, stateless target of all drawing: every call carries style, mode and clip as
// values.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/Font.h"
#include "host/Types.h"

namespace plotkit {

class TRecording;

enum TPenStyle : std::uint8_t
{
    psSolid,
    psDash,
    psDot,
    psDashDot,
    psDashDotDot,
    psClear,
    psInsideFrame
};
inline constexpr std::array<std::string_view, 7> PenStyleNames{"psSolid",      "psDash",  "psDot",        "psDashDot",
                                                               "psDashDotDot", "psClear", "psInsideFrame"};
constexpr std::span<const std::string_view> ValueNames(TPenStyle)
{
    return PenStyleNames;
}

enum TBrushStyle : std::uint8_t
{
    bsSolid,
    bsClear,
    bsHorizontal,
    bsVertical,
    bsForwardDiagonal,   ///< "\"
    bsBackwardDiagonal,  ///< "/"
    bsCross,
    bsDiagonalCross,
};
inline constexpr std::array<std::string_view, 8> BrushStyleNames{
    "bsSolid", "bsClear",        "bsHorizontal", "bsVertical", "bsForwardDiagonal", "bsBackwardDiagonal",
    "bsCross", "bsDiagonalCross"};
constexpr std::span<const std::string_view> ValueNames(TBrushStyle)
{
    return BrushStyleNames;
}

enum TDrawMode : std::uint8_t
{
    dmCopy,
    dmXor
};

/// Width in device pixels; 0 and 1 are the thinnest line.
struct TPenState
{
    TColor Color = clBlack;
    TPenStyle Style = psSolid;
    int Width = 1;

    friend bool operator==(const TPenState&, const TPenState&) = default;
};

struct TBrushState
{
    TColor Color = clWhite;
    TBrushStyle Style = bsSolid;

    friend bool operator==(const TBrushState&, const TBrushState&) = default;
};

/// A clip that lets everything through.
inline constexpr TRect NoClip{std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::min(),
                              std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::max()};

/// Mode and clip, the clip in device pixels. Exclusive-or applies to lines and fills alike.
struct TDrawState
{
    TDrawMode Mode = dmCopy;
    TRect Clip = NoClip;

    friend bool operator==(const TDrawState&, const TDrawState&) = default;
};

/// A run of UTF-8 text in one font. `At` is the top left corner of the first character's cell, in reading direction.
/// `Advances` holds per code point how far, in pixels along the writing direction from `At`, the pen stands after it.
struct TTextRun
{
    TPoint At;
    std::string Text;
    std::vector<std::int32_t> Advances;
    TFontState Font;
    TBrushState Background{clWhite, bsClear};  ///< fills the cell unless clear

    friend bool operator==(const TTextRun&, const TTextRun&) = default;
};

/// All coordinates are device pixels.
class TDrawDevice
{
public:
    TDrawDevice() = default;
    TDrawDevice(const TDrawDevice&) = default;
    TDrawDevice& operator=(const TDrawDevice&) = default;
    virtual ~TDrawDevice() = default;

    /// The pixel at `to` is not drawn.
    virtual void Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state) = 0;
    /// Separate lines with one pen, each as `Line` draws it: from `ends[0]` to `ends[1]`, from `ends[2]` to `ends[3]`
    /// and so on.
    virtual void Lines(std::span<const TPoint> ends, const TPenState& pen, const TDrawState& state)
    {
        for (std::size_t i = 1; i < ends.size(); i += 2)
            Line(ends[i - 1], ends[i], pen, state);
    }
    /// Both ends are drawn; dashes run on through the corners.
    virtual void Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state) = 0;
    /// Closed, outlined with the pen and filled with the brush.
    virtual void Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                         const TDrawState& state) = 0;
    /// Inside the box, whose right and bottom edges are exclusive.
    virtual void Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) = 0;
    /// Inside the box; with a clear pen the brush fills the whole box.
    virtual void Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush,
                           const TDrawState& state) = 0;
    /// A dotted exclusive-or outline inside the box; drawing it again removes it.
    virtual void FocusRect(const TRect& box, const TDrawState& state) = 0;
    virtual void Text(const TTextRun& run, const TDrawState& state) = 0;
    /// The same shape, recorded around the origin, at many points; the shape's own clips are not used, `state.Clip` is.
    virtual void Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
                       const TDrawState& state) = 0;
};

}  // namespace plotkit
