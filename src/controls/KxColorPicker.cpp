#include "controls/KxColorPicker.h"

#include "host/CustomComboBox.h"

namespace plotkit {

template <class TBase>
void TKxColorPicker<TBase>::SetSelected(TColor color)
{
    if (FSelected == color)
        return;
    FSelected = color;
    ColorsChanged();
}

template <class TBase>
void TKxColorPicker<TBase>::SetRecent(TKxRecentColors* recent)
{
    if (FRecent == recent)
        return;
    if (FRecent)
        this->StopWatching(FRecent);
    FRecent = recent;
    this->WatchFor(recent);
    if (FForm)
        FForm->SetRecent(recent);
    ColorsChanged();
}

template <class TBase>
void TKxColorPicker<TBase>::Notification(TComponent* component, TOperation operation)
{
    TBase::Notification(component, operation);
    if (operation == opRemove && component == FRecent)
        FRecent = nullptr;
}

template <class TBase>
TKxColorPickerForm& TKxColorPicker<TBase>::PickerForm()
{
    if (!FForm) {
        FForm = std::make_unique<TKxColorPickerForm>(nullptr);
        FForm->SetRecent(FRecent);
        FForm->OnAccept = TEvent<>::Bind<&TKxColorPicker::TakeAccepted>(this);
    }
    return *FForm;
}

template <class TBase>
void TKxColorPicker<TBase>::TakeAccepted()
{
    const TColor before = std::exchange(FSelected, FForm->GetSelected());
    // The colour is one of the recent ones now.
    ColorsChanged();
    if (FSelected != before)
        TellChosen();
}

template <class TBase>
void TKxColorPicker<TBase>::Choose(TColor color)
{
    FSelected = color;
    TellChosen();
}

template class TKxColorPicker<TCustomButton>;
template class TKxColorPicker<TCustomComboBox>;

}  // namespace plotkit
