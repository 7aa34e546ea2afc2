// The job of KxEditPlaces is to count the characters of an edit as Qt does: in halves beyond the first 65536.
#pragma once

#include <QString>

#include "host/EditableText.h"

namespace plotkit {

int QtPlace(const TEditableText& edit, int index);
/// The last character's end for places beyond it.
int CharPlace(const TEditableText& edit, int qtPlace);
/// Characters [from, to); invalid bytes are U+FFFD, one for each.
QString QtText(const TEditableText& edit, int from, int to);
QString QtText(const TEditableText& edit);
inline int Anchor(const TEditableText& edit)
{
    return edit.CaretPos() == edit.SelStart() ? edit.SelEnd() : edit.SelStart();
}

}  // namespace plotkit
