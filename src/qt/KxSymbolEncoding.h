// The job of KxSymbolEncoding is to turn codes of the Adobe Symbol encoding into Unicode.
#pragma once

#include <string_view>

namespace plotkit {

/// The Unicode character of a code point below 256 in the Adobe Symbol encoding ("a" is α); other code points, and
/// codes that the encoding leaves empty, come back as they are.
char32_t SymbolToUnicode(char32_t code);
/// Whether a font of this name (letter case ignored) is the one whose codes are meant in the Symbol encoding.
bool IsSymbolFont(std::string_view fontName);

}  // namespace plotkit
