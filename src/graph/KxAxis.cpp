#include "graph/KxAxis.h"

#include "foundation/KxLargeIni.h"
#include "graph/KxAxisLayout.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"
#include "host/ControlProperties.h"

namespace plotkit {

namespace {

constexpr std::array ScaleRows{
    Property<&TKxAxis::GetPosition, &TKxAxis::SetPosition>("Position"),
    Property<&TKxAxis::GetScaling, &TKxAxis::SetScaling>("Scaling"),
    Property<&TKxAxis::GetTwisted, &TKxAxis::SetTwisted>("Twisted"),
    Property<&TKxAxis::GetStartEnd, &TKxAxis::SetStartEnd>("StartEnd"),
    Property<&TKxAxis::GetStopEnd, &TKxAxis::SetStopEnd>("StopEnd"),
    Property<&TKxAxis::GetStart, &TKxAxis::SetStart>("Start"),
    Property<&TKxAxis::GetStop, &TKxAxis::SetStop>("Stop"),
    Property<&TKxAxis::GetAutoTicks, &TKxAxis::SetAutoTicks>("AutoTicks"),
    Property<&TKxAxis::GetTickPart, &TKxAxis::SetTickPart, &TKxAxis::IsNotAutoTicks>("TickPart"),
    Property<&TKxAxis::GetMajorTickPart, &TKxAxis::SetMajorTickPart, &TKxAxis::IsNotAutoTicks>("MajorTickPart"),
    Property<&TKxAxis::GetLabelPart, &TKxAxis::SetLabelPart, &TKxAxis::IsNotAutoTicks>("LabelPart"),
    Property<&TKxAxis::GetMaxExpForScaleExp, &TKxAxis::SetMaxExpForScaleExp>("MaxExpForScaleExp"),
    Property<&TKxAxis::GetMinExpForScaleExp, &TKxAxis::SetMinExpForScaleExp>("MinExpForScaleExp"),
    Property<&TKxAxis::GetIsSlaveAxis, &TKxAxis::SetIsSlaveAxis>("IsSlaveAxis"),
    Reference<&TKxAxis::GetMasterAxis, &TKxAxis::SetMasterAxis>("MasterAxis"),
};

constexpr std::array LookRows{
    Property<&TKxAxis::GetShowCaption, &TKxAxis::SetShowCaption>("ShowCaption"),
    Property<&TKxAxis::GetShowScaleLabels, &TKxAxis::SetShowScaleLabels>("ShowScaleLabels"),
    Property<&TKxAxis::GetAutoSize, &TKxAxis::SetAutoSize>("AutoSize"),
    Property<&TKxAxis::GetTransparent, &TKxAxis::SetTransparent>("Transparent"),
    Property<&TKxAxis::GetBorderCaptionGap, &TKxAxis::SetBorderCaptionGap>("BorderCaptionGap"),
    Property<&TKxAxis::GetCaptionScalingsGap, &TKxAxis::SetCaptionScalingsGap>("CaptionScalingsGap"),
    Property<&TKxAxis::GetScalingsTicksGap, &TKxAxis::SetScalingsTicksGap>("ScalingsTicksGap"),
    Property<&TKxAxis::GetExponentScalingsGap, &TKxAxis::SetExponentScalingsGap>("ExponentScalingsGap"),
    Property<&TKxAxis::GetValuesTicksGap, &TKxAxis::SetValuesTicksGap>("ValuesTicksGap"),
    Property<&TKxAxis::GetMajorTickLength, &TKxAxis::SetMajorTickLength>("MajorTickLength"),
    Property<&TKxAxis::GetTickLength, &TKxAxis::SetTickLength>("TickLength"),
    Property<&TKxAxis::GetAxisColor, &TKxAxis::SetAxisColor>("AxisColor"),
    Property<&TKxAxis::GetTickColor, &TKxAxis::SetTickColor>("TickColor"),
    Property<&TKxAxis::GetMajorTickColor, &TKxAxis::SetMajorTickColor>("MajorTickColor"),
    Property<&TKxAxis::GetAxisThicknes, &TKxAxis::SetAxisThicknes>("AxisThicknes"),
    Property<&TKxAxis::GetTickThicknes, &TKxAxis::SetTickThicknes>("TickThicknes"),
    Property<&TKxAxis::GetMajorTickThicknes, &TKxAxis::SetMajorTickThicknes>("MajorTickThicknes"),
    Sub<&TKxAxis::GetCaptionFont>("CaptionFont"),
    Property<&TKxAxis::GetCaption, &TKxAxis::SetCaption, &TKxAxis::IsCaptionStored>("Caption"),
};

constexpr auto AxisProperties = JoinRows(ScaleRows, LookRows, ControlLookRows, ControlEventRows);

}  // namespace

constinit const TClassInfo TKxAxis::Class{"TKxAxis", &TGraphicControl::Class, AxisProperties,
                                          &CreateComponent<TKxAxis>};

TKxAxis::TKxAxis(TComponent* owner) : TKxAxisZoom(owner)
{
    FRange.SetStartStop(0, 100);
    SetBounds(0, 0, 400, 50);
}

TKxAxis::~TKxAxis()
{
    BeginDestroy();
    DestroyComponents();
}

void TKxAxis::Calculate()
{
    TKxAxisLayout(*this).Run();
}

void TKxAxis::CMVisibleChanged()
{
    TKxAxisZoom::CMVisibleChanged();
    if (!GetVisible())
        CaptionLabel().SetVisible(false);
    ShowCaptionText();
    Modified();
    // An axis that is not visible does not paint, and so does not give back its room by itself.
    TellGraph();
}

void TKxAxis::CMScaleChanged()
{
    TKxAxisZoom::CMScaleChanged();
    if (GraphOf(*this))
        return;
    constexpr int margin = 30;
    FAxisX = Px(margin);
    FAxisY = Px(margin);
    FPixelLength = GetWidth() - 2 * Px(margin);
}

}  // namespace plotkit
