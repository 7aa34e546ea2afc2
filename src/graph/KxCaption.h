// The job of KxCaption is the markup of captions and its one renderer, which measures, draws and fills character
// tables.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Canvas.h"

namespace plotkit {

/// UTF-8 text in which a backslash starts a code: b, i, u, o toggle bold, italic, underline, strike-out; "+" and "-"
/// toggle superscript and subscript; s toggles the symbol font; a second backslash stands for itself. Codes ignore
/// letter case and swallow one blank behind them; a backslash before anything else is dropped.
using TKxCaption = std::string;

/// One caption: what to draw, and what came out. An output character is one code point (an invalid byte counts as one).
struct TKxCaptionRec
{
    TKxCaption Text;
    TCanvas* Canvas = nullptr;  ///< its font is the base font
    int X = 0;                  ///< top left of the first character, canvas pixels
    int Y = 0;
    int Angle = 0;     ///< writing direction, tenths of a degree, counter-clockwise
    int Width = 0;     ///< out: advance of the whole caption along the writing direction
    int SelStart = 0;  ///< selected output characters, half-open
    int SelEnd = 0;
    bool DoPaint = false;  ///< false only measures
    bool ShowSelection = false;
    std::string StrippedText;  ///< out: the text without codes

    /// Out, all as long as `Text` + 1: per output character the width reached after it and its 1-based byte position in
    /// `Text`, then whether a code of each kind stands just before it.
    std::vector<std::int32_t> CharPos;
    std::vector<std::int32_t> CharSrc;
    std::vector<bool> SymbolMarks;
    std::vector<bool> BoldMarks;
    std::vector<bool> ItalicMarks;
    std::vector<bool> UnderlineMarks;
    std::vector<bool> StrikeOutMarks;
    std::vector<bool> SuperscriptMarks;
    std::vector<bool> SubscriptMarks;
};

/// Parses and measures `rec.Text` on `rec.Canvas` (which must be set), and draws it when `rec.DoPaint` says so. The
/// canvas' font is left as it was. Never fails: unknown codes are dropped, open ones end with the caption.
void RichPaintTo(TKxCaptionRec& rec);

/// The text without codes.
std::string GetStrippedString(const TKxCaption& caption);

/// Makes the font write in the direction `angle`, tenths of a degree counter-clockwise. A rotated font has the default
/// character set.
void RotateFont(TFont& font, int angle);
void RotateFont(TFontState& font, int angle);

}  // namespace plotkit
