#include "host/EditKeys.h"

namespace plotkit {

namespace {

std::optional<TEditCommand> LetterCommand(char letter, bool shift)
{
    switch (letter) {
        case 'A':
            return ecSelectAll;
        case 'C':
            return ecCopy;
        case 'X':
            return ecCut;
        case 'V':
            return ecPaste;
        case 'Z':
            return shift ? ecRedo : ecUndo;
        case 'Y':
            return ecRedo;
        default:
            return std::nullopt;
    }
}

}  // namespace

char ControlLetter(int key, TShiftState shift)
{
    // AltGr may come as Ctrl and Alt together.
    if (!shift.Ctrl || shift.Alt)
        return 0;
    if (key >= 'a' && key <= 'z')
        return static_cast<char>(key - 'a' + 'A');
    return key >= 'A' && key <= 'Z' ? static_cast<char>(key) : '\0';
}

bool IsTypedKey(int key, TShiftState shift)
{
    return key >= ' ' && key != 0x7F && key < kyFirst && shift.Ctrl == shift.Alt;
}

std::optional<TEditCommand> EditCommandOf(int key, TShiftState shift)
{
    if (const char letter = ControlLetter(key, shift))
        return LetterCommand(letter, shift.Shift);
    if (shift.Alt)
        return std::nullopt;
    switch (key) {
        case kyLeft:
            return shift.Ctrl ? ecWordLeft : ecLeft;
        case kyRight:
            return shift.Ctrl ? ecWordRight : ecRight;
        case kyHome:
            return ecHome;
        case kyEnd:
            return ecEnd;
        case kyBackspace:
            return shift.Ctrl ? ecBackspaceWord : ecBackspace;
        case kyDelete:
            return shift.Shift ? ecCut : shift.Ctrl ? ecDeleteWord : ecDelete;
        case kyInsert:
            if (shift.Ctrl != shift.Shift)
                return shift.Ctrl ? ecCopy : ecPaste;
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

std::string Utf8Of(char32_t character)
{
    const auto byte = [](char32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); };
    const auto rest = [&](int shift) { return byte(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80)
        return {byte(character)};
    if (character < 0x800)
        return {byte(0xC0 | character >> 6), rest(0)};
    if (character < 0x10000)
        return {byte(0xE0 | character >> 12), rest(6), rest(0)};
    return {byte(0xF0 | character >> 18), rest(12), rest(6), rest(0)};
}

}  // namespace plotkit
