#include "design/LookHistory.h"

#include <algorithm>

#include "calculated/KxCalculatedSeries.h"
#include "design/LookHidden.h"
#include "design/LookPages.h"
#include "design/LookTree.h"
#include "graph/KxGraph2D.h"
#include "graph/KxGraphUpdate.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::size_t Unreachable = static_cast<std::size_t>(-1);

/// Setters that bound each other (the ends of an axis) may need the other one's value first, and an end that only
/// widens may have been painted before everything stood.
constexpr int RestoringPasses = 3;

/// Whether a number follows from others as the part stands; setting it would take it out of their hands.
bool IsDerived(const TLookProperty& property)
{
    if (property.Row->Kind != pkReal || !property.Row->StoredWhen)
        return false;
    const auto* series = dynamic_cast<const TKxCalculatedSeries*>(property.Object);
    const bool coupled =
        series && series->GetCoupleCalculationAndDisplay() && property.Row->Name.starts_with("Display");
    return coupled || !property.Row->StoredWhen(*property.Object);
}

/// Ends, ticks and sizes that follow a change stand once the graph has been painted.
void Settle(TKx2DGraph& graph)
{
    TWindowControl* root = &graph;
    while (root->Parent())
        root = root->Parent();
    if (root->IsRoot())
        root->Picture();
}

}  // namespace

TLookHistory::TLookHistory(TKx2DGraph& graph) : TComponent(nullptr), FGraph(&graph)
{
    WatchFor(&graph);
}

TLookHistory::~TLookHistory()
{
    BeginDestroy();
}

TLookHistory::TSnapshot TLookHistory::Snapshot() const
{
    TSnapshot snapshot;
    for (TComponent* part : LookParts(LookTree(*FGraph))) {
        TPartStates states{part, LookPaths(*part), {}, HiddenLook(*part)};
        for (const std::string& path : states.Paths) {
            const TLookProperty property = FindLookProperty(*part, path);
            states.States.push_back(IsDerived(property) ? TLookValue(nullptr) : property.Value());
        }
        snapshot.push_back(std::move(states));
    }
    return snapshot;
}

std::vector<TLookHistory::TDifference> TLookHistory::Differences(const TSnapshot& before, const TSnapshot& after)
{
    std::vector<TDifference> differences;
    for (const TPartStates& old : before) {
        const auto now = std::ranges::find(after, old.Part, &TPartStates::Part);
        if (now == after.end())
            continue;
        for (std::size_t i = 0; i < old.States.size(); ++i)
            if (old.States[i] != now->States[i])
                differences.push_back({old.Part, old.Paths[i], old.States[i], now->States[i]});
        if (old.Hidden != now->Hidden)
            differences.push_back({old.Part, "", TPropertyValue(old.Hidden), TPropertyValue(now->Hidden)});
    }
    return differences;
}

TLookHistory::TStep TLookHistory::Recorded(const std::string& text, const std::function<void()>& action)
{
    Settle(*FGraph);
    const TSnapshot before = Snapshot();
    try {
        const TKxGraphUpdate update(FGraph);
        action();
    } catch (...) {
        Restore(Differences(before, Snapshot()), &TDifference::Before);
        throw;
    }
    Settle(*FGraph);
    return {text, nullptr, "", Differences(before, Snapshot())};
}

void TLookHistory::Change(TComponent& component, std::string_view path, const TLookValue& value, bool joins)
{
    const TLookProperty property = FindLookProperty(component, path);
    if (!property)
        throw EConvertError(LookName(component) + " has no property " + std::string(path));
    if (!FGraph || property.Value() == value)
        return;
    const auto set = [&] {
        const bool isCaption = property.Object == &component && path == "Caption";
        if (!isCaption || !TakeUserCaption(component, std::get<std::string>(std::get<TPropertyValue>(value))))
            property.SetValue(value);
    };
    if (joins && Joins(component, path))
        return ChangeAgain(set);
    TStep step = Recorded(LookRowName(component, path) + " of " + LookName(component), set);
    step.Part = &component;
    step.Path = path;
    step.Joins = joins;
    Append(std::move(step));
}

