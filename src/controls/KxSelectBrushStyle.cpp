#include "controls/KxSelectBrushStyle.h"

namespace plotkit {

namespace {

template <class TPicker>
constexpr std::array BrushRows{
    // The offer comes before the style that is chosen from it.
    Property<&TPicker::GetShowBSClear, &TPicker::SetShowBSClear>("ShowBSClear"),
    Property<&TPicker::GetBrushStyle, &TPicker::SetBrushStyle>("BrushStyle"),
    Property<&TPicker::GetFillColor, &TPicker::SetFillColor>("FillColor"),
    Property<&TPicker::GetFrameColor, &TPicker::SetFrameColor>("FrameColor"),
};

}  // namespace

constinit const TClassInfo TKxBrushStylesList::Class{
    "TKxBrushStylesList", &TCustomListBox::Class, BrushRows<TKxBrushStylesList>, &CreateComponent<TKxBrushStylesList>};
constinit const TClassInfo TKxBrushStylesCombo::Class{"TKxBrushStylesCombo", &TCustomComboBox::Class,
                                                      BrushRows<TKxBrushStylesCombo>,
                                                      &CreateComponent<TKxBrushStylesCombo>};

template <class TBase>
TKxBrushStylesPicker<TBase>::TKxBrushStylesPicker(TComponent* owner) : TKxPicker<TBase>(owner)
{
    this->SetItemCount(bsDiagonalCross);
    // Room for two lines of a hatch.
    this->SetItemHeight(24);
    this->SetBounds(0, 0, 121, this->GetHeight() + 8);
}

template <class TBase>
void TKxBrushStylesPicker<TBase>::SetBrushStyle(TBrushStyle style)
{
    this->SetItemIndex(FShowBSClear ? style : std::max(style - 1, 0));
}

template <class TBase>
void TKxBrushStylesPicker<TBase>::SetShowBSClear(bool show)
{
    if (FShowBSClear == show)
        return;
    FShowBSClear = show;
    this->SetItemCount(show ? bsDiagonalCross + 1 : +bsDiagonalCross);
    this->Invalidate();
}

template <class TBase>
void TKxBrushStylesPicker<TBase>::DrawItem(TCanvas& canvas, int index, const TRect& box)
{
    this->FillBackground(canvas, box);
    const int d = this->ItemPixels() / 5;
    canvas.Pen = TPen{FFrameColor, psSolid, 1, dmCopy};
    canvas.Brush.SetColor(FFillColor);
    canvas.Brush.SetStyle(StyleOf(index));
    canvas.Rectangle(box.Left + d, box.Top + d, box.Right - d, box.Bottom - d);
}

template class TKxBrushStylesPicker<TCustomListBox>;
template class TKxBrushStylesPicker<TCustomComboBox>;

}  // namespace plotkit
