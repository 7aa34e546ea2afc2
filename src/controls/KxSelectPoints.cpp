#include "controls/KxSelectPoints.h"

namespace plotkit {

namespace {

template <class TPicker>
constexpr std::array PointRows{
    Property<&TPicker::GetPointSymbol, &TPicker::SetPointSymbol>("PointSymbol"),
    Property<&TPicker::GetLineColor, &TPicker::SetLineColor>("LineColor"),
    ReadOnly<&TPicker::GetLineWidth>("LineWidth"),
};

}  // namespace

constinit const TClassInfo TKxPointSymbolsList::Class{"TKxPointSymbolsList", &TCustomListBox::Class,
                                                      PointRows<TKxPointSymbolsList>,
                                                      &CreateComponent<TKxPointSymbolsList>};
constinit const TClassInfo TKxPointSymbolsCombo::Class{"TKxPointSymbolsCombo", &TCustomComboBox::Class,
                                                       PointRows<TKxPointSymbolsCombo>,
                                                       &CreateComponent<TKxPointSymbolsCombo>};

template <class TBase>
TKxPointSymbolsPicker<TBase>::TKxPointSymbolsPicker(TComponent* owner) : TKxPicker<TBase>(owner)
{
    this->SetItemCount(LastPtSymbol + 1);
}

template <class TBase>
void TKxPointSymbolsPicker<TBase>::DrawItem(TCanvas& canvas, int index, const TRect& box)
{
    this->FillBackground(canvas, box);
    canvas.Pen = TPen{FLineColor, psSolid, GetLineWidth(), dmCopy};
    // Within the frame of the selected item.
    const int height = this->ItemPixels(), size = height / 3;
    DrawPointSymbol(box.Left + box.Width() / 2 - this->Px(1), box.Top + height / 2, size,
                    static_cast<TKxPointSymbol>(index), canvas);
}

template class TKxPointSymbolsPicker<TCustomListBox>;
template class TKxPointSymbolsPicker<TCustomComboBox>;

}  // namespace plotkit
