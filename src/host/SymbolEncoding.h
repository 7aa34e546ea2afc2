// The job of SymbolEncoding is to say which Unicode characters a text in a font shows, codes of the Adobe Symbol
// encoding among them.
#pragma once

#include <string>
#include <string_view>

namespace plotkit {

/// The Unicode character of a code point below 256 in the Adobe Symbol encoding ("a" is α); other code points, and
/// codes that the encoding leaves empty, come back as they are.
char32_t SymbolToUnicode(char32_t code);
/// Whether a font of this name (letter case ignored) is the one whose codes are meant in the Symbol encoding.
bool IsSymbolFont(std::string_view fontName);
/// The characters that stand for a UTF-8 text: one per code point, U+FFFD for invalid bytes, with `symbol` the codes
/// turned into Unicode.
std::u32string ShownCharacters(std::string_view text, bool symbol);

}  // namespace plotkit
