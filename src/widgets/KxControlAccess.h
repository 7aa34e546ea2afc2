// The job of KxControlAccess is to tell assistive programs what a control of the library is and holds, and what happens
// to it.
#pragma once

class QAccessibleEvent;
class QAccessibleInterface;
class QString;
class QWidget;

namespace plotkit {

/// For all widgets of controls; called by each of them, in force from the first call on.
void OfferAccess();

/// Whether anybody listens, so that telling is worth its cost.
bool IsHeard();
void Tell(QAccessibleEvent& event);
/// Hears what is told in place of the assistive programs; nullptr gives it back to them.
void SetAccessListener(void (*listener)(QAccessibleEvent& event));

/// A text became another one; the caret's place counts as Qt does.
void TellTextChange(QAccessibleInterface& access, const QString& before, const QString& after, int caret);
/// An item of a list is the selected one.
void TellItem(QWidget& list, int index, bool hasFocus);

}  // namespace plotkit
