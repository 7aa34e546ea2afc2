// The job of KxColorPickCombo is a drop-down of colours, the ones that all eyes tell apart first.
#pragma once

#include "controls/KxColorPicker.h"
#include "host/CustomComboBox.h"

namespace plotkit {

/// Distinct, plain, recent and desktop colours with their names, each kind behind a line; the last item opens the
/// window for any other colour. A selected colour that is none of them stands among the recent ones.
class TKxColorPickCombo : public TKxColorPicker<TCustomComboBox>
{
public:
    explicit TKxColorPickCombo(TComponent* owner);
    ~TKxColorPickCombo() noexcept override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    void DropDown() override;

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override;
    void ItemTaken(int index, bool fromList) override;
    void ColorsChanged() override { FillItems(); }
    void TellChosen() override { OnChange(); }

private:
    struct TItem
    {
        TColor Color;
        bool IsFirst;  ///< of its kind
    };

    void FillItems();
    void Offer(std::span<const TKxNamedColor> colors);
    bool IsOther(int index) const { return index == static_cast<int>(FColors.size()); }

    std::vector<TItem> FColors;
};

}  // namespace plotkit
