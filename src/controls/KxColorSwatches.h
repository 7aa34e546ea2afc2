// The job of KxColorSwatches is a row of colours of which one can be selected.
#pragma once

#include <vector>

#include "host/CustomListBox.h"

namespace plotkit {

/// A field of a colour within a frame that shows on any ground.
void DrawColorSwatch(TCanvas& canvas, const TRect& box, TColor color);

class TKxColorSwatches : public TCustomListBox
{
public:
    explicit TKxColorSwatches(TComponent* owner);

    const std::vector<TColor>& Colors() const { return FColors; }
    void SetColors(std::vector<TColor> colors);
    /// Selects nothing when the colour is not among them.
    void SelectColor(TColor color);
    /// Nothing without a selection.
    std::optional<TColor> SelectedColor() const;

protected:
    void DrawItem(TCanvas& canvas, int index, const TRect& box) override;

private:
    std::vector<TColor> FColors;
};

}  // namespace plotkit
