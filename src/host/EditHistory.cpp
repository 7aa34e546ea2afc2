#include "host/EditHistory.h"

#include <utility>

namespace plotkit {

namespace {

constexpr std::size_t MaxBytes = 16U << 20U;

}  // namespace

bool TEditHistory::Record(TEditState before, TEditKind kind, bool startsWord)
{
    const bool continues = kind != ekOther && kind == FKind && !startsWord && !FUndo.empty();
    FKind = kind;
    FLostRedo = std::exchange(FRedo, {});
    if (!continues)
        Push(FUndo, std::move(before));
    return !continues;
}

void TEditHistory::Push(std::vector<TEditState>& states, TEditState state)
{
    std::size_t bytes = state.Content.size();
    for (const TEditState& kept : states)
        bytes += kept.Content.size();
    std::size_t forgotten = 0;
    while (forgotten < states.size() && bytes > MaxBytes)
        bytes -= states[forgotten++].Content.size();
    states.erase(states.begin(), states.begin() + static_cast<std::ptrdiff_t>(forgotten));
    states.push_back(std::move(state));
}

void TEditHistory::DropLast()
{
    if (!FUndo.empty())
        FUndo.pop_back();
    FRedo = std::exchange(FLostRedo, {});
    Break();
}

std::optional<TEditState> TEditHistory::Move(std::vector<TEditState>& from, std::vector<TEditState>& to, TEditState now)
{
    Break();
    if (from.empty())
        return std::nullopt;
    TEditState state = std::move(from.back());
    from.pop_back();
    Push(to, std::move(now));
    return state;
}

void TEditHistory::Clear()
{
    FUndo.clear();
    FRedo.clear();
    FLostRedo.clear();
    Break();
}

}  // namespace plotkit
