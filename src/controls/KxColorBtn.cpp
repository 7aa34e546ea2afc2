#include "controls/KxColorBtn.h"

namespace plotkit {

namespace {

constexpr std::array ButtonRows{
    Property<&TKxColorBtn::GetSelected, &TKxColorBtn::SetSelected>("Selected"),
    Reference<&TKxColorBtn::GetRecent, &TKxColorBtn::SetRecent>("Recent"),
    Event<TKxColorBtn, &TKxColorBtn::OnChange>("OnChange"),
};

}  // namespace

constinit const TClassInfo TKxColorBtn::Class{"TKxColorBtn", &TCustomButton::Class, ButtonRows,
                                              &CreateComponent<TKxColorBtn>};

TKxColorBtn::TKxColorBtn(TComponent* owner) : TCustomButton(owner) {}

TKxColorBtn::~TKxColorBtn()
{
    BeginDestroy();
}

void TKxColorBtn::SetSelected(TColor color)
{
    if (FSelected == color)
        return;
    FSelected = color;
    Invalidate();
}

void TKxColorBtn::SetRecent(TKxRecentColors* recent)
{
    if (FRecent == recent)
        return;
    if (FRecent)
        StopWatching(FRecent);
    FRecent = recent;
    WatchFor(recent);
    if (FForm)
        FForm->SetRecent(recent);
}

void TKxColorBtn::Notification(TComponent* component, TOperation operation)
{
    TCustomButton::Notification(component, operation);
    if (operation == opRemove && component == FRecent)
        FRecent = nullptr;
}

TKxColorPickerForm& TKxColorBtn::PickerForm()
{
    if (!FForm) {
        FForm = std::make_unique<TKxColorPickerForm>(nullptr);
        FForm->SetRecent(FRecent);
        FForm->OnAccept = TEvent<>::Bind<&TKxColorBtn::TakeAccepted>(this);
    }
    return *FForm;
}

void TKxColorBtn::Click()
{
    const auto alive = Lifeline().Watch();
    TCustomButton::Click();
    if (!alive.expired())
        PickerForm().Open(FSelected);
}

void TKxColorBtn::TakeAccepted()
{
    if (FForm->GetSelected() == FSelected)
        return;
    SetSelected(FForm->GetSelected());
    OnChange();
}

void TKxColorBtn::PaintFace(TCanvas& canvas, const TRect& box)
{
    DrawColorSwatch(canvas, box, GetEnabled() ? FSelected : clButtonFace);
}

}  // namespace plotkit
