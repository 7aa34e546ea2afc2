// The job of KxQtKeys is to turn Qt's buttons, modifiers and keys into those of the control tree.
#pragma once

#include <Qt>
#include <optional>

#include "host/WindowControl.h"

class QKeyEvent;

namespace plotkit {

/// Nothing for buttons that the tree does not know.
std::optional<TMouseButton> MouseButtonOf(Qt::MouseButton button);
TShiftState ShiftStateOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons);
/// The character that a key types, else the capital letter or sign on it, or a code of TKey; nothing for other keys.
std::optional<int> KeyOf(const QKeyEvent& event);

}  // namespace plotkit
