#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"

namespace plotkit {

void TKxAxis::SaveOutfit(const std::string& section, TKxIniList& list)
{
    list.WriteFont(section, "Font", GetFont());
    list.WriteFont(section, "CaptionFont", GetCaptionFont());
    list.WriteBool(section, "DoUserCaption", GetDoUserCaption());
    list.WriteString(section, "UserCaption", GetUserCaption());
    list.WriteBool(section, "Visible", GetVisible());
    list.WriteBool(section, "Twisted", GetTwisted());
    list.WriteBool(section, "ShowCaption", GetShowCaption());
    list.WriteBool(section, "ShowScaleLabels", GetShowScaleLabels());
    list.WriteInteger(section, "MajorTickLength", GetMajorTickLength());
    list.WriteInteger(section, "TickLength", GetTickLength());
    list.WriteInteger(section, "StartEnd", GetStartEnd());
    list.WriteInteger(section, "StopEnd", GetStopEnd());
    list.WriteReal(section, "Start", GetStart());
    list.WriteReal(section, "Stop", GetStop());
    list.WriteInteger(section, "BorderCaptionGap", GetBorderCaptionGap());
    list.WriteInteger(section, "CaptionScalingsGap", GetCaptionScalingsGap());
    list.WriteInteger(section, "ScalingsTicksGap", GetScalingsTicksGap());
    list.WriteInteger(section, "ValuesTicksGap", GetValuesTicksGap());
    list.WriteInteger(section, "AxisColor", ColorToInt(GetAxisColor()));
    list.WriteInteger(section, "MajorTickColor", ColorToInt(GetMajorTickColor()));
    list.WriteInteger(section, "TickColor", ColorToInt(GetTickColor()));
    list.WriteBool(section, "AutoTicks", GetAutoTicks());
    list.WriteReal(section, "TickPart", GetTickPart());
    list.WriteReal(section, "MajorTickPart", GetMajorTickPart());
    list.WriteReal(section, "LabelPart", GetLabelPart());
    list.WriteInteger(section, "Scaling", GetScaling());
}

void TKxAxis::LoadOutfit(const std::string& section, TKxIniList& list)
{
    list.ReadFont(section, "Font", GetFont());
    list.ReadFont(section, "CaptionFont", GetCaptionFont());
    SetDoUserCaption(list.ReadBool(section, "DoUserCaption", GetDoUserCaption()));
    SetUserCaption(list.ReadString(section, "UserCaption", GetUserCaption()));
    SetVisible(list.ReadBool(section, "Visible", GetVisible()));
    // A scaling that changes lets the ends follow the data and decides whether the axis can be twisted.
    SetScaling(list.ReadOrdinal(section, "Scaling", GetScaling(), AxScalingNames.size()));
    SetTwisted(list.ReadBool(section, "Twisted", GetTwisted()));
    SetShowCaption(list.ReadBool(section, "ShowCaption", GetShowCaption()));
    SetShowScaleLabels(list.ReadBool(section, "ShowScaleLabels", GetShowScaleLabels()));
    SetMajorTickLength(list.ReadInteger(section, "MajorTickLength", GetMajorTickLength()));
    SetTickLength(list.ReadInteger(section, "TickLength", GetTickLength()));
    SetStartEnd(list.ReadOrdinal(section, "StartEnd", GetStartEnd(), AxEndNames.size()));
    SetStopEnd(list.ReadOrdinal(section, "StopEnd", GetStopEnd(), AxEndNames.size()));
    SetStart(list.ReadReal(section, "Start", GetStart()));
    SetStop(list.ReadReal(section, "Stop", GetStop()));
    SetBorderCaptionGap(list.ReadInteger(section, "BorderCaptionGap", GetBorderCaptionGap()));
    SetCaptionScalingsGap(list.ReadInteger(section, "CaptionScalingsGap", GetCaptionScalingsGap()));
    SetScalingsTicksGap(list.ReadInteger(section, "ScalingsTicksGap", GetScalingsTicksGap()));
    SetValuesTicksGap(list.ReadInteger(section, "ValuesTicksGap", GetValuesTicksGap()));
    SetAxisColor(IntToColor(list.ReadInteger(section, "AxisColor", ColorToInt(GetAxisColor()))));
    SetMajorTickColor(IntToColor(list.ReadInteger(section, "MajorTickColor", ColorToInt(GetMajorTickColor()))));
    SetTickColor(IntToColor(list.ReadInteger(section, "TickColor", ColorToInt(GetTickColor()))));
    SetAutoTicks(list.ReadBool(section, "AutoTicks", GetAutoTicks()));
    SetTickPart(list.ReadReal(section, "TickPart", GetTickPart()));
    SetMajorTickPart(list.ReadReal(section, "MajorTickPart", GetMajorTickPart()));
    SetLabelPart(list.ReadReal(section, "LabelPart", GetLabelPart()));
}

}  // namespace plotkit
