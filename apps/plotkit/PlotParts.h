// The job of PlotParts is the look that the program gives to axes, texts and legends.
#pragma once

#include <string>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLegend.h"
#include "host/Form.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/Options.h"

namespace plotkit {

/// A name as a caption that shows it unchanged.
std::string CaptionOf(const std::string& name);

void SetFont(TFont& font, int size, TColor ink);
void SetCaption(TKxAxis& axis, const std::string& caption);
void SetLook(TKxAxis& axis, const std::string& caption, TColor ink);

const TColourScheme& SchemeOf(const TOptions& options);

/// Where the options want a legend of so many names.
TKxAxisPos PositionOf(TLegendChoice choice, std::size_t count);
void PlaceLegend(TKxLegend& legend, const TKx2DGraph& graph, std::size_t count, TLegendChoice choice);
/// Makes the legend of the graph or takes it away, as the options want it for so many names.
void KeepLegend(TForm& form, TKx2DGraph& graph, std::size_t count, const TOptions& options);

}  // namespace plotkit
