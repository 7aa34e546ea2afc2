// The job of KxLookOpener is to tell which part of a graph a user wants to see the look of.
#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <memory>
#include <optional>

#include "qt/KxGraphWidget.h"

namespace plotkit {

class TComponent;
class TKx2DGraph;

/// A double click with the left button that does not become a drag; the graph hears all of it as before. Goes with the
/// widget at the latest.
class TKxLookOpener : public QObject
{
public:
    /// The graph stands in the widget's tree.
    TKxLookOpener(KxGraphWidget& widget, TKx2DGraph& graph, std::function<void(TComponent&)> open);

    /// As a double click at a pixel of the graph.
    void OpenAt(TPoint at);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Open(QPointF at);

    KxGraphWidget& FWidget;
    TKx2DGraph& FGraph;
    std::weak_ptr<const void> FAlive;
    std::function<void(TComponent&)> FOpen;
    std::optional<QPointF> FPressed;
};

}  // namespace plotkit
