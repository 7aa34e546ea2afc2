#include "foundation/KxLargeIni.h"
#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxResultLabel.h"

namespace plotkit {

namespace {

std::string SeriesSection(const std::string& section, int number)
{
    return section + ".Series(" + std::to_string(number) + ")";
}

}  // namespace

template <class TPart>
std::vector<TPart*> TKx2DGraph::PartsInside()
{
    std::vector<TPart*> parts;
    for (TComponent* component : AxesOwner().Components())
        if (auto* part = dynamic_cast<TPart*>(component); part && part->Parent() == this && !part->GetName().empty())
            parts.push_back(part);
    return parts;
}

template <class TAction>
void TKx2DGraph::ForEachAnnotation(const std::string& section, TAction action)
{
    const auto visit = [&](auto parts) {
        for (auto* part : parts)
            action(*part, section + "." + part->GetName());
    };
    visit(PartsInside<TKxAttachedLegend>());
    visit(PartsInside<TKxLabel>());
    visit(PartsInside<TKxResultLabel>());
}

void TKx2DGraph::SaveOutfit(const std::string& section, TKxIniList& list)
{
    list.WriteBool(section, "ShowTitle", FShowTitle);
    list.WriteString(section, "Caption", GetCaption());
    list.WriteFont(section, "Font", GetTitleFont());
    list.WriteInteger(section, "Color", ColorToInt(GetColor()));
    list.WriteInteger(section, "DataColor", ColorToInt(FDataColor));
    list.WriteBool(section, "ZeroOrigin", FZeroOrigin);
    list.WriteLine(section, "FrameLine", FFrameLine);
    list.WriteLine(section, "MajorGridX", FMajorGridX);
    list.WriteLine(section, "MinorGridX", FMinorGridX);
    list.WriteLine(section, "MajorGridY", FMajorGridY);
    list.WriteLine(section, "MinorGridY", FMinorGridY);
    for (TKxAxis* axis : AxesInside())
        axis->SaveOutfit(section + "." + axis->GetName(), list);
    const TKxSeriesList& series = GetSeriesList();
    list.WriteInteger(section, "SeriesCount", series.Count());
    for (int i = 0; i < series.Count(); ++i)
        series[i]->WriteToIni(list, SeriesSection(section, i + 1));
    list.WriteBool(section, "ShareYAxes", FShareYAxes);
    ForEachAnnotation(section, [&](auto& part, const std::string& own) { part.SaveOutfit(own, list); });
}

void TKx2DGraph::LoadOutfit(const std::string& section, TKxIniList& list)
{
    SetShowTitle(list.ReadBool(section, "ShowTitle", FShowTitle));
    SetCaption(list.ReadString(section, "Caption", GetCaption()));
    list.ReadFont(section, "Font", GetTitleFont());
    SetColor(IntToColor(list.ReadInteger(section, "Color", ColorToInt(GetColor()))));
    SetDataColor(IntToColor(list.ReadInteger(section, "DataColor", ColorToInt(FDataColor))));
    SetZeroOrigin(list.ReadBool(section, "ZeroOrigin", FZeroOrigin));
    list.ReadLine(section, "FrameLine", FFrameLine);
    list.ReadLine(section, "MajorGridX", FMajorGridX);
    list.ReadLine(section, "MinorGridX", FMinorGridX);
    list.ReadLine(section, "MajorGridY", FMajorGridY);
    list.ReadLine(section, "MinorGridY", FMinorGridY);
    SetShareYAxes(list.ReadBool(section, "ShareYAxes", FShareYAxes));  // series that find their parents ask for it
    for (TKxAxis* axis : AxesInside())
        axis->LoadOutfit(section + "." + axis->GetName(), list);
    const int saved = list.ReadInteger(section, "SeriesCount", 0);
    // A series that takes another axis goes to the end of the list.
    const std::vector<TKxPlottable*> series = GetSeriesList().Items();
    for (int i = 0; saved > 0 && i < static_cast<int>(series.size()); ++i)
        series[static_cast<std::size_t>(i)]->ReadFromIni(list, SeriesSection(section, i % saved + 1));
    ForEachAnnotation(section, [&](auto& part, const std::string& own) { part.LoadOutfit(own, list); });
}

}  // namespace plotkit
