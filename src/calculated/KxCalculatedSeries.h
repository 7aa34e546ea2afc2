// The job of KxCalculatedSeries is the base of all series that are computed from another one, their parent: when they
// are calculated, between which limits, how their curve is sampled, and where their results can be read.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "foundation/KxConsts.h"
#include "graph/KxResultSource.h"
#include "host/List.h"
#include "series/KxNotCalculatedSeries.h"

namespace plotkit {

class TKxCalculatedSeries : public TKxSeries, public TKxResultSource
{
public:
    explicit TKxCalculatedSeries(TComponent* owner);
    ~TKxCalculatedSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxNotCalculatedSeries* GetParentSeries() const { return FParentSeries; }
    /// The parent owns its calculated series from here on. Axes are the parent's, the data are the results.
    /// Raises what `Calculate` raises when the parent has points.
    virtual void SetParentSeries(TKxNotCalculatedSeries* series);

    /// The weights in force: the parent's while `ParentWeight` is on.
    TKxCustomRealVector* GetWeight() const override;
    /// Switches `ParentWeight` off.
    void SetWeight(TKxCustomRealVector* vector) override;
    TKxCustomRealVector* GetOwnWeight() const { return TKxSeries::GetWeight(); }
    bool GetParentWeight() const { return FParentWeight; }
    void SetParentWeight(bool parentWeight);

    bool GetAutoStart() const { return FAutoStart; }
    void SetAutoStart(bool automatic) { StoreAuto(FAutoStart, automatic); }
    bool GetAutoStop() const { return FAutoStop; }
    void SetAutoStop(bool automatic) { StoreAuto(FAutoStop, automatic); }
    bool GetDisplayAutoStart() const { return FDisplayAutoStart; }
    void SetDisplayAutoStart(bool automatic);
    bool GetDisplayAutoStop() const { return FDisplayAutoStop; }
    void SetDisplayAutoStop(bool automatic);
    bool GetCoupleCalculationAndDisplay() const { return FCoupled; }
    void SetCoupleCalcAndDisplay(bool coupled);
    /// The interval whose points are computed with, bounds included. Setting a bound makes it a fixed one.
    double GetCalculationStart() const { return FCalculationStart; }
    void SetCalculationStart(double start) { StoreBound(FCalculationStart, start, FAutoStart); }
    double GetCalculationStop() const { return FCalculationStop; }
    void SetCalculationStop(double stop) { StoreBound(FCalculationStop, stop, FAutoStop); }
    /// The interval over which the curve is drawn. Setting a bound uncouples it from the other interval.
    double GetDisplayStart() const { return FDisplayStart; }
    void SetDisplayStart(double start) { StoreDisplayBound(FDisplayStart, start, FDisplayAutoStart); }
    double GetDisplayStop() const { return FDisplayStop; }
    void SetDisplayStop(double stop) { StoreDisplayBound(FDisplayStop, stop, FDisplayAutoStop); }
    bool IsStartStored() const { return !FAutoStart; }
    bool IsStopStored() const { return !FAutoStop; }
    bool IsDisplayStartStored() const { return !FDisplayAutoStart; }
    bool IsDisplayStopStored() const { return !FDisplayAutoStop; }
    bool IsCouplingStored() const { return !FCoupled || !FDisplayAutoStart || !FDisplayAutoStop; }
    bool IsParentWeightStored() const { return !FParentWeight || GetOwnWeight(); }
    bool IsCaptionStored() const { return GetCaption() != GetAutoCaption(); }
    /// Automatic bounds are taken from the parent's data and from the X axis.
    void SetLimits();

    bool IsCalculated() const override { return true; }
    /// Computes, publishes the results and calls `OnCalculated`. An error gets the caption in front and goes to
    /// `OnError`, or to the caller when nobody listens; there is no curve and there are no results then.
    void Calculate() override;
    /// Samples the curve anew, in place, when the X axis shows another range than it was last sampled for.
    void CalculateLine() override;
    void ParentAxesChanged() override;
    void FOnWeightChanged(int index, bool wasDeleted) override;

