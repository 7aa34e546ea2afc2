#include "qt/KxQtKeys.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

namespace plotkit {

namespace {

constexpr std::array<std::pair<Qt::Key, TKey>, 16> Keys{{
    {Qt::Key_Escape, kyEscape},
    {Qt::Key_Return, kyEnter},
    {Qt::Key_Enter, kyEnter},
    {Qt::Key_Tab, kyTab},
    {Qt::Key_Backtab, kyTab},
    {Qt::Key_Backspace, kyBackspace},
    {Qt::Key_Delete, kyDelete},
    {Qt::Key_Insert, kyInsert},
    {Qt::Key_Home, kyHome},
    {Qt::Key_End, kyEnd},
    {Qt::Key_PageUp, kyPageUp},
    {Qt::Key_PageDown, kyPageDown},
    {Qt::Key_Left, kyLeft},
    {Qt::Key_Right, kyRight},
    {Qt::Key_Up, kyUp},
    {Qt::Key_Down, kyDown},
}};

/// Qt's codes from here are no characters.
constexpr int FirstSpecialKey = 0x01000000;

}  // namespace

std::optional<TMouseButton> MouseButtonOf(Qt::MouseButton button)
{
    switch (button) {
        case Qt::LeftButton:
            return mbLeft;
        case Qt::RightButton:
            return mbRight;
        case Qt::MiddleButton:
            return mbMiddle;
        default:
            return std::nullopt;
    }
}

TShiftState ShiftStateOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons)
{
    TShiftState shift;
    shift.Shift = modifiers.testFlag(Qt::ShiftModifier);
    shift.Ctrl = modifiers.testFlag(Qt::ControlModifier);
    shift.Alt = modifiers.testFlag(Qt::AltModifier);
    shift.Left = buttons.testFlag(Qt::LeftButton);
    shift.Right = buttons.testFlag(Qt::RightButton);
    shift.Middle = buttons.testFlag(Qt::MiddleButton);
    return shift;
}

std::optional<int> KeyOf(const QKeyEvent& event)
{
    const auto key =
        std::find_if(Keys.begin(), Keys.end(), [&](const auto& entry) { return entry.first == event.key(); });
    if (key != Keys.end())
        return key->second;
    const auto typed = event.text().toUcs4();
    if (!typed.isEmpty() && typed.front() >= 0x20 && typed.front() != 0x7F)
        return static_cast<int>(typed.front());
    // With Ctrl a key types a control character.
    if (event.key() > 0 && event.key() < FirstSpecialKey)
        return event.key();
    return std::nullopt;
}

}  // namespace plotkit
