// The job of LookHistory is to change the look of a graph in steps that can be undone, redone and taken back together.
#pragma once

#include <functional>
#include <vector>

#include "design/LookProperty.h"

namespace plotkit {

class TKx2DGraph;

/// Each step keeps all values of the graph's parts that changed with it, so that what setters change besides comes back
/// too. Parts that have gone meanwhile are left out.
class TLookHistory : public TComponent
{
public:
    explicit TLookHistory(TKx2DGraph& graph);
    ~TLookHistory() override;

    /// nullptr once it is gone.
    TKx2DGraph* Graph() const { return FGraph; }

    /// Sets a property. Steps that `joins` and change the same property as the step before become one: typing and
    /// dragging are undone together, and what half-typed values did to other properties is taken back. Nothing happens
    /// when the value stands already. When the setter raises, everything stays as it was and the error is passed on;
    /// EConvertError for a path that the component does not have.
    void Change(TComponent& component, std::string_view path, const TLookValue& value, bool joins = false);
    /// The next step does not join the last one: the user has turned to something else.
    void EndJoining();
    /// Any other change of the look as one step.
    void Perform(const std::string& text, const std::function<void()>& action);

    bool CanUndo() const { return FDone > 0; }
    bool CanRedo() const { return FDone < FSteps.size(); }
    void Undo();
    void Redo();
    /// What the next undo or redo takes back or brings again: "Color of Series: a"; empty when there is none.
    std::string UndoText() const { return CanUndo() ? FSteps[FDone - 1].Text : std::string(); }
    std::string RedoText() const { return CanRedo() ? FSteps[FDone].Text : std::string(); }

    /// What stands now is what `Revert` goes back to.
    void Apply() { FApplied = FDone; }
    bool IsApplied() const { return FApplied == FDone; }
    /// False also when what was applied has been undone and other changes stand in its place.
    bool CanRevert() const { return !IsApplied() && FApplied <= FSteps.size(); }
    /// Undoes, or brings again, all steps since the last `Apply`; they can be redone.
    void Revert();

    /// After each change of the look or of what can be undone.
    TEvent<> OnChanged;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    struct TPartStates
    {
        TComponent* Part;
        std::vector<std::string> Paths;
        std::vector<TLookValue> States;  ///< one for each path; nullptr for a number that follows from others
        std::string Hidden;
    };
    using TSnapshot = std::vector<TPartStates>;
    struct TDifference
    {
        TComponent* Part;
        std::string Path;  ///< empty for the hidden state
        TLookValue Before, After;
    };
    struct TStep
    {
        std::string Text;
        TComponent* Part = nullptr;  ///< that a property was changed of
        std::string Path;
        std::vector<TDifference> Differences;
        bool Joins = false;
    };

    TSnapshot Snapshot() const;
    static std::vector<TDifference> Differences(const TSnapshot& before, const TSnapshot& after);
    TStep Recorded(const std::string& text, const std::function<void()>& action);
    /// False when something stood otherwise.
    bool SetStates(const std::vector<TDifference>& differences, TLookValue TDifference::*side);
    void Restore(const std::vector<TDifference>& differences, TLookValue TDifference::*side);
    void Append(TStep step);
    bool Joins(const TComponent& component, std::string_view path) const;
    void ChangeAgain(const std::function<void()>& action);
    void Watch(const TDifference& difference);
    void Forget(const TComponent* part);

    TKx2DGraph* FGraph;
    std::vector<TStep> FSteps;
    std::size_t FDone = 0;     ///< steps that are not undone
    std::size_t FApplied = 0;  ///< -1 when no steps lead back there
};

}  // namespace plotkit
