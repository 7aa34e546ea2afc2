// The job of KxPicker is what the pickers of styles share, as lists and as drop-downs: items that are only pictures.
#pragma once

#include "graph/KxDraw.h"
#include "host/CustomComboBox.h"
#include "host/CustomListBox.h"

namespace plotkit {

/// `TBase`: TCustomListBox or TCustomComboBox. The texts of the items are placeholders; their places count.
template <class TBase>
class TKxPicker : public TBase
{
public:
    using TBase::TBase;

protected:
    void SetItemCount(int count)
    {
        TStringList items;
        for (int i = 0; i < count; ++i)
            items.Add("1");
        this->SetItems(items);
    }
    /// Of a picker without a selection the first item, which it then selects.
    int SelectedItem() const
    {
        if (this->GetItemIndex() < 0)
            const_cast<TKxPicker*>(this)->SetItemIndex(0);
        return this->GetItemIndex();
    }
    template <class T>
    void ChangeLook(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        this->Invalidate();
    }
    /// The brush is then the background's, as open symbols want it.
    void FillBackground(TCanvas& canvas, const TRect& box) const
    {
        canvas.Brush.SetColor(this->GetEnabled() ? this->GetColor() : clButtonFace);
        canvas.FillRect(box);
    }
    int ItemPixels() const { return this->Px(this->GetItemHeight()); }
};

}  // namespace plotkit
