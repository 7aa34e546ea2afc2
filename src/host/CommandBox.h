// The job of CommandBox is to tell where the pixels are that a drawing command can set.
#pragma once

#include <vector>

#include "host/Recording.h"

namespace plotkit {

/// A box around all of them, cut to the command's clip; roomy where joins of lines or the shapes of letters decide.
TRect CommandBox(const TDrawCommand& command);
/// The same with less between them: an empty frame has its four sides.
void AddCommandBoxes(const TDrawCommand& command, std::vector<TRect>& boxes);

/// How far the pixels of a line of that device width can stand from its points.
constexpr int LineReach(int width)
{
    constexpr int Widest = 1 << 20;
    return 2 * (width < 1 ? 1 : width < Widest ? width : Widest) + 1;
}

}  // namespace plotkit
