#include "calculated/KxCalculatedSeries.h"

#include <algorithm>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

namespace {

using TSeries = TKxCalculatedSeries;

// Bounds stand in front of the flags that setting them changes.
constexpr std::array CalculatedSeriesProperties{
    Property<&TSeries::GetCaption, &TSeries::SetCaption, &TSeries::IsCaptionStored>("Caption"),
    Sub<&TSeries::GetAreaStyle>("AreaStyle"),
    Property<&TSeries::GetParentWeight, &TSeries::SetParentWeight, &TSeries::IsParentWeightStored>("ParentWeight"),
    Reference<&TSeries::GetOwnWeight, &TSeries::SetWeight>("Weight"),
    Reference<&TSeries::GetParentSeries, &TSeries::SetParentSeries>("ParentSeries"),
    Property<&TSeries::GetCalculationStart, &TSeries::SetCalculationStart, &TSeries::IsStartStored>("CalculationStart"),
    Property<&TSeries::GetCalculationStop, &TSeries::SetCalculationStop, &TSeries::IsStopStored>("CalculationStop"),
    Property<&TSeries::GetDisplayStart, &TSeries::SetDisplayStart, &TSeries::IsDisplayStartStored>("DisplayStart"),
    Property<&TSeries::GetDisplayStop, &TSeries::SetDisplayStop, &TSeries::IsDisplayStopStored>("DisplayStop"),
    Property<&TSeries::GetAutoStart, &TSeries::SetAutoStart>("AutoStart"),
    Property<&TSeries::GetAutoStop, &TSeries::SetAutoStop>("AutoStop"),
    Property<&TSeries::GetDisplayAutoStart, &TSeries::SetDisplayAutoStart>("DisplayAutoStart"),
    Property<&TSeries::GetDisplayAutoStop, &TSeries::SetDisplayAutoStop>("DisplayAutoStop"),
    Property<&TSeries::GetCoupleCalculationAndDisplay, &TSeries::SetCoupleCalcAndDisplay, &TSeries::IsCouplingStored>(
        "CoupleCalculationAndDisplay"),
    Event<TSeries, &TSeries::OnCalculated>("OnCalculated"),
    Event<TSeries, &TSeries::OnError>("OnError"),
};

}  // namespace

constinit const TClassInfo TKxCalculatedSeries::Class{"TKxCalculatedSeries", &TKxSeries::Class,
                                                      CalculatedSeriesProperties};

TKxCalculatedSeries::TKxCalculatedSeries(TComponent* owner)
    : TKxLimitedSeries(owner), FXResult(new TResultVector(this)), FYResult(new TResultVector(this))
{}

TKxCalculatedSeries::~TKxCalculatedSeries()
{
    BeginDestroy();
    LeaveParent();
    FResultLabels.Clear();  // they have heard of the end
}

std::vector<TComponent*> TKxCalculatedSeries::StreamedChildren(const TComponent& root) const
{
    std::vector<TComponent*> children = TKxSeries::StreamedChildren(root);
    std::erase_if(children, [this](const TComponent* child) { return child == FXResult || child == FYResult; });
    return children;
}

void TKxCalculatedSeries::SetParentSeries(TKxNotCalculatedSeries* series)
{
    if (series == FParentSeries)
        return;
    LeaveParent();
    FParentSeries = series;
    WatchFor(series);
    if (!series) {
        Withdraw();
        LinkXAxis(nullptr);
        LinkYAxis(nullptr);
        return;
    }
    series->AddChild(this);
    TakeParentAxes();
    ClearResult();
    SetLimits();
    series->ChildModified();
    if (series->PointsCount() > 0 && !IsLoading() && !FIsReading)
        Calculate();
    series->DsgnUpdate();
}

void TKxCalculatedSeries::LeaveParent()
{
    if (!FParentSeries)
        return;
    TKxNotCalculatedSeries* const parent = std::exchange(FParentSeries, nullptr);
    EraseResults(parent->CaptionIni(), FParentSection);
    parent->RemoveChild(this);
    StopWatching(parent);
    if (parent->IsDestroying())
        return;
    RenumberResultsOf(*parent);
    if (!IsDestroying())
        Modified();
}

void TKxCalculatedSeries::LinkXAxis(TKxAxis* axis)
{
    if (axis == GetXAxis() && GetXData() == FXResult)
        return;
    // A series follows its data when its axis is linked first.
    SetXData(nullptr);
    SetXAxis(axis);
    SetXData(FXResult);
}

