// The job of KxSelectBrushStyle is to let a user choose the style of a fill by its picture, from a list or a drop-down.
#pragma once

#include "controls/KxPicker.h"

namespace plotkit {

/// Seven items, solid and the six hatches, or eight with the clear style, which then stands second.
template <class TBase>
class TKxBrushStylesPicker : public TKxPicker<TBase>
{
public:
    explicit TKxBrushStylesPicker(TComponent* owner);

    TBrushStyle GetBrushStyle() const { return StyleOf(this->SelectedItem()); }
    /// The clear style selects the solid one where it is not offered.
    void SetBrushStyle(TBrushStyle style);
    TColor GetFillColor() const { return FFillColor; }
    void SetFillColor(TColor color) { this->ChangeLook(FFillColor, color); }
    TColor GetFrameColor() const { return FFrameColor; }
    void SetFrameColor(TColor color) { this->ChangeLook(FFrameColor, color); }
    bool GetShowBSClear() const { return FShowBSClear; }
    /// The selected place stays, so that another style may stand there.
    void SetShowBSClear(bool show);
    /// What an item stands for.
    TBrushStyle StyleOf(int index) const
    {
        return static_cast<TBrushStyle>(index + (index > 0 && !FShowBSClear ? 1 : 0));
    }

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override;

private:
    TColor FFillColor = clGray;
    TColor FFrameColor = clWindowText;
    bool FShowBSClear = false;
};

class TKxBrushStylesList : public TKxBrushStylesPicker<TCustomListBox>
{
public:
    using TKxBrushStylesPicker::TKxBrushStylesPicker;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

class TKxBrushStylesCombo : public TKxBrushStylesPicker<TCustomComboBox>
{
public:
    using TKxBrushStylesPicker::TKxBrushStylesPicker;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

}  // namespace plotkit
