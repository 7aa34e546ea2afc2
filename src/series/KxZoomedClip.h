// The job of KxZoomedClip is the clip of what stands at points: it is whole at the border unless the graph is zoomed.
#pragma once

#include "graph/KxAxis.h"
#include "host/Canvas.h"

namespace plotkit {

/// Lifts the clip of a canvas for its own lifetime while not both axes can zoom back.
class TKxZoomedClip
{
public:
    TKxZoomedClip(TCanvas& canvas, const TKxAxis& xAxis, const TKxAxis& yAxis)
        : FCanvas(canvas), FClip(canvas.ClipRect()), FIsLifted(!xAxis.CanZoomBack() || !yAxis.CanZoomBack())
    {
        if (FIsLifted)
            canvas.RemoveClip();
    }
    TKxZoomedClip(const TKxZoomedClip&) = delete;
    TKxZoomedClip& operator=(const TKxZoomedClip&) = delete;
    ~TKxZoomedClip()
    {
        if (FIsLifted)
            FCanvas.SetClipRect(FClip);
    }

private:
    TCanvas& FCanvas;
    TRect FClip;
    bool FIsLifted;
};

}  // namespace plotkit
