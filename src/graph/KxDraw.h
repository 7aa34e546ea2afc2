// The job of KxDraw is the routines that turn coordinates into the pixels of every picture of the library.
#pragma once

#include <limits>
#include <span>

#include "graph/KxStyles.h"
#include "host/Canvas.h"

namespace plotkit {

/// The pixel position of a point that has none, because its value is missing.
inline constexpr TPoint MissingPoint{std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::min()};

/// The routines below take device pixels (callers scale sizes and depths with `Px`), draw with the canvas' pen and
/// brush and leave both as they set them.

/// A pen of width 1 becomes and stays one of width 0, the thinnest, so that dashes stay dashes.
void DrawLine(int x1, int y1, int x2, int y2, TCanvas& canvas);
/// Many lines as one command, two points each; the same rule for the pen's width.
void DrawLines(std::span<const TPoint> ends, TCanvas& canvas);
/// A closed outline; the same rule for the pen's width.
void DrawFrame(int x1, int y1, int x2, int y2, TCanvas& canvas);
/// `size`: from the centre to the edge. Open symbols are filled with the brush's colour, filled ones with the pen's.
void DrawPointSymbol(int x, int y, int size, TKxPointSymbol symbol, TCanvas& canvas);
/// The same symbol at many points, handed on as one command; missing points are skipped.
void DrawPointSymbols(std::span<const TPoint> at, int size, TKxPointSymbol symbol, TCanvas& canvas);
/// A shaft to (x2, y2) and a filled head there, `tipLength` long and twice `tipWidth` wide.
/// EMathError "Floating point division by zero" when `tipLength` is 0 and the shaft has a length.
void DrawArrow(int x1, int y1, int x2, int y2, int tipLength, int tipWidth, TCanvas& canvas);
/// Many arrows that start at `starts`, all shafts as one command; with a `tipLength` of 0 they have no heads. Arrows
/// with a missing end and such as cannot reach into the canvas' clip are left out.
void DrawArrows(std::span<const TPoint> starts, std::span<const TPoint> ends, int tipLength, int tipWidth,
                TCanvas& canvas);
/// What shows as `color` where it is drawn in exclusive-or mode on `background`.
TColor XoredColor(TColor color, TColor background);
/// A colour for a face of a bar: each byte over ten, times `tenths`; what is beyond a byte is cut off.
TColor ShadedColor(TColor color, int tenths);
/// A bar with a front face between the two corners, in any order, a top face and a right side face.
void Draw3DBar(int x1, int y1, int x2, int y2, int depthX, int depthY, TColor frameColor, TColor frontColor,
               TColor topColor, TColor sideColor, TCanvas& canvas);

}  // namespace plotkit
