// The job of SvgPath is numbers and path data of SVG in as few characters as they need.
#pragma once

#include <string>
#include <string_view>

#include "host/VectorPath.h"

namespace plotkit {

/// With at most two decimals, "0" for what is no number.
void AppendSvgNumber(std::string& text, double value);
/// ` name="value"`, such a number.
void AppendSvgAttribute(std::string& text, std::string_view name, double value);
/// "#rrggbb" or "#rgb", system colours resolved by the host in force.
std::string SvgColor(TColor color);
/// The content of a `d` attribute: relative moves and lines, the points rounded to hundredths, no error adding up.
void AppendSvgPath(std::string& text, const TVectorPath& path);

}  // namespace plotkit
