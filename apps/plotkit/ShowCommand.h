// The job of ShowCommand is to show the graph of a file in a window.
#pragma once

#include <memory>

#include "plotkit/Document.h"
#include "qt/KxQtHost.h"

namespace plotkit {

/// Settles, before a document is read for a window, whether it is a light or a dark one.
void PrepareShow(TOptions& options);

/// Needs a QApplication and the host in force. Without a document the window waits for one. Returns when the window is
/// closed, with the application's exit code.
int Show(TQtHost& host, const TOptions& options, std::unique_ptr<TDocument> document);

}  // namespace plotkit
