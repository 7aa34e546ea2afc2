// The job of KxColorPicker is what the button and the drop-down for colours share: the colour, and the window in which
// any other one is chosen.
#pragma once

#include "controls/KxColorPickerForm.h"

namespace plotkit {

/// `TBase`: TCustomButton or TCustomComboBox.
template <class TBase>
class TKxColorPicker : public TBase
{
public:
    using TBase::TBase;

    TColor GetSelected() const { return FSelected; }
    void SetSelected(TColor color);
    /// The list that the window shows and adds to.
    TKxRecentColors* GetRecent() const { return FRecent; }
    void SetRecent(TKxRecentColors* recent);

    /// The window, made on first use: whoever shows windows puts a site on it at its `OnShow`.
    TKxColorPickerForm& PickerForm();

protected:
    /// There is another colour, or another list of recent ones.
    virtual void ColorsChanged() = 0;
    /// The user has chosen another colour.
    virtual void TellChosen() = 0;
    /// Another colour by the user, who sees it chosen.
    void Choose(TColor color);

    void Notification(TComponent* component, TOperation operation) override;

private:
    void TakeAccepted();

    std::unique_ptr<TKxColorPickerForm> FForm;
    TKxRecentColors* FRecent = nullptr;
    TColor FSelected = clBlack;
};

/// What they publish.
template <class TPicker>
inline constexpr std::array ColorPickerRows{
    Property<&TPicker::GetSelected, &TPicker::SetSelected>("Selected"),
    Reference<&TPicker::GetRecent, &TPicker::SetRecent>("Recent"),
};

}  // namespace plotkit