bool TLookHistory::Joins(const TComponent& component, std::string_view path) const
{
    if (FSteps.empty() || FDone != FSteps.size() || FApplied == FDone)
        return false;
    const TStep& last = FSteps.back();
    return last.Joins && last.Part == &component && last.Path == path;
}

void TLookHistory::ChangeAgain(const std::function<void()>& action)
{
    TStep& last = FSteps.back();
    Restore(last.Differences, &TDifference::Before);
    try {
        last.Differences = Recorded(last.Text, action).Differences;
    } catch (...) {
        Restore(last.Differences, &TDifference::After);
        throw;
    }
    for (const TDifference& difference : last.Differences)
        Watch(difference);
    if (last.Differences.empty()) {
        FSteps.pop_back();
        --FDone;
    }
    OnChanged();
}

void TLookHistory::EndJoining()
{
    if (!FSteps.empty())
        FSteps.back().Joins = false;
}

void TLookHistory::Perform(const std::string& text, const std::function<void()>& action)
{
    if (FGraph)
        Append(Recorded(text, action));
}

void TLookHistory::Watch(const TDifference& difference)
{
    WatchFor(difference.Part);
    for (const TLookValue* value : {&difference.Before, &difference.After})
        if (const auto* link = std::get_if<TComponent*>(value))
            WatchFor(*link);
}

void TLookHistory::Append(TStep step)
{
    if (step.Differences.empty())
        return;
    if (FApplied > FDone)
        FApplied = Unreachable;
    FSteps.resize(FDone);
    for (const TDifference& difference : step.Differences)
        Watch(difference);
    FSteps.push_back(std::move(step));
    ++FDone;
    OnChanged();
}

bool TLookHistory::SetStates(const std::vector<TDifference>& differences, TLookValue TDifference::*side)
{
    const TKxGraphUpdate update(FGraph);
    bool stood = true;
    for (const TDifference& difference : differences) {
        const TLookValue& value = difference.*side;
        if (difference.Path.empty()) {
            const std::string& hidden = std::get<std::string>(std::get<TPropertyValue>(value));
            if (HiddenLook(*difference.Part) == hidden)
                continue;
            SetHiddenLook(*difference.Part, hidden);
        } else {
            const TLookProperty property = FindLookProperty(*difference.Part, difference.Path);
            const bool derived = property.Row->Kind != pkReference && std::holds_alternative<TComponent*>(value);
            if (derived || property.Value() == value)
                continue;
            property.SetValue(value);
        }
        stood = false;
    }
    FGraph->World().ReorderSeriesList();
    return stood;
}

void TLookHistory::Restore(const std::vector<TDifference>& differences, TLookValue TDifference::*side)
{
    for (int pass = 0; pass < RestoringPasses && !SetStates(differences, side); ++pass)
        Settle(*FGraph);
}

void TLookHistory::Undo()
{
    if (!FGraph || !CanUndo())
        return;
    --FDone;
    Restore(FSteps[FDone].Differences, &TDifference::Before);
    OnChanged();
}

void TLookHistory::Redo()
{
    if (!FGraph || !CanRedo())
        return;
    Restore(FSteps[FDone].Differences, &TDifference::After);
    ++FDone;
    OnChanged();
}

void TLookHistory::Revert()
{
    if (!FGraph || !CanRevert())
        return;
    while (FDone > FApplied)
        Undo();
    while (FDone < FApplied)
        Redo();
}

void TLookHistory::Forget(const TComponent* part)
{
    const auto isOfPart = [&](const TDifference& difference) {
        return difference.Part == part ||
               (std::holds_alternative<TComponent*>(difference.Before) &&
                (std::get<TComponent*>(difference.Before) == part || std::get<TComponent*>(difference.After) == part));
    };
    for (TStep& step : FSteps) {
        std::erase_if(step.Differences, isOfPart);
        if (step.Part == part)
            step.Part = nullptr;
    }
}

void TLookHistory::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove)
        return;
    Forget(component);
    if (component == FGraph)
        FGraph = nullptr;
}

}  // namespace plotkit
