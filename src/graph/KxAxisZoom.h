// The job of KxAxisZoom is the views that an axis was zoomed to.
#pragma once

#include <vector>

#include "graph/KxAxisScale.h"

namespace plotkit {

/// The view that an axis shows, and its zoom history. An unzoomed axis has none.
struct TKxZoomState
{
    TKxZoomView Shown;
    std::vector<TKxZoomView> Views;
    int Index = 0;  ///< from 1
};

class TKxAxisZoom : public TKxAxisScale
{
public:
    using TKxAxisScale::TKxAxisScale;

    void ZoomIn(double start, double stop);
    /// One view back; behind the unzoomed one comes the newest again.
    void ZoomBack();
    bool CanZoomBack() const { return !FViews.empty(); }

    /// Makes the present view the newest one of the zoom history, for `ShowExactly` to change.
    void KeepView();
    /// Ends that are not rounded.
    void ShowExactly(double start, double stop);
    /// The unzoomed view again, its ends following the data; the zoom history is forgotten.
    void LeaveZoom();
    TKxZoomState ZoomState() const { return {PresentView(), FViews, FIndex}; }
    /// The ends of an unzoomed view follow the data as they are now.
    void SetZoomState(const TKxZoomState& state);

protected:
    void ForgetZoom() override { FViews.clear(); }

private:
    TKxZoomView PresentView() const { return {GetStart(), GetStop(), FChosen}; }
    void ShowView(const TKxZoomView& view);

    std::vector<TKxZoomView> FViews;
    int FIndex = 0;
};

}  // namespace plotkit
