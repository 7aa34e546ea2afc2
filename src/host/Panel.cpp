#include "host/Panel.h"

#include "host/ControlProperties.h"

namespace plotkit {

namespace {

constexpr std::array PanelProperties = JoinRows(ControlLookRows, ControlEventRows);

}  // namespace

constinit const TClassInfo TPanel::Class{"TPanel", &TWindowControl::Class, PanelProperties, &CreateComponent<TPanel>};

TPanel::TPanel(TComponent* owner) : TWindowControl(owner)
{
    TControl::SetColor(clButtonFace);
}

void TPanel::Paint()
{
    TCanvas& canvas = Canvas();
    canvas.Brush.SetColor(GetColor());
    canvas.FillRect(ClientRect());
}

}  // namespace plotkit
