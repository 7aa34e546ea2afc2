#include "controls/KxSelectLine.h"

namespace plotkit {

namespace {

template <class TPicker>
constexpr std::array LineRows{
    Property<&TPicker::GetPenStyle, &TPicker::SetPenStyle>("PenStyle"),
    Property<&TPicker::GetLineColor, &TPicker::SetLineColor>("LineColor"),
};

constexpr int StyleCount = psDashDotDot + 1;
constexpr int Margin = 2;

}  // namespace

constinit const TClassInfo TKxLineStylesList::Class{"TKxLineStylesList", &TCustomListBox::Class,
                                                    LineRows<TKxLineStylesList>, &CreateComponent<TKxLineStylesList>};
constinit const TClassInfo TKxLineStylesCombo::Class{
    "TKxLineStylesCombo", &TCustomComboBox::Class, LineRows<TKxLineStylesCombo>, &CreateComponent<TKxLineStylesCombo>};

template <class TBase>
TKxLineStylesPicker<TBase>::TKxLineStylesPicker(TComponent* owner) : TKxPicker<TBase>(owner)
{
    this->SetItemCount(StyleCount);
}

template <class TBase>
void TKxLineStylesPicker<TBase>::DrawItem(TCanvas& canvas, int index, const TRect& box)
{
    this->FillBackground(canvas, box);
    canvas.Pen = TPen{FLineColor, static_cast<TPenStyle>(index), 1, dmCopy};
    const int margin = this->Px(Margin), y = box.Top + this->ItemPixels() / 2;
    DrawLine(box.Left + margin, y, box.Right - margin, y, canvas);
}

template class TKxLineStylesPicker<TCustomListBox>;
template class TKxLineStylesPicker<TCustomComboBox>;

}  // namespace plotkit
