#include "host/TextMeasurer.h"

#include "host/CheckedMath.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

unsigned ByteAt(std::string_view text, std::size_t at)
{
    return static_cast<unsigned char>(text[at]);
}

bool IsContinuation(std::string_view text, std::size_t at)
{
    return at < text.size() && (ByteAt(text, at) & 0xC0U) == 0x80U;
}

/// Bounds of the second byte, which rule out overlong forms, surrogates and code points beyond the last.
bool FitsLead(unsigned lead, unsigned second)
{
    switch (lead) {
        case 0xE0:
            return second >= 0xA0;
        case 0xED:
            return second <= 0x9F;
        case 0xF0:
            return second >= 0x90;
        case 0xF4:
            return second <= 0x8F;
        default:
            return true;
    }
}

}  // namespace

int CodePointLength(std::string_view text, std::size_t at)
{
    const unsigned lead = ByteAt(text, at);
    const int length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    for (int i = 1; i < length; ++i)
        if (!IsContinuation(text, at + static_cast<std::size_t>(i)))
            return 1;
    return length > 2 && !FitsLead(lead, ByteAt(text, at + 1)) ? 1 : length;
}

int CodePointCount(std::string_view text)
{
    int count = 0;
    for (std::size_t at = 0; at < text.size(); at += static_cast<std::size_t>(CodePointLength(text, at)))
        ++count;
    return count;
}

int TTextMeasurer::Ascent(const TFontState& font) const
{
    constexpr double usual = 0.81;
    return RoundToInt(usual * Height(font));
}

int TFixedTextMeasurer::Width(std::string_view text, const TFontState& font) const
{
    // Whole pixels per character, so that a text is as wide as its parts together.
    return SaturatePixel(std::int64_t{RoundToInt(font.PixelSize() / 2)} * CodePointCount(text));
}

int TFixedTextMeasurer::Height(const TFontState& font) const
{
    return RoundToInt(font.PixelSize());
}

}  // namespace plotkit
