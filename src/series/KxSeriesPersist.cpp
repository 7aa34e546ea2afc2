#include <string>
#include <vector>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

std::string ChildSection(const std::string& section, int number)
{
    return section + ".Child(" + std::to_string(number) + ")";
}

}  // namespace

void TKxSeries::WriteToIni(TKxIniList& list, const std::string& section)
{
    WriteCaptionToIni(list, section);
    list.WriteLine(section, "Line", FLineStyle);
    list.WriteArea(section, "Area", FAreaStyle);
    list.WriteComponentRef(section, "XAxis", FX.Axis);
    list.WriteComponentRef(section, "YAxis", FY.Axis);
    list.WriteComponentRef(section, "XData", FX.Data);
    list.WriteComponentRef(section, "YData", FY.Data);
    list.WriteComponentRef(section, "Weight", FWeight);
    list.WriteInteger(section, "ChildCount", FChilds.Count());
    for (int i = 0; i < FChilds.Count(); ++i)
        FChilds[i]->WriteToIni(list, ChildSection(section, i + 1));
}

void TKxSeries::ReadFromIni(TKxIniList& list, const std::string& section)
{
    ReadCaptionFromIni(list, section);
    list.ReadLine(section, "Line", FLineStyle);
    list.ReadArea(section, "Area", FAreaStyle);
    if (TKxAxis* axis = FX.Axis; list.ReadComponentRef(section, "XAxis", axis))
        SetXAxis(axis);
    if (TKxAxis* axis = FY.Axis; list.ReadComponentRef(section, "YAxis", axis))
        SetYAxis(axis);
    if (TKxCustomRealVector* vector = FX.Data; list.ReadComponentRef(section, "XData", vector))
        SetXData(vector);
    if (TKxCustomRealVector* vector = FY.Data; list.ReadComponentRef(section, "YData", vector))
        SetYData(vector);
    if (TKxCustomRealVector* vector = FWeight; list.ReadComponentRef(section, "Weight", vector))
        SetWeight(vector);
    const int saved = list.ReadInteger(section, "ChildCount", 0);
    int number = 0;
    // A child may be read into the hands of another parent.
    for (TKxPlottable* const child : saved > 0 ? std::vector(FChilds.Items()) : std::vector<TKxPlottable*>())
        child->ReadFromIni(list, ChildSection(section, number++ % saved + 1));
}

}  // namespace plotkit
