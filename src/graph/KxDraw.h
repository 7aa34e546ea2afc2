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
/// A closed outline; the same rule for the pen's width.
void DrawFrame(int x1, int y1, int x2, int y2, TCanvas& canvas);
/// `size`: from the centre to the edge. Open symbols are filled with the brush's colour, filled ones with the pen's.
void DrawPointSymbol(int x, int y, int size, TKxPointSymbol symbol, TCanvas& canvas);
/// The same symbol at many points, handed on as one command; missing points are skipped.
void DrawPointSymbols(std::span<const TPoint> at, int size, TKxPointSymbol symbol, TCanvas& canvas);
/// A shaft to (x2, y2) and a filled head there, `tipLength` long and twice `tipWidth` wide.
/// EMathError "Floating point division by zero" when `tipLength` is 0 and the shaft has a length.
void DrawArrow(int x1, int y1, int x2, int y2, int tipLength, int tipWidth, TCanvas& canvas);
/// A bar with a front face between the two corners, in any order, a top face and a right side face.
void Draw3DBar(int x1, int y1, int x2, int y2, int depthX, int depthY, TColor frameColor, TColor frontColor,
               TColor topColor, TColor sideColor, TCanvas& canvas);

}  // namespace plotkit
