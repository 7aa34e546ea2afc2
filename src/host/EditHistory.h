// The job of EditHistory is to take the changes of a text back, and to make them again.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace plotkit {

struct TEditState
{
    std::string Content;
    int Anchor = 0;
    int Caret = 0;
};

enum TEditKind : unsigned char
{
    ekTyping,
    ekBackspacing,
    ekOther
};

/// Typed characters of one word are one change, and so is a row of backspaces. Old changes are forgotten when all
/// contents together would exceed 16 MB; the last one is always kept.
class TEditHistory
{
public:
    /// A change of `kind` begins at `before`. False when it continues the one before.
    bool Record(TEditState before, TEditKind kind, bool startsWord);
    /// The new change that was recorded last left everything as it was.
    void DropLast();
    /// What comes now continues nothing.
    void Break() { FKind = ekOther; }
    /// The state to go back (or on) to, `now` being the present one; nothing at the end.
    std::optional<TEditState> Undo(TEditState now) { return Move(FUndo, FRedo, std::move(now)); }
    std::optional<TEditState> Redo(TEditState now) { return Move(FRedo, FUndo, std::move(now)); }
    bool CanUndo() const { return !FUndo.empty(); }
    bool CanRedo() const { return !FRedo.empty(); }
    void Clear();

private:
    std::optional<TEditState> Move(std::vector<TEditState>& from, std::vector<TEditState>& to, TEditState now);
    void Push(std::vector<TEditState>& states, TEditState state);

    std::vector<TEditState> FUndo, FRedo, FLostRedo;
    TEditKind FKind = ekOther;
};

}  // namespace plotkit
