// The job of KxSelectPoints is to let a user choose the symbol of points by its picture, from a list or a drop-down.
#pragma once

#include "controls/KxPicker.h"

namespace plotkit {

/// An item per symbol, in the order of TKxPointSymbol; a list shows them in four columns.
template <class TBase>
class TKxPointSymbolsPicker : public TKxPicker<TBase>
{
public:
    explicit TKxPointSymbolsPicker(TComponent* owner);

    TKxPointSymbol GetPointSymbol() const { return static_cast<TKxPointSymbol>(this->SelectedItem()); }
    void SetPointSymbol(TKxPointSymbol symbol) { this->SetItemIndex(symbol); }
    TColor GetLineColor() const { return FLineColor; }
    void SetLineColor(TColor color) { this->ChangeLook(FLineColor, color); }
    int GetLineWidth() const { return 1; }

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override;

private:
    TColor FLineColor = clRed;
};

class TKxPointSymbolsList : public TKxPointSymbolsPicker<TCustomListBox>
{
public:
    explicit TKxPointSymbolsList(TComponent* owner) : TKxPointSymbolsPicker(owner) { SetColumns(4); }

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

class TKxPointSymbolsCombo : public TKxPointSymbolsPicker<TCustomComboBox>
{
public:
    using TKxPointSymbolsPicker::TKxPointSymbolsPicker;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

}  // namespace plotkit
