// The job of KxCalculatedSeries is the base of all series that are computed from another one, their parent: when they
// are calculated, how their curve is sampled, and where their results can be read.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "calculated/KxLimitedSeries.h"
#include "foundation/KxConsts.h"
#include "graph/KxResultSource.h"
#include "host/List.h"

namespace plotkit {

class TKxCalculatedSeries : public TKxLimitedSeries, public TKxResultSource
{
public:
    explicit TKxCalculatedSeries(TComponent* owner);
    ~TKxCalculatedSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

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
    bool IsParentWeightStored() const { return !FParentWeight || GetOwnWeight(); }
    bool IsCaptionStored() const { return GetCaption() != GetAutoCaption(); }

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
    void SetResult(std::vector<double> xs, std::vector<double> ys);
    /// The same for as many points as there are, without notes: the curve is the same, another part of it is seen.
    void MoveResult(std::span<const double> xs, std::span<const double> ys);
    /// About one abscissa for each pixel of the display interval.
    void GetXSpacings();
    /// The same with the curve's ordinates.
    void GetContinousLine();
    bool XIsLog() const { return IsLog(GetXAxis()); }
    bool YIsLog() const { return IsLog(GetYAxis()); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    static bool IsLog(const TKxAxis* axis);
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
    TList<TKxResultLabel> FResultLabels;
    std::optional<std::string> FOwnSection, FParentSection;  ///< where the results stand now
    double FLastAxisStart = 0, FLastAxisStop = 0;
    bool FCoarse = false;  ///< sampled at less than each pixel of what the axis shows
    bool FParentWeight = true;
    bool FIsReading = false;         ///< settings are still to come: nothing is calculated before the next paint
    bool FParentWeightRead = false;  ///< a form that is being read said so itself
};

}  // namespace plotkit
