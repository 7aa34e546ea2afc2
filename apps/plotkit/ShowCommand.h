// The job of ShowCommand is to show the graph of the chosen columns in a window.
#pragma once

#include "plotkit/ColumnChoice.h"
#include "plotkit/Options.h"

namespace plotkit {

/// `table` is what the columns were chosen from, to be followed when the options say so. Needs a QApplication and the
/// Qt host in force. Returns when the window is closed, with the application's exit code.
int ShowPlot(const TCsvTable& table, const TColumnChoice& choice, const TOptions& options);

}  // namespace plotkit
