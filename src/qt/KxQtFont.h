// The job of KxQtFont is to turn fonts of drawing commands into Qt fonts, once each.
#pragma once

#include <QFont>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/Font.h"

namespace plotkit {

/// A font in whole pixels, as TFontState::Height has them, without kerning.
class TQtFontFace
{
public:
    explicit TQtFontFace(const TFontState& state);

    const QFont& Font() const { return FFont; }
    /// Pixels from the top of the cell to the baseline, and of the whole cell.
    int Ascent() const { return FAscent; }
    int Height() const { return FHeight; }
    /// The characters that stand for a UTF-8 text: one per code point, U+FFFD for invalid bytes, codes of the font
    /// "Symbol" in Unicode.
    std::u32string Characters(std::string_view text) const;
    /// Fractional pixels; of a character as `Characters` gives it.
    double Advance(char32_t character) const;

private:
    double Measured(char32_t character) const;

    QFont FFont;
    bool FSymbol;
    int FAscent;
    int FHeight;
    mutable std::array<double, 256> FLatin;  ///< negative: not measured yet
    mutable std::unordered_map<char32_t, double> FOthers;
};

/// From a cache that lives as long as the application; for the thread of the user interface.
std::shared_ptr<const TQtFontFace> QtFontFace(const TFontState& state);

}  // namespace plotkit
