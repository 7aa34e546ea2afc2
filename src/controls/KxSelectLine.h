// The job of KxSelectLine is to let a user choose the style of a line by its picture, from a list or a drop-down.
#pragma once

#include "controls/KxPicker.h"

namespace plotkit {

/// Five items, from solid to dash-dot-dot.
template <class TBase>
class TKxLineStylesPicker : public TKxPicker<TBase>
{
public:
    explicit TKxLineStylesPicker(TComponent* owner);

    TPenStyle GetPenStyle() const { return static_cast<TPenStyle>(this->SelectedItem()); }
    /// Styles that are not offered select nothing.
    void SetPenStyle(TPenStyle style) { this->SetItemIndex(style); }
    TColor GetLineColor() const { return FLineColor; }
    void SetLineColor(TColor color) { this->ChangeLook(FLineColor, color); }

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override;

private:
    TColor FLineColor = clRed;
};

class TKxLineStylesList : public TKxLineStylesPicker<TCustomListBox>
{
public:
    using TKxLineStylesPicker::TKxLineStylesPicker;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

class TKxLineStylesCombo : public TKxLineStylesPicker<TCustomComboBox>
{
public:
    using TKxLineStylesPicker::TKxLineStylesPicker;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

}  // namespace plotkit