    virtual std::string GetFormula() const;
    /// The curve at `x`.
    virtual double GetY(double x);
    /// Names the kind of calculation in lists of results.
    virtual std::string CalculationID() const;
    /// Empty for the parent's first child of this class, " (n)" for the n-th.
    std::string GetOwnIndex() const;
    /// The results, named, as one section of a list. Overrides write theirs behind the inherited ones.
    virtual void WriteResults(TKxIniList& list, const std::string& section);
    std::string ResultText(const std::string& identifier) const override;
    const TList<TKxResultLabel>& ResultLabels() const { return FResultLabels; }
    void AddResultLabel(TKxResultLabel* label) override;
    void RemoveResultLabel(TKxResultLabel* label) override { FResultLabels.Remove(label); }

    const TKxLiveVector& XResult() const { return *FXResult; }
    const TKxLiveVector& YResult() const { return *FYResult; }

    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;
    void Loaded() override;
    std::vector<TComponent*> StreamedChildren(const TComponent& root) const override;

    TEvent<TKxCalculatedSeries&> OnCalculated;
    TKxErrorEvent OnError;

protected:
    /// Fills the result vectors, which are empty, from the parent's data, or what `GetY` needs. Errors are raised.
    virtual void CalculateFunction();
    /// The curve at many places, what sampling asks for; by `GetY` unless a class knows a faster way.
    virtual void GetYs(std::span<const double> xs, std::span<double> ys);

    /// The vectors of the curve, without notes to those who follow them.
    class TResultVector : public TKxLiveVector
    {
    public:
        using TKxLiveVector::TKxLiveVector;
        std::span<double> WriteInPlace() { return {Write(), static_cast<std::size_t>(GetCount())}; }
    };

    /// Takes over the parent's axes.
    virtual void TakeParentAxes();
    void LinkXAxis(TKxAxis* axis);
    void LinkYAxis(TKxAxis* axis);
    /// A setting changed: the parent lets its children be calculated at the next paint.
    void SettingsChanged();
    void SetResult(std::vector<double> xs, std::vector<double> ys);
    /// About one abscissa for each pixel of the display interval.
    void GetXSpacings();
    /// The same with the curve's ordinates.
    void GetContinousLine();
    bool XIsLog() const { return IsLog(GetXAxis()); }
    bool YIsLog() const { return IsLog(GetYAxis()); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    static bool IsLog(const TKxAxis* axis);
    void StoreBound(double& bound, double value, bool& automatic);
    void StoreDisplayBound(double& bound, double value, bool& automatic);
    void StoreAuto(bool& flag, bool automatic);
    void LeaveParent();
    void ClearResult();
    bool Attempt(const std::function<void()>& action);
    std::string ErrorPrefix() const;
    void TakeFormulaAsCaption();
    void Resample(double start, double stop);
    std::vector<double> Spacings();
    bool RefineCoarseCurve();
    std::string ParentSection() const;
    void Publish();
    void Withdraw();
    /// Results of the children stand under the number that each has now.
    static void RenumberResultsOf(TKxSeries& parent);
    static void EraseResults(TKxIniList& list, std::optional<std::string>& section);
    void RefreshLabels();

    TResultVector* FXResult;
    TResultVector* FYResult;
    TKxNotCalculatedSeries* FParentSeries = nullptr;
    TList<TKxResultLabel> FResultLabels;
    std::optional<std::string> FOwnSection, FParentSection;  ///< where the results stand now
    double FCalculationStart = 0, FCalculationStop = 0, FDisplayStart = 0, FDisplayStop = 0;
    double FLastAxisStart = 0, FLastAxisStop = 0;
    bool FCoarse = false;  ///< sampled at less than each pixel of what the axis shows
    bool FAutoStart = true, FAutoStop = true, FDisplayAutoStart = true, FDisplayAutoStop = true;
    bool FCoupled = true, FParentWeight = true;
    bool FParentWeightRead = false;  ///< a form that is being read said so itself
};

}  // namespace plotkit
