// The job of KxControlAccess is to tell assistive programs what a control of the library is and holds.
#pragma once

namespace plotkit {

/// For all widgets of controls; called by each of them, in force from the first call on.
void OfferAccess();

}  // namespace plotkit