void TKxCalculatedSeries::LinkYAxis(TKxAxis* axis)
{
    if (axis == GetYAxis() && GetYData() == FYResult)
        return;
    SetYData(nullptr);
    SetYAxis(axis);
    SetYData(FYResult);
}

void TKxCalculatedSeries::TakeParentAxes()
{
    LinkXAxis(FParentSeries->GetXAxis());
    LinkYAxis(FParentSeries->GetYAxis());
}

void TKxCalculatedSeries::ParentAxesChanged()
{
    TakeParentAxes();
    SettingsChanged();
}

TKxCustomRealVector* TKxCalculatedSeries::GetWeight() const
{
    if (!FParentWeight)
        return GetOwnWeight();
    return FParentSeries ? FParentSeries->GetWeight() : nullptr;
}

void TKxCalculatedSeries::SetWeight(TKxCustomRealVector* vector)
{
    if (vector == GetOwnWeight())
        return;
    if (!FParentWeightRead)
        FParentWeight = false;
    TKxSeries::SetWeight(vector);
    SettingsChanged();
}

void TKxCalculatedSeries::SetParentWeight(bool parentWeight)
{
    FParentWeightRead = IsLoading();
    if (parentWeight == FParentWeight)
        return;
    FParentWeight = parentWeight;
    if (FParentSeries && FParentSeries->GetWeight() != GetOwnWeight())
        SettingsChanged();
}

void TKxCalculatedSeries::FOnWeightChanged(int, bool)
{
    if (FParentSeries)
        FParentSeries->ChildModified();
}

void TKxCalculatedSeries::ClearResult()
{
    for (TKxLiveVector* const vector : {FXResult, FYResult})
        if (vector->GetCount() > 0)
            vector->Clear();
}

void TKxCalculatedSeries::SetResult(std::vector<double> xs, std::vector<double> ys)
{
    FXResult->Take(std::move(xs));
    FYResult->Take(std::move(ys));
}

void TKxCalculatedSeries::MoveResult(std::span<const double> xs, std::span<const double> ys)
{
    std::ranges::copy(xs, FXResult->WriteInPlace().begin());
    std::ranges::copy(ys, FYResult->WriteInPlace().begin());
}

void TKxCalculatedSeries::Calculate()
{
    SetLimits();
    ClearResult();
    if (!Attempt([this] { CalculateFunction(); }) || !RefineCoarseCurve())
        return;
    TakeFormulaAsCaption();
    Modified();
    Publish();
    OnCalculated(*this);
}

void TKxCalculatedSeries::CalculateFunction()
{
    throw EMathError("TCalculatedSeries: CalculateFunction must be overridden in derived class!");
}

std::string TKxCalculatedSeries::ErrorPrefix() const
{
    return (GetCaption().empty() ? GetName() : GetCaption()) + ": ";
}

/// False when the action failed; this series may then be gone.
bool TKxCalculatedSeries::Attempt(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (EError& error) {
        Withdraw();
        TakeFormulaAsCaption();
        error.SetMessage(ErrorPrefix() + error.Message());
        if (!OnError)
            throw;
        OnError(error);
    } catch (const std::exception& error) {
        Withdraw();
        TakeFormulaAsCaption();
        EError told(ErrorPrefix() + error.what());
        if (!OnError)
            throw told;
        OnError(told);
    }
    return false;
}

/// A caption that somebody set stays.
void TKxCalculatedSeries::TakeFormulaAsCaption()
{
    const std::string formula = GetFormula();
    if (formula == GetAutoCaption() ||
        (!GetDoUserCaption() && !GetCaption().empty() && GetCaption() != GetAutoCaption()))
        return;
    SetAutoCaption(formula);
    UpdateLegend();
}

std::string TKxCalculatedSeries::GetFormula() const
{
    return "no Function defined";
}

double TKxCalculatedSeries::GetY(double x)
{
    return x;
}

std::string TKxCalculatedSeries::CalculationID() const
{
    return "No Calculation-ID defined";
}

bool TKxCalculatedSeries::IsLog(const TKxAxis* axis)
{
    return axis && (axis->GetScaling() == AxLog || axis->GetScaling() == AxLogEE);
}

void TKxCalculatedSeries::Loaded()
{
    FParentWeightRead = false;
    TKxSeries::Loaded();
    if (FParentSeries)
        FParentSeries->ChildModified();
}

void TKxCalculatedSeries::Notification(TComponent* component, TOperation operation)
{
    TKxSeries::Notification(component, operation);
    if (operation == opRemove && component == FParentSeries)
        FParentSeries = nullptr;
}

}  // namespace plotkit
