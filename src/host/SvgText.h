// The job of SvgText is to write texts as SVG holds them: escaped, with fonts that every viewer finds a like of.
#pragma once

#include <string>
#include <string_view>

#include "host/DrawDevice.h"
#include "host/TextMeasurer.h"

namespace plotkit {

/// Characters as XML allows them in content and attributes; those that it forbids become U+FFFD.
void AppendXml(std::string& text, std::u32string_view characters);
void AppendXml(std::string& text, std::string_view utf8);

/// The font as presentation attributes, each with a space before it.
std::string SvgFontAttributes(const TFontState& font);

/// One `text` element with the run's characters. It is placed by its middle, so that in a font that is a little wider
/// it is off by half the difference at either end. Where the given advances differ much from the measurer's, letters
/// are spaced out.
void AppendSvgText(std::string& text, const TTextRun& run, const TTextMeasurer& measurer);

/// "" for level text, otherwise a `transform` attribute, with a space before it, that turns about the run's corner.
std::string SvgTurn(const TTextRun& run);

}  // namespace plotkit
