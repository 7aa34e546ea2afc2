// The job of KxSeries is the base of all series: links to vectors and axes, ranges, pixel points, captions, children.
#pragma once

#include <memory>

#include "data/KxPointVector.h"
#include "series/KxLineReduction.h"
#include "series/KxPairing.h"
#include "series/KxSeriesDirection.h"
#include "series/KxSeriesGrowth.h"
#include "series/KxStyledSeries.h"

namespace plotkit {

class TKx2DGraph;
class TKxOrderWatch;

class TKxSeries : public TKxStyledSeries
{
public:
    explicit TKxSeries(TComponent* owner);
    ~TKxSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxAxis* GetXAxis() const { return FX.Axis; }
    /// Enters the plotting area of the axis' graph. The range of a plain vector takes part in the axis' scaling only
    /// when the vector is linked after the axis.
    void SetXAxis(TKxAxis* axis);
    TKxAxis* GetYAxis() const { return FY.Axis; }
    void SetYAxis(TKxAxis* axis);
    bool UsesAxis(const TKxAxis& axis) const override { return FX.Axis == &axis || FY.Axis == &axis; }
    TKxCustomRealVector* GetXData() const { return FX.Data; }
    /// The series follows the vector's changes when its axis is linked already.
    virtual void SetXData(TKxCustomRealVector* vector);
    TKxCustomRealVector* GetYData() const { return FY.Data; }
    virtual void SetYData(TKxCustomRealVector* vector);
    virtual TKxCustomRealVector* GetWeight() const { return FWeight; }
    virtual void SetWeight(TKxCustomRealVector* vector);

    /// Those of the vectors, but without the oldest ones whose partner was dropped while it still waits for its own
    /// turn.
    std::span<const double> XValues() const { return FX.Values(); }
    std::span<const double> YValues() const { return FY.Values(); }

    /// Where vectors drop their oldest values, ranges and indexes follow with the next paint.
    TRange& XRange() { return FX.Range; }
    TRange& YRange() { return FY.Range; }
    int XMinIndex() const { return FX.MinIndex; }
    int XMaxIndex() const { return FX.MaxIndex; }
    int YMinIndex() const { return FY.MinIndex; }
    int YMaxIndex() const { return FY.MaxIndex; }
    int PointsCount() const { return FPointsCount; }
    /// Device pixels from the data rectangle's top left corner, MissingPoint where a value is missing; made when first
    /// asked for.
    const TKxPointVector& Points() const;
    bool PointsNeedRecalc() const { return FPointsNeedRecalc; }
    bool RangesNeedRecalc() const { return FRangesNeedRecalc; }
    bool ChildsNeedRecalc() const { return FChildsNeedRecalc; }

    /// Pixels of the graph panel; 0 without an axis.
    int RealToIntX(double value) const;
    int RealToIntY(double value) const;
    double IntToRealX(int pixel) const;
    double IntToRealY(int pixel) const;
    /// The last point within `tolerance` device pixels of a pixel of the graph panel in both directions; -1 for none.
    virtual int FindPoint(int x, int y, int tolerance) const;

    void Modified() override;
    void ChildModified();
    void RangesModified();
    /// While designing, points and graph follow at once.
    void DsgnUpdate();
    /// All children are calculated, also behind one that fails; then the error of that one is passed on, or an
    /// EMathError with the messages of all that failed, a line each.
    void RecalculateChilds();
    void CalculatePoints() override;
    void DrawLine() override;
    void PrepareHidden() override { PrepareDrawing(); }
    std::optional<TRect> GrownPart() override;

    /// Calculated children are known by the next four alone.
    virtual bool IsCalculated() const { return false; }
    virtual void Calculate() {}
    virtual void CalculateLine() {}
    virtual void ParentAxesChanged() {}
    /// Top-level children in drawing order; they are destroyed with this series.
    TKxSeriesList& Childs() override { return FChilds; }
    void AddChild(TKxSeries* child);
    void RemoveChild(TKxSeries* child);

