// Whatever the text: what is understood is understood again and can be painted, and every problem stands at a line.
#include <algorithm>
#include <memory>

#include "Require.h"
#include "controls/KxFloatEdit.h"
#include "controls/KxIntegerEdit.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "host/Streaming.h"
#include "support/AllClasses.h"

namespace plotkit {
namespace {

struct TRead
{
    explicit TRead(std::string_view text)
    {
        TReadResult result = ReadComponentTree(text, AllClasses());
        Problems.swap(result.Problems);
        Root.reset(result.Root);
    }
    std::vector<TReadProblem> Problems;
    std::unique_ptr<TComponent> Root;
};

void GiveName(const TComponent& root, TComponent& component)
{
    for (int number = 1; component.GetName().empty(); ++number)
        if (const std::string name = "Nameless" + std::to_string(number); !root.FindComponent(name))
            component.SetName(name);
}

/// A graph moves its primary axes when it gets them; the text cannot say that they were moved away since.
void MovePrimaries(TKx2DGraph& graph)
{
    TKxAxis *const x = graph.PrimaryXAxis(), *const y = graph.PrimaryYAxis();
    if (x)
        x->SetPosition(AxBottomPos);
    if (y)
        y->SetPosition(AxLeftPos);
}

void DropImpossibleMaster(TKxAxis& axis)
{
    const TKxAxis* master = axis.GetMasterAxis();
    if (master && (master->GetIsSlaveAxis() || master->Orientation() != axis.Orientation()))
        axis.SetMasterAxis(nullptr);
}

/// Bounds leave a value that was there before alone; read again, it comes after them.
void KeepBetweenBounds(TComponent& component)
{
    if (auto* edit = dynamic_cast<TKxIntegerEdit*>(&component))
        edit->SetValue(edit->GetValue());
    if (auto* edit = dynamic_cast<TKxFloatEdit*>(&component))
        edit->SetValue(edit->GetValue());
}

/// Ends what a text cannot say: links to a component without a name or to a master that would now be refused, values
/// that were there before their bounds.
void Settle(TComponent& root)
{
    std::vector<TComponent*> components{&root};
    components.insert(components.end(), root.Components().begin(), root.Components().end());
    for (TComponent* component : components)
        GiveName(root, *component);
    for (TComponent* component : components)
        KeepBetweenBounds(*component);
    for (TComponent* component : components)
        if (auto* graph = dynamic_cast<TKx2DGraph*>(component))
            MovePrimaries(*graph);
    for (TComponent* component : components)
        if (auto* axis = dynamic_cast<TKxAxis*>(component))
            DropImpossibleMaster(*axis);
}

void CheckText(std::string_view text)
{
    const TRead read(text);
    const auto lines = 1 + std::ranges::count(text, '\n');
    for (const TReadProblem& problem : read.Problems)
        Require(problem.Line >= 1 && problem.Line <= lines && !problem.Message.empty(), "problems stand at a line",
                std::to_string(problem.Line) + ": " + problem.Message);
    if (!read.Root)
        return Require(!read.Problems.empty(), "a text without an object is a problem");

    Settle(*read.Root);
    const std::string kept = WriteComponentTree(*read.Root);
    const TRead again(kept);
    for (const TReadProblem& problem : again.Problems)
        Require(false, "what was written is understood",
                std::to_string(problem.Line) + ": " + problem.Message + '\n' + kept);
    const std::string twice = WriteComponentTree(*again.Root);
    Require(twice == kept, "what was read is what was written", kept + "became\n" + twice);
    if (auto* form = dynamic_cast<TForm*>(again.Root.get()))
        form->Picture();
}

}  // namespace
}  // namespace plotkit

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    plotkit::CheckText(plotkit::AsText(data, size));
    return 0;
}
