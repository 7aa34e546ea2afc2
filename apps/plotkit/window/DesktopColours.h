// The job of DesktopColours is to know whether the desktop is light or dark, and to overrule it for the program.
#pragma once

#include "plotkit/Options.h"

namespace plotkit {

/// Whether the program's windows are dark now.
bool WindowsAreDark();

/// Light or dark windows whatever the desktop says; ccAuto goes back to what the desktop had when it was first asked.
void SetWindowColours(TSchemeChoice colours);

}  // namespace plotkit
