// The job of KxCaptionText is a caption taken apart into characters and their attributes, and put together again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "graph/KxCaption.h"

namespace plotkit {

/// Bits of what codes switch on and off.
enum TKxCaptionAttribute : std::uint8_t
{
    caSymbol = 1,
    caBold = 2,
    caItalic = 4,
    caUnderline = 8,
    caStrikeOut = 16,
    caSuperscript = 32,
    caSubscript = 64,
};
using TKxCaptionAttributes = std::uint8_t;

/// Markers for what is typed next, before the character `At`. Closed ones are followed by those that lead back, so that
/// nothing else takes the attributes.
struct TKxPendingMarkers
{
    int At = -1;
    TKxCaptionAttributes Attributes = 0;
    bool Closed = true;
};

/// Characters are counted as RichPaintTo counts them, from 0; a backslash that is shown is one of them. Putting
/// together what was taken apart gives the same characters with the same attributes for every text; codes without
/// effect go.
class TKxCaptionText
{
public:
    TKxCaptionText() = default;
    /// Takes the caption apart.
    explicit TKxCaptionText(std::string_view caption);
    /// No character of `text` is a code.
    TKxCaptionText(std::string_view text, TKxCaptionAttributes attributes);

    int Count() const { return static_cast<int>(FAttributes.size()); }
    /// All characters without codes.
    const std::string& Text() const { return FText; }
    /// Byte of `Text` where a character starts, of `Count` the length; and its 1-based byte in the caption.
    int Start(int index) const { return FStarts[static_cast<std::size_t>(index)]; }
    int Source(int index) const { return FSources[static_cast<std::size_t>(index)]; }
    /// In force at a character; none at -1, where the text begins; behind the last what the caption ends with.
    TKxCaptionAttributes Attributes(int index) const;
    void SetAttributes(int index, TKxCaptionAttributes attributes)
    {
        FAttributes[static_cast<std::size_t>(index)] = attributes;
    }
    TKxCaptionText Part(int from, int to) const;
    /// Characters [from, to) become others. Sources then stand for no caption.
    void Replace(int from, int to, const TKxCaptionText& with);

    /// The caption: scripts first, then "\s", "\b", "\i", "\u", "\o", then the character. A backslash is written as
    /// two, a blank behind a code as two. `position` becomes the 1-based byte behind the pending markers.
    TKxCaption Markup(const TKxPendingMarkers& pending, int& position) const;
    TKxCaption Markup() const;

private:
    void Append(const TKxCaptionText& other, int from, int to);
    void Add(std::string_view character, TKxCaptionAttributes attributes, std::size_t source);

    std::string FText;
    std::vector<std::int32_t> FStarts{0};
    std::vector<std::int32_t> FSources;
    std::vector<TKxCaptionAttributes> FAttributes;
    TKxCaptionAttributes FEnd = 0;
};

}  // namespace plotkit
