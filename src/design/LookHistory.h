// The job of LookHistory is to change the look of a graph in steps that can be undone, redone and taken back together.
#pragma once

#include <functional>
#include <vector>

#include "design/LookStates.h"

namespace plotkit {

class TKx2DGraph;

/// Each step keeps all values of the graph's parts that changed with it, so that what setters change besides comes back
/// too. Parts that go take their changes with them, unless others of the same names and classes come in their places.
class TLookHistory : public TComponent
{
public:
    explicit TLookHistory(TKx2DGraph& graph);
    ~TLookHistory() override;

    /// nullptr once it is gone.
    TKx2DGraph* Graph() const { return FGraph; }
    /// Before the graph is made anew: what has been changed is to stand in the new one as it stands now.
    void Hold();
    /// The graph was made anew, perhaps gone already: the steps go on for the parts of the same names and classes.
    /// `exchange`, if any, says which colours the new one has in place of the old one's. Returns how many steps can no
    /// longer be undone, or not wholly, since parts are gone.
    std::size_t GoOnWith(TKx2DGraph& graph, const std::function<TColor(TColor)>& exchange = {});
    /// Parts have come or gone: what was changed of those that were only made anew stays. Returns as GoOnWith.
    std::size_t FindParts();

    /// Sets a property. Steps that `joins` and change the same property as the step before become one: typing and
    /// dragging are undone together, and what half-typed values did to other properties is taken back. Nothing happens
    /// when the value stands already. When the setter raises, everything stays as it was and the error is passed on;
    /// EConvertError for a path that the component does not have.
    void Change(TComponent& component, std::string_view path, const TLookValue& value, bool joins = false);
    /// The next step does not join the last one: the user has turned to something else.
    void EndJoining();
    /// Any other change of the look as one step.
    void Perform(const std::string& text, const std::function<void()>& action);

    bool CanUndo() const { return FGraph && FDone > 0; }
    bool CanRedo() const { return FGraph && FDone < FSteps.size(); }
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
    /// A component that is found again by its name.
    struct TNamed
    {
        TComponent* Part = nullptr;
        std::string Name;
        const TClassInfo* Class = nullptr;  ///< nullptr for no component at all

        bool IsGone() const { return Class && !Part; }
    };
    struct TSide
    {
        TLookValue Value;
        TNamed Link;  ///< in place of a value that is a component
    };
    struct TDifference
    {
        TNamed Part;
        std::string Path;
        TSide Before, After;

        bool IsGone() const { return Part.IsGone() || Before.Link.IsGone() || After.Link.IsGone(); }
    };
    using TDifferences = std::vector<TDifference>;
    struct TStep
    {
        std::string Text;
        TNamed Part;  ///< that a property was changed of
        std::string Path;
        TDifferences Differences;
        bool Joins = false;
    };

    TNamed Named(TComponent* part);
    TDifferences Changes();
    TDifferences Recorded(const std::function<void()>& action);
    /// False when something stood otherwise.
    bool SetStates(const TDifferences& differences, TSide TDifference::*side);
    void Restore(const TDifferences& differences, TSide TDifference::*side);
    void Append(TStep step);
    bool Joins(const TComponent& component, std::string_view path) const;
    void ChangeAgain(const std::function<void()>& action);
    template <class TAction>
    void ForEachNamed(const TAction& action);
    void ExchangeColors(const std::function<TColor(TColor)>& exchange, TDifferences& differences);
    std::size_t DropWhatIsGone();
    void Drop(std::size_t step);
    void Forget(const TComponent* part);

    TKx2DGraph* FGraph;
    TLookStates FStates;
    std::vector<TStep> FSteps;
    TDifferences FHeld;
    std::size_t FDone = 0;     ///< steps that are not undone
    std::size_t FApplied = 0;  ///< -1 when no steps lead back there
    bool FIsSettled = false;   ///< painted once, and since whenever that was wanted
};

}  // namespace plotkit
