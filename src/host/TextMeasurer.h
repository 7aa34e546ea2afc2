// The job of TextMeasurer is to say how much room a text takes.
#pragma once

#include <string_view>

#include "host/Font.h"

namespace plotkit {

class TTextMeasurer
{
public:
    TTextMeasurer() = default;
    TTextMeasurer(const TTextMeasurer&) = delete;
    TTextMeasurer& operator=(const TTextMeasurer&) = delete;
    virtual ~TTextMeasurer() = default;

    /// Advance of a UTF-8 text in whole device pixels.
    virtual int Width(std::string_view text, const TFontState& font) const = 0;
    /// Height of a line in whole device pixels.
    virtual int Height(const TFontState& font) const = 0;
    /// Whole device pixels from the top of a line to the baseline.
    virtual int Ascent(const TFontState& font) const;
};

/// Every code point is half as wide as the font's size in pixels and a line is as high as that size, both rounded to
/// whole pixels: the same numbers on every machine.
class TFixedTextMeasurer : public TTextMeasurer
{
public:
    int Width(std::string_view text, const TFontState& font) const override;
    int Height(const TFontState& font) const override;
};

/// Number of code points of a UTF-8 text; a byte that is part of no valid sequence counts as one.
int CodePointCount(std::string_view text);
/// Bytes of the code point that starts at `at` (1 for an invalid byte).
int CodePointLength(std::string_view text, std::size_t at);

}  // namespace plotkit
