#include "controls/KxCaptionText.h"

#include <array>
#include <utility>

#include "host/TextMeasurer.h"

namespace plotkit {

namespace {

/// In the order of writing, scripts apart.
constexpr std::array<std::pair<char, TKxCaptionAttribute>, 7> Codes{{
    {'s', caSymbol},
    {'b', caBold},
    {'i', caItalic},
    {'u', caUnderline},
    {'o', caStrikeOut},
    {'+', caSuperscript},
    {'-', caSubscript},
}};

/// 0 for what is no code.
TKxCaptionAttributes AttributeOf(char code)
{
    for (const auto& [letter, attribute] : Codes)
        if (code == letter || (code >= 'A' && code <= 'Z' && code - 'A' + 'a' == letter))
            return attribute;
    return 0;
}

class TMarkupWriter
{
public:
    /// Codes from one state to another.
    void Toggle(TKxCaptionAttributes from, TKxCaptionAttributes to)
    {
        const unsigned changed = from ^ to;
        // A script is closed before the other one is opened.
        const bool inSubscriptOnly = (from & (caSuperscript | caSubscript)) == caSubscript;
        for (const auto attribute :
             {inSubscriptOnly ? caSubscript : caSuperscript, inSubscriptOnly ? caSuperscript : caSubscript})
            if (changed & attribute)
                Code(attribute == caSubscript ? '-' : '+');
        for (const auto& [letter, attribute] : Codes)
            if (changed & attribute & ~unsigned{caSuperscript | caSubscript})
                Code(letter);
    }
    void Character(std::string_view character)
    {
        const auto first = static_cast<unsigned char>(character.front());
        if (character == "\\")
            return Code('\\');
        if (character == " " && FBehindCode)
            Markup += ' ';
        // Two bytes that are no characters must not become one; a lone backslash shows nothing.
        const bool wouldJoin = !FBehindCode && first >= 0x80 && first < 0xC0 && FLast >= 0xC2;
        if (wouldJoin)
            Markup += '\\';
        Markup += character;
        FBehindCode = false;
        FLast = character.size() == 1 ? first : 0;
    }

    TKxCaption Markup;

private:
    void Code(char code)
    {
        Markup += '\\';
        Markup += code;
        FBehindCode = true;
        FLast = 0;
    }

    bool FBehindCode = false;
    unsigned char FLast = 0;  ///< the byte before, when it was a character alone
};

}  // namespace

TKxCaptionText::TKxCaptionText(std::string_view caption)
{
    TKxCaptionAttributes attributes = 0;
    for (std::size_t at = 0; at < caption.size();) {
        if (caption[at] != '\\') {
            const auto length = static_cast<std::size_t>(CodePointLength(caption, at));
            Add(caption.substr(at, length), attributes, at);
            at += length;
            continue;
        }
        if (++at == caption.size())
            break;
        const TKxCaptionAttributes attribute = AttributeOf(caption[at]);
        if (!attribute && caption[at] != '\\')
            continue;
        if (!attribute)
            Add("\\", attributes, at);
        attributes ^= attribute;
        at += at + 1 < caption.size() && caption[at + 1] == ' ' ? 2 : 1;
    }
    FEnd = attributes;
}

TKxCaptionText::TKxCaptionText(std::string_view text, TKxCaptionAttributes attributes)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto length = static_cast<std::size_t>(CodePointLength(text, at));
        Add(text.substr(at, length), attributes, at);
        at += length;
    }
}

void TKxCaptionText::Add(std::string_view character, TKxCaptionAttributes attributes, std::size_t source)
{
    FText += character;
    FStarts.push_back(static_cast<std::int32_t>(FText.size()));
    FSources.push_back(static_cast<std::int32_t>(source) + 1);
    FAttributes.push_back(attributes);
    FEnd = attributes;
}

TKxCaptionAttributes TKxCaptionText::Attributes(int index) const
{
    if (index < 0)
        return 0;
    return index < Count() ? FAttributes[static_cast<std::size_t>(index)] : FEnd;
}

void TKxCaptionText::Append(const TKxCaptionText& other, int from, int to)
{
    const std::string_view text = other.FText;
    for (int i = from; i < to; ++i) {
        const auto start = static_cast<std::size_t>(other.Start(i));
        Add(text.substr(start, static_cast<std::size_t>(other.Start(i + 1)) - start), other.Attributes(i), start);
    }
}

TKxCaptionText TKxCaptionText::Part(int from, int to) const
{
    TKxCaptionText part;
    part.Append(*this, from, to);
    return part;
}

void TKxCaptionText::Replace(int from, int to, const TKxCaptionText& with)
{
    TKxCaptionText whole = Part(0, from);
    whole.Append(with, 0, with.Count());
    whole.Append(*this, to, Count());
    *this = std::move(whole);
}

TKxCaption TKxCaptionText::Markup(const TKxPendingMarkers& pending, int& position) const
{
    TMarkupWriter writer;
    writer.Markup.reserve(FText.size() + FText.size() / 8);
    TKxCaptionAttributes state = 0;
    const auto write = [&](TKxCaptionAttributes next) { writer.Toggle(std::exchange(state, next), next); };
    for (int i = 0; i <= Count(); ++i) {
        if (i == pending.At) {
            write(pending.Attributes);
            position = static_cast<int>(writer.Markup.size()) + 1;
            if (pending.Closed && i < Count())
                write(Attributes(i - 1));
        }
        if (i == Count())
            break;
        write(Attributes(i));
        const auto start = static_cast<std::size_t>(Start(i));
        writer.Character(std::string_view(FText).substr(start, static_cast<std::size_t>(Start(i + 1)) - start));
    }
    return std::move(writer.Markup);
}

TKxCaption TKxCaptionText::Markup() const
{
    int position = 0;
    return Markup(TKxPendingMarkers(), position);
}

}  // namespace plotkit
