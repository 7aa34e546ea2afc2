#include <cmath>

#include "data/KxVector.h"
#include "foundation/KxLargeIni.h"
#include "foundation/KxStrings.h"

namespace plotkit {

namespace {

/// All reals of one field; false when something in it is no real.
bool AddReals(std::string_view field, TKxRealVector& vector)
{
    EraseToNumber(field);
    try {
        while (!field.empty())
            vector.Add(ExtractOneReal(field));
    } catch (const EConvertError&) {
        return false;
    }
    return true;
}

}  // namespace

void TKxIniList::WriteRealVector(TText section, TText ident, const TKxCustomRealVector& vector)
{
    std::string text;
    bool first = true;
    for (const double value : vector.Values()) {
        if (!first)
            text += ';';
        first = false;
        if (std::isfinite(value))
            text += RealToAmericanStr(value);
    }
    WriteString(section, ident, text);
}

void TKxIniList::ReadRealVector(TText section, TText ident, TKxRealVector& vector) const
{
    const std::string text = ReadString(section, ident, {});
    vector.Clear();
    std::string_view rest = text;
    for (bool more = !rest.empty(); more;) {
        const std::size_t end = rest.find(';');
        const std::string_view field = rest.substr(0, end);
        more = end != std::string_view::npos;
        if (more)
            rest.remove_prefix(end + 1);
        if (field.find_first_not_of(' ') == std::string_view::npos)
            vector.Add(std::nan(""));
        else if (!AddReals(field, vector))
            return;
    }
}

void TKxIniList::ReadXYVector(TText section, TKxRealVector& xVector, TKxRealVector& yVector) const
{
    TStringList lines;
    ReadSectionValues(section, lines);
    xVector.Clear();
    yVector.Clear();
    for (const std::string& line : lines.Lines()) {
        std::string_view text = line;
        try {
            const double x = ExtractOneReal(text);
            const double y = ExtractOneReal(text);
            xVector.Add(x);
            yVector.Add(y);
        } catch (const EConvertError&) {
            continue;
        }
    }
}

}  // namespace plotkit
