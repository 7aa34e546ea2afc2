// The job of ColourScheme is the colours that the program gives its graphs, on light and on dark desktops.
#pragma once

#include <array>
#include <cstddef>

#include "host/Form.h"

namespace plotkit {

inline constexpr std::size_t SchemeColours = 14;

struct TColourScheme
{
    TColor Paper, Ink, MajorGrid, MinorGrid;
    /// Of curves in turn, and of the areas below them.
    std::array<TColor, SchemeColours> Curves, Areas;
};

const TColourScheme& LightScheme();
const TColourScheme& DarkScheme();

/// What stands in `to` for a colour of `from`; other colours stay.
TColor Counterpart(TColor colour, const TColourScheme& from, const TColourScheme& to);
/// Every colour of the form's components that stands in `from` becomes its counterpart in `to`; others stay.
void Recolour(TForm& form, const TColourScheme& from, const TColourScheme& to);

}  // namespace plotkit
