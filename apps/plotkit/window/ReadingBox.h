// The job of ReadingBox is to show how far the reading of a long file is, and to let the user cancel it.
#pragma once

#include <string>

#include "plotkit/table/TextSource.h"

class QWidget;

namespace plotkit {

/// A progress to be handed to a reader; the box comes up when it takes long.
TReadProgress NewReadingBox(QWidget& parent, const std::string& fileName);

}  // namespace plotkit
