#include "qt/KxQtText.h"

#include "host/CheckedMath.h"
#include "qt/KxQtFont.h"

namespace plotkit {

int TQtTextMeasurer::Width(std::string_view text, const TFontState& font) const
{
    const auto face = QtFontFace(font);
    double width = 0;
    for (const char32_t character : face->Characters(text))
        width += face->Advance(character);
    return RoundToInt(width);
}

int TQtTextMeasurer::Height(const TFontState& font) const
{
    return QtFontFace(font)->Height();
}

int TQtTextMeasurer::Ascent(const TFontState& font) const
{
    return QtFontFace(font)->Ascent();
}

}  // namespace plotkit
