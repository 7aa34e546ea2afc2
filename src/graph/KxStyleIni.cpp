#include <string>

#include "foundation/KxLargeIni.h"
#include "graph/KxStyles.h"

namespace plotkit {

namespace {

std::string Key(std::string_view prefix, std::string_view name)
{
    return std::string(prefix) + std::string(name);
}

}  // namespace

void TKxIniList::WriteLine(TText section, TText prefix, const TKxLineStyle& style)
{
    WriteBool(section, Key(prefix, ".Visible"), style.GetVisible());
    WriteInteger(section, Key(prefix, ".Color"), ColorToInt(style.GetColor()));
    WriteInteger(section, Key(prefix, ".Style"), style.GetStyle());
    WriteInteger(section, Key(prefix, ".Width"), style.GetWidth());
}

void TKxIniList::ReadLine(TText section, TText prefix, TKxLineStyle& style) const
{
    style.SetVisible(ReadBool(section, Key(prefix, ".Visible"), style.GetVisible()));
    style.SetColor(IntToColor(ReadInteger(section, Key(prefix, ".Color"), ColorToInt(style.GetColor()))));
    style.SetStyle(ReadOrdinal(section, Key(prefix, ".Style"), style.GetStyle(), PenStyleNames.size()));
    style.SetWidth(ReadInteger(section, Key(prefix, ".Width"), style.GetWidth()));
}

void TKxIniList::WriteArea(TText section, TText prefix, const TKxAreaStyle& style)
{
    WriteBool(section, Key(prefix, ".Visible"), style.GetVisible());
    WriteInteger(section, Key(prefix, ".Color"), ColorToInt(style.GetColor()));
    WriteInteger(section, Key(prefix, ".Style"), style.GetStyle());
    WriteBool(section, Key(prefix, ".DrawXORed"), style.GetDrawXOred());
}

void TKxIniList::ReadArea(TText section, TText prefix, TKxAreaStyle& style) const
{
    style.SetVisible(ReadBool(section, Key(prefix, ".Visible"), style.GetVisible()));
    style.SetColor(IntToColor(ReadInteger(section, Key(prefix, ".Color"), ColorToInt(style.GetColor()))));
    style.SetStyle(ReadOrdinal(section, Key(prefix, ".Style"), style.GetStyle(), BrushStyleNames.size()));
    style.SetDrawXOred(ReadBool(section, Key(prefix, ".DrawXORed"), style.GetDrawXOred()));
}

}  // namespace plotkit
