// The job of EditKeys is to say what a key does in a line of text.
#pragma once

#include <optional>
#include <string>

#include "host/ControlTypes.h"

namespace plotkit {

enum TEditCommand : std::uint8_t
{
    ecLeft,
    ecRight,
    ecWordLeft,
    ecWordRight,
    ecHome,
    ecEnd,
    ecBackspace,
    ecDelete,
    ecBackspaceWord,
    ecDeleteWord,
    ecSelectAll,
    ecCopy,
    ecCut,
    ecPaste,
    ecUndo,
    ecRedo,
};

/// Nothing for keys that a line has no use for, and for those that type a character.
std::optional<TEditCommand> EditCommandOf(int key, TShiftState shift);
/// Whether the key types its own code point.
bool IsTypedKey(int key, TShiftState shift);
/// The code point of a letter key with Ctrl, as a capital; 0 for all other keys.
char ControlLetter(int key, TShiftState shift);

std::string Utf8Of(char32_t character);

}  // namespace plotkit
