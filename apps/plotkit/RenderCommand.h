// The job of RenderCommand is to draw the graph of the chosen columns as a picture.
#pragma once

#include <QImage>

#include "plotkit/ColumnChoice.h"
#include "plotkit/Options.h"

namespace plotkit {

/// Needs a QApplication and the Qt host in force, which is told of errors while painting. EConvertError as BuildPlot.
QImage DrawPlot(const TColumnChoice& choice, const TOptions& options);

}  // namespace plotkit
