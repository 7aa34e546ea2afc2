#include "design/LookHistory.h"

#include <algorithm>

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

/// Ends, ticks and sizes that follow a change stand once the graph has been painted.
void Settle(TKx2DGraph& graph, bool always = false)
{
    TWindowControl* root = &graph;
    while (root->Parent())
        root = root->Parent();
    if (root->IsRoot() && (always || root->NeedsPaint()))
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

TLookHistory::TNamed TLookHistory::Named(TComponent* part)
{
    if (!part)
        return {};
    WatchFor(part);
    return {part, part->GetName(), &part->ClassInfo()};
}

TLookHistory::TDifferences TLookHistory::Changes()
{
    const auto side = [this](TLookValue& value) {
        TComponent** const link = std::get_if<TComponent*>(&value);
        TNamed named = link ? Named(*link) : TNamed{};
        return TSide{std::move(value), std::move(named)};
    };
    TDifferences differences;
    for (TLookDifference& change : FStates.Changes(*FGraph))
        differences.push_back({Named(change.Part), std::move(change.Path), side(change.Before), side(change.After)});
    return differences;
}

TLookHistory::TDifferences TLookHistory::Recorded(const std::function<void()>& action)
{
    Settle(*FGraph, !std::exchange(FIsSettled, true));
    FStates.Follow(*FGraph);
    try {
        const TKxGraphUpdate update(FGraph);
        action();
    } catch (...) {
        Restore(Changes(), &TDifference::Before);
        throw;
    }
    Settle(*FGraph);
    return Changes();
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
    const std::string text = LookRowName(component, path) + " of " + LookName(component);
    Append({text, Named(&component), std::string(path), Recorded(set), joins});
}

bool TLookHistory::Joins(const TComponent& component, std::string_view path) const
{
    if (FSteps.empty() || FDone != FSteps.size() || FApplied == FDone)
        return false;
    const TStep& last = FSteps.back();
    return last.Joins && last.Part.Part == &component && last.Path == path;
}

void TLookHistory::ChangeAgain(const std::function<void()>& action)
{
    TStep& last = FSteps.back();
    // Nothing but the property itself has changed: it can be set again as it stands.
    const bool isAlone = last.Differences.size() == 1 && last.Differences.front().Path == last.Path;
    if (!isAlone)
        Restore(last.Differences, &TDifference::Before);
    try {
        TDifferences changes = Recorded(action);
        const auto again = std::ranges::find(changes, last.Path, &TDifference::Path);
        if (isAlone && again != changes.end() && again->Part.Part == last.Part.Part) {
            again->Before = last.Differences.front().Before;
            if (again->Before.Value == again->After.Value)
                changes.erase(again);
        } else if (isAlone) {
            changes.push_back(last.Differences.front());
        }
        last.Differences = std::move(changes);
    } catch (...) {
        if (!isAlone)
            Restore(last.Differences, &TDifference::After);
        throw;
    }
    if (last.Differences.empty())
        Drop(FSteps.size() - 1);
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
        Append({text, {}, "", Recorded(action)});
}

void TLookHistory::Append(TStep step)
{
    if (step.Differences.empty())
        return;
    if (FApplied > FDone)
        FApplied = Unreachable;
    FSteps.resize(FDone);
    FSteps.push_back(std::move(step));
    ++FDone;
    OnChanged();
}

bool TLookHistory::SetStates(const TDifferences& differences, TSide TDifference::*side)
{
    const TKxGraphUpdate update(FGraph);
    bool stood = true;
    for (const TDifference& difference : differences) {
        if (difference.IsGone())
            continue;
        TComponent& part = *difference.Part.Part;
        const TSide& wanted = difference.*side;
        if (difference.Path.empty()) {
            const std::string& hidden = std::get<std::string>(std::get<TPropertyValue>(wanted.Value));
            if (HiddenLook(part) == hidden)
                continue;
            SetHiddenLook(part, hidden);
        } else {
            const TLookProperty property = FindLookProperty(part, difference.Path);
            const bool isLink = property.Row->Kind == pkReference;
            const bool derived = !isLink && std::holds_alternative<TComponent*>(wanted.Value);
            const TLookValue value = isLink ? TLookValue(wanted.Link.Part) : wanted.Value;
            if (derived || property.Value() == value)
                continue;
            property.SetValue(value);
        }
        stood = false;
    }
    if (!stood)
        FGraph->World().ReorderSeriesList();
    return stood;
}

void TLookHistory::Restore(const TDifferences& differences, TSide TDifference::*side)
{
    for (int pass = 0; pass < RestoringPasses && !SetStates(differences, side); ++pass)
        Settle(*FGraph);
}

void TLookHistory::Undo()
{
    if (!CanUndo())
        return;
    --FDone;
    Restore(FSteps[FDone].Differences, &TDifference::Before);
    OnChanged();
}

void TLookHistory::Redo()
{
    if (!CanRedo())
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

void TLookHistory::Hold()
{
    FHeld.clear();
    for (std::size_t i = 0; i < FDone; ++i) {
        const TStep& step = FSteps[i];
        // Captions are more than their property.
        if (!step.Part.Part || step.Path == "Caption")
            continue;
        const TLookProperty property = FindLookProperty(*step.Part.Part, step.Path);
        if (property.IsDerived())
            continue;
        TSide standing{property.Value(), {}};
        if (TComponent** const link = std::get_if<TComponent*>(&standing.Value))
            standing.Link = Named(*link);
        FHeld.push_back({step.Part, step.Path, standing, standing});
    }
}

std::size_t TLookHistory::GoOnWith(TKx2DGraph& graph, const std::function<TColor(TColor)>& exchange)
{
    FGraph = &graph;
    WatchFor(&graph);
    FIsSettled = false;
    EndJoining();
    ForEachNamed([](TNamed& named) { named.Part = nullptr; });
    const std::size_t dropped = FindParts();
    if (exchange) {
        ExchangeColors(exchange, FHeld);
        for (TStep& step : FSteps)
            ExchangeColors(exchange, step.Differences);
    }
    SetStates(FHeld, &TDifference::After);
    FHeld.clear();
    return dropped;
}

std::size_t TLookHistory::FindParts()
{
    std::map<std::string_view, TComponent*> parts;
    for (TComponent* part : LookParts(*FGraph))
        if (!part->GetName().empty())
            parts.emplace(part->GetName(), part);
    ForEachNamed([&](TNamed& named) {
        if (!named.IsGone())
            return;
        const auto found = parts.find(named.Name);
        if (named.Class->IsA(TKx2DGraph::Class))
            named.Part = FGraph;
        else if (found != parts.end() && &found->second->ClassInfo() == named.Class)
            named.Part = found->second;
        WatchFor(named.Part);
    });
    return DropWhatIsGone();
}

template <class TAction>
void TLookHistory::ForEachNamed(const TAction& action)
{
    const auto visit = [&](TDifferences& differences) {
        for (TDifference& difference : differences)
            for (TNamed* named : {&difference.Part, &difference.Before.Link, &difference.After.Link})
                action(*named);
    };
    visit(FHeld);
    for (TStep& step : FSteps) {
        action(step.Part);
        visit(step.Differences);
    }
}

std::size_t TLookHistory::DropWhatIsGone()
{
    std::size_t dropped = 0;
    for (std::size_t i = FSteps.size(); i-- > 0;) {
        TDifferences& differences = FSteps[i].Differences;
        if (std::erase_if(differences, [](const TDifference& one) { return one.IsGone(); }) > 0)
            ++dropped;
        // What came with a change is nothing without it.
        if (differences.empty() || FSteps[i].Part.IsGone())
            Drop(i);
    }
    return dropped;
}

void TLookHistory::Drop(std::size_t step)
{
    FSteps.erase(FSteps.begin() + static_cast<std::ptrdiff_t>(step));
    if (step < FDone)
        --FDone;
    if (FApplied != Unreachable && step < FApplied)
        --FApplied;
}

void TLookHistory::ExchangeColors(const std::function<TColor(TColor)>& exchange, TDifferences& differences)
{
    for (TDifference& difference : differences) {
        if (difference.Path.empty() || difference.IsGone())
            continue;
        if (FindLookProperty(*difference.Part.Part, difference.Path).Row->Kind != pkColor)
            continue;
        for (TSide* side : {&difference.Before, &difference.After}) {
            auto& color = std::get<std::int64_t>(std::get<TPropertyValue>(side->Value));
            color = ColorToInt(exchange(static_cast<TColor>(color)));
        }
    }
}

void TLookHistory::Forget(const TComponent* part)
{
    ForEachNamed([part](TNamed& named) {
        if (named.Part == part)
            named.Part = nullptr;
    });
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
