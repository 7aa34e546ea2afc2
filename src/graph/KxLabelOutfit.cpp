#include "foundation/KxLargeIni.h"
#include "graph/KxResultLabel.h"

namespace plotkit {

void TKxCustomLabel::SaveOutfit(const std::string& section, TKxIniList& list)
{
    list.WriteFont(section, "Font", GetFont());
    list.WriteBool(section, "Visible", GetVisible());
    list.WriteInteger(section, "Color", ColorToInt(GetColor()));
    list.WriteBool(section, "Transparent", GetTransparent());
    list.WriteInteger(section, "Alignment", GetAlignment());
    list.WriteInteger(section, "Angle", GetAngle());
    list.WriteInteger(section, "XPosition", StoredPx(GetXPosition()));
    list.WriteInteger(section, "Top", StoredPx(GetTop()));
}

void TKxCustomLabel::LoadOutfit(const std::string& section, TKxIniList& list)
{
    const int x = StoredPx(GetXPosition()), top = StoredPx(GetTop());
    const int newX = list.ReadInteger(section, "XPosition", x), newTop = list.ReadInteger(section, "Top", top);
    list.ReadFont(section, "Font", GetFont());
    SetVisible(list.ReadBool(section, "Visible", GetVisible()));
    SetColor(IntToColor(list.ReadInteger(section, "Color", ColorToInt(GetColor()))));
    SetTransparent(list.ReadBool(section, "Transparent", GetTransparent()));
    SetAlignment(list.ReadOrdinal(section, "Alignment", GetAlignment(), AlignmentNames.size()));
    SetAngle(list.ReadInteger(section, "Angle", GetAngle()));
    if (newTop != top)
        SetTop(Px(newTop));
    if (newX != x)
        SetXPosition(Px(newX));
}

void TKxLabel::SaveOutfit(const std::string& section, TKxIniList& list)
{
    list.WriteString(section, "Caption", GetCaption());
    TKxCustomLabel::SaveOutfit(section, list);
}

void TKxLabel::LoadOutfit(const std::string& section, TKxIniList& list)
{
    SetCaption(list.ReadString(section, "Caption", GetCaption()));
    TKxCustomLabel::LoadOutfit(section, list);
}

void TKxResultLabel::SaveOutfit(const std::string& section, TKxIniList& list)
{
    TKxCustomLabel::SaveOutfit(section, list);
    list.WriteInteger(section, "Digits", GetDigits());
}

void TKxResultLabel::LoadOutfit(const std::string& section, TKxIniList& list)
{
    TKxCustomLabel::LoadOutfit(section, list);
    SetDigits(list.ReadInteger(section, "Digits", GetDigits()));
}

}  // namespace plotkit