    /// Followers of the vectors; see TKxValueIChangedEvent.
    void FOnXIChanged(int index, bool wasDeleted);
    void FOnYIChanged(int index, bool wasDeleted);
    virtual void FOnWeightChanged(int index, bool wasDeleted);

    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;
    void Loaded() override;

protected:
    /// The points that both vectors have.
    virtual void SetPointsCount();
    /// How many values range scanning looks at.
    virtual int XIdxNeeded() const { return std::min(FX.Count(), FPointsCount); }
    virtual int YIdxNeeded() const { return std::min(FY.Count(), FPointsCount); }
    /// Ranges from all values.
    virtual void GetNewXStartStop();
    virtual void GetNewYStartStop();
    /// Ranges after value `index` changed: a scan of all only when an extreme moved inward.
    virtual void CalcXValue(int index);
    virtual void CalcYValue(int index);
    virtual void CalculatePoint(int index);
    /// All points of a class with a rule of its own, whose count and ranges are known.
    virtual void CalculateAllPoints();
    /// Points `first` up to, not including, `end` from the values alone.
    void MapPoints(int first, int end) const;
    /// Whether the class overrides one of `CalcXValue`, `CalcYValue` and `CalculatePoint`: each change then makes its
    /// points, which otherwise are made in one go and on demand.
    virtual bool HasOwnPointRule() const { return false; }

    void Notification(TComponent* component, TOperation operation) override;
    TKx2DGraph* Graph() const;
    bool GraphIsUpdating() const;
    /// Points and children are brought up to date; false when there is nothing to draw on, or not yet.
    bool PrepareDrawing();
    /// False when the points wait for the axes to take over new ranges, or cannot be made.
    bool BringPointsUpToDate();
    void AttachToGraph(TKx2DGraph& graph);
    /// Around what is drawn at points from `first` on, as `GrownPart`.
    virtual TRect GrownMarks(int first) { return static_cast<void>(first), TRect{}; }
    /// The points, or less where those that are left out stand in no column of [left, right).
    std::span<const TPoint> PointsNear(int left, int right) const;

    TKxSeriesDirection FX, FY;
    mutable TKxPointVector FPoints;  ///< those made so far; `BringPointsUpToDate` makes all
    int FPointsCount = 0;

private:
    void LinkAxis(TKxSeriesDirection& direction, TKxAxis* axis);
    void FollowPairs();
    bool FollowNewest(bool isX, int index);
    bool FollowAny(bool isX, int index, bool wasDeleted);
    void FollowRange(bool isX, int index);
    void ValueChanged(bool isX, int index, bool wasDeleted);
    void AddNewPoints(bool isX, int first);
    void FollowNewValues(bool isX, int first, int end);
    bool CalculateIfNeeded();
    std::optional<TKxLineReduction> LongLine() const;
    bool LinkData(TKxSeriesDirection& direction, TKxCustomRealVector* vector, const TKxValueIChangedEvent& event);
    void DataLinked();
    bool RenewRanges();
    void BringChildsUpToDate();
    void DrawArea(TCanvas& canvas);
    void DrawPolylines(TCanvas& canvas);
    std::span<const TPoint> LinePoints(const TCanvas& canvas);
    bool OnlyGrows(int index, bool wasDeleted) const;
    void TellGrowth();
    std::optional<TRect> GrownLine(int before);
    void DrawPartOfPolylines(TCanvas& canvas);

    TKxCustomRealVector* FWeight = nullptr;
    TKxValueIChangedEvent FWeightEvent;  ///< as it was registered: the handler is virtual
    std::unique_ptr<TKxOrderWatch> FOrderWatch;
    TKxPairing FPairing;
    TKxDrawnLine FDrawnLine;
    TKxSeriesGrowth FGrowth;
    TKxSeriesList FChilds;
    std::string FChildError;  ///< passed on last
    bool FPointsNeedRecalc = true, FRangesNeedRecalc = false, FChildsNeedRecalc = false;
    bool FRangesWait = false;  ///< extremes went at the front: nothing is widened before the next scan
    bool FIsPlain = false;     ///< no point rule of its own
    bool FHasTold = false;     ///< of the change that is being followed
    bool FOnlyGrows = false;   ///< by that change
    bool FAwaitsAxes = false;  ///< new ranges went to the axes, points come with the next paint
};

}  // namespace plotkit
