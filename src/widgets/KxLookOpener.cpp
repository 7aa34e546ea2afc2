#include "widgets/KxLookOpener.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <cmath>

#include "design/LookTree.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

namespace {

constexpr double Reach = 4;  // logical pixels around a line

}  // namespace

TKxLookOpener::TKxLookOpener(KxGraphWidget& widget, TKx2DGraph& graph, std::function<void(TComponent&)> open)
    : QObject(&widget), FWidget(widget), FGraph(graph), FAlive(graph.Lifeline().Watch()), FOpen(std::move(open))
{
    widget.installEventFilter(this);
}

bool TKxLookOpener::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        FPressed.reset();
    if (event->type() == QEvent::MouseButtonDblClick || event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        const bool isPlain = mouse->button() == Qt::LeftButton && mouse->modifiers() == Qt::NoModifier;
        const std::optional<QPointF> pressed = std::exchange(FPressed, {});
        if (isPlain && event->type() == QEvent::MouseButtonDblClick)
            FPressed = mouse->position();
        else if (isPlain && pressed &&
                 (mouse->position() - *pressed).manhattanLength() < QApplication::startDragDistance())
            QTimer::singleShot(0, this, [this, at = *pressed] { Open(at); });  // once the graph has heard the release
    }
    return QObject::eventFilter(object, event);
}

void TKxLookOpener::Open(QPointF at)
{
    if (FAlive.expired())
        return;
    const double ratio = FWidget.devicePixelRatioF();
    const TPoint origin = FGraph.OriginInRoot();
    OpenAt({static_cast<int>(std::floor(at.x() * ratio)) - origin.X,
            static_cast<int>(std::floor(at.y() * ratio)) - origin.Y});
}

void TKxLookOpener::OpenAt(TPoint at)
{
    if (!FAlive.expired())
        FOpen(LookPartAt(FGraph, at.X, at.Y, static_cast<int>(std::lround(Reach * FWidget.devicePixelRatioF()))));
}

}  // namespace plotkit
