// The job of KxColorBtn is a button that shows a colour and opens the window in which another one is chosen.
#pragma once

#include "controls/KxColorPicker.h"

namespace plotkit {

class TKxColorBtn : public TKxColorPicker<TCustomButton>
{
public:
    using TKxColorPicker::TKxColorPicker;
    ~TKxColorBtn() override { BeginDestroy(); }

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The user has chosen another colour.
    TEvent<> OnChange;

    void Click() override;

protected:
    void PaintFace(TCanvas& canvas, const TRect& box) override;
    void ColorsChanged() override { Invalidate(); }
    void TellChosen() override { OnChange(); }
};

}  // namespace plotkit
