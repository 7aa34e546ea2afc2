#include "foundation/KxLargeIni.h"
#include "foundation/KxStrings.h"

namespace plotkit {

namespace {

template <class T, class TText>
std::string Joined(const TArray<T>& values, TText textOf)
{
    std::string text;
    for (std::size_t i = 0; i < values.Length(); ++i) {
        if (i > 0)
            text += ';';
        text += textOf(values[i]);
    }
    return text;
}

/// Elements that the text has no number for stay.
template <class T, class TSource, class TExtract>
void FillFrom(TSource text, TArray<T>& values, TExtract extract)
{
    if (text.empty() || values.IsEmpty())
        return;
    T* const written = values.Write();
    try {
        for (std::size_t i = 0; i < values.Length(); ++i)
            written[i] = extract(text);
    } catch (const EConvertError&) {
        return;
    }
}

/// As ExtractOneInt does it to a text, without moving all that is left of a long one each time.
int ExtractInt(std::string_view& rest)
{
    constexpr std::size_t LongEnough = 64;
    EraseToNumber(rest);
    for (std::size_t length : {LongEnough, rest.size()}) {
        std::string piece(rest.substr(0, length));
        const std::size_t before = piece.size();
        const int value = ExtractOneInt(piece);
        if (piece.size() == before && before < rest.size())
            continue;  // nothing but digits so far
        rest.remove_prefix(before - piece.size());
        return value;
    }
    return 0;
}

}  // namespace

void TKxIniList::ReadRealArray(TText section, TText ident, TKxRealArray& values) const
{
    FillFrom(FindValue(section, ident), values, [](TText& text) { return ExtractOneReal(text); });
}

void TKxIniList::WriteRealArray(TText section, TText ident, const TKxRealArray& values)
{
    WriteString(section, ident, Joined(values, RealToAmericanStr));
}

void TKxIniList::ReadIntArray(TText section, TText ident, TKxIntegerArray& values) const
{
    FillFrom(FindValue(section, ident), values, ExtractInt);
}

void TKxIniList::WriteIntArray(TText section, TText ident, const TKxIntegerArray& values)
{
    WriteString(section, ident, Joined(values, [](std::int32_t value) { return std::to_string(value); }));
}

void TKxIniList::ReadRealPos(TText section, TText ident, TKxRealPos& value) const
{
    TText text = FindValue(section, ident);
    if (text.empty())
        return;
    try {
        const double position = ExtractOneReal(text);
        value = {position, ExtractOneReal(text)};
    } catch (const EConvertError&) {
        return;
    }
}

void TKxIniList::WriteRealPos(TText section, TText ident, const TKxRealPos& value)
{
    WriteString(section, ident, RealToAmericanStr(value.Position) + ";" + RealToAmericanStr(value.Value));
}

}  // namespace plotkit
