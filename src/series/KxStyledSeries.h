// The job of KxStyledSeries is what the line of a series and the area below it look like.
#pragma once

#include "graph/KxStyles.h"
#include "series/KxCaptionedSeries.h"

namespace plotkit {

class TKxStyledSeries : public TKxCaptionedSeries
{
public:
    using TKxCaptionedSeries::TKxCaptionedSeries;

    TKxLineStyle& GetLineStyle() { return FLineStyle; }
    void SetLineStyle(const TKxLineStyle& style) { FLineStyle.Assign(style); }
    TKxAreaStyle& GetAreaStyle() { return FAreaStyle; }
    void SetAreaStyle(const TKxAreaStyle& style) { FAreaStyle.Assign(style); }
    TColor BackColor() const { return FBackColor; }  ///< what an exclusive-or fill takes for the background

    const TKxLineStyle* SampleLine() const override { return &FLineStyle; }
    const TKxAreaStyle* SampleArea() const override { return &FAreaStyle; }

protected:
    TKxLineStyle FLineStyle{this};
    TKxAreaStyle FAreaStyle{this};
    TColor FBackColor = clWindow;
};

}  // namespace plotkit
