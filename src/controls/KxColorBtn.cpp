#include "controls/KxColorBtn.h"

#include "host/ControlProperties.h"

namespace plotkit {

namespace {

constexpr std::array EventRows{Event<TKxColorBtn, &TKxColorBtn::OnChange>("OnChange")};
constexpr std::array ButtonRows = JoinRows(ColorPickerRows<TKxColorBtn>, EventRows);

}  // namespace

constinit const TClassInfo TKxColorBtn::Class{"TKxColorBtn", &TCustomButton::Class, ButtonRows,
                                              &CreateComponent<TKxColorBtn>};

void TKxColorBtn::Click()
{
    const auto alive = Lifeline().Watch();
    TCustomButton::Click();
    if (!alive.expired())
        PickerForm().Open(GetSelected());
}

void TKxColorBtn::PaintFace(TCanvas& canvas, const TRect& box)
{
    DrawColorSwatch(canvas, box, GetEnabled() ? GetSelected() : clButtonFace);
}

}  // namespace plotkit
