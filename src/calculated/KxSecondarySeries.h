// The job of KxSecondarySeries is to draw a derived quantity on a vertical axis of its own, beside that of its parent.
#pragma once

#include "calculated/KxCalculatedSeries.h"

namespace plotkit {

/// Finds the axis for a derived quantity, or makes one.
class TKxSecondaryAxis
{
public:
    /// The parent's Y axis where the graph shares Y axes; else the last vertical axis of the graph, among the
    /// components of `owner`, that no series uses; else a new one at the right, owned by `owner` or, without one, by
    /// whoever owns the parent's X axis. It is nobody's slave from then on. nullptr while the parent lacks an axis or a
    /// graph.
    TKxAxis* Take(const TKxSeries& parent, TComponent* owner);
    /// A slave becomes one again.
    void GiveBack(TKxAxis* axis);

    static bool StandsWith(const TKxAxis& axis, const TKxSeries& parent);

private:
    bool FWasSlaveAxis = false;
};

/// `TFunction` with a Y axis that is not the parent's.
template <class TFunction>
class TKxSecondarySeries : public TFunction
{
public:
    using TFunction::TFunction;

    void SetYAxis(TKxAxis* axis)
    {
        if (axis == this->GetYAxis())
            return;
        FSecondaryAxis.GiveBack(this->GetYAxis());
        StoreYAxis(axis);
    }
    void SetParentSeries(TKxNotCalculatedSeries* series) override
    {
        if (!series)
            FSecondaryAxis.GiveBack(this->GetYAxis());
        TFunction::SetParentSeries(series);
    }
    /// Sees to it that there is a Y axis as soon as there is a graph to put it in.
    void TestSecondaryAxis()
    {
        const TKxSeries* const parent = this->GetParentSeries();
        if (parent && !this->GetYAxis())
            StoreYAxis(FSecondaryAxis.Take(*parent, this->Owner()));
    }
    void Loaded() override
    {
        TFunction::Loaded();
        TestSecondaryAxis();
    }

protected:
    void TakeParentAxes() override
    {
        const TKxSeries& parent = *this->GetParentSeries();
        this->LinkXAxis(parent.GetXAxis());
        if (!this->IsLoading()) {
            if (TKxAxis* const axis = this->GetYAxis(); axis && !TKxSecondaryAxis::StandsWith(*axis, parent))
                SetYAxis(nullptr);
            TestSecondaryAxis();
        }
        this->LinkYAxis(this->GetYAxis());
    }
    /// For destructors.
    void GiveBackYAxis() { FSecondaryAxis.GiveBack(this->GetYAxis()); }

private:
    void StoreYAxis(TKxAxis* axis)
    {
        if (this->GetParentSeries())
            this->LinkYAxis(axis);
        else
            TFunction::SetYAxis(axis);
    }

    TKxSecondaryAxis FSecondaryAxis;
};

}  // namespace plotkit
