// The job of KxColorBtn is a button that shows a colour and opens the window in which another one is chosen.
#pragma once

#include "controls/KxColorPickerForm.h"

namespace plotkit {

class TKxColorBtn : public TCustomButton
{
public:
    explicit TKxColorBtn(TComponent* owner);
    ~TKxColorBtn() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TColor GetSelected() const { return FSelected; }
    void SetSelected(TColor color);
    /// The list that the window shows and adds to.
    TKxRecentColors* GetRecent() const { return FRecent; }
    void SetRecent(TKxRecentColors* recent);
    /// The user has chosen another colour.
    TEvent<> OnChange;

    /// The window, made on first use: whoever shows windows puts a site on it at its `OnShow`.
    TKxColorPickerForm& PickerForm();
    void Click() override;

protected:
    void PaintFace(TCanvas& canvas, const TRect& box) override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    void TakeAccepted();

    std::unique_ptr<TKxColorPickerForm> FForm;
    TKxRecentColors* FRecent = nullptr;
    TColor FSelected = clBlack;
};

}  // namespace plotkit
