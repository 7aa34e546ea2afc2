// The job of KxQtText is to measure text with the fonts that it is drawn in.
#pragma once

#include "host/TextMeasurer.h"

namespace plotkit {

/// Widths are rounded sums of the fractional advances of single characters without kerning, so that a text is as wide
/// as its parts together, within the rounding. Needs a QGuiApplication. Belongs to the thread of the user interface.
class TQtTextMeasurer : public TTextMeasurer
{
public:
    int Width(std::string_view text, const TFontState& font) const override;
    int Height(const TFontState& font) const override;
    int Ascent(const TFontState& font) const override;
};

}  // namespace plotkit
