#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleHints>

#include "widgets/KxEditPlaces.h"
#include "widgets/KxEditWidget.h"

namespace plotkit {

namespace {

/// Attributes stay within the program; the text goes everywhere.
const auto MarkupFormat = QStringLiteral("application/x-plotkit-caption");

/// Text from other places is copied unless somebody asks to move it; own text is moved unless Ctrl is held.
Qt::DropAction ActionFor(const QDropEvent& event, bool isOwn)
{
    const bool copies = event.modifiers().testFlag(Qt::ControlModifier);
    const bool moves = isOwn || event.modifiers().testFlag(Qt::ShiftModifier);
    return moves && !copies && event.possibleActions().testFlag(Qt::MoveAction) ? Qt::MoveAction : Qt::CopyAction;
}

}  // namespace

bool TKxEditWidget::IsOnSelection(QPoint at) const
{
    const int x = RootPixel(at).X;
    return Edit().HasSelection() && x >= Edit().GapX(Edit().SelStart()) && x < Edit().GapX(Edit().SelEnd());
}

void TKxEditWidget::mousePressEvent(QMouseEvent* event)
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier && hasFocus() && IsOnSelection(at)) {
        event->accept();
        FDragFrom = at;
        return;
    }
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection())
        return TKxControlWidget::mousePressEvent(event);
    event->accept();
    Guarded([&] {
        EndComposition();
        const int place = Edit().PointToCaretPos(RootPixel(event->position()).X);
        Edit().Select(place, place);
        Edit().Insert(clipboard->text(QClipboard::Selection).toStdString());
    });
}

void TKxEditWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!FDragFrom)
        return TKxControlWidget::mouseMoveEvent(event);
    const QPoint way = event->position().toPoint() - *FDragFrom;
    if (way.manhattanLength() >= QGuiApplication::styleHints()->startDragDistance())
        StartDrag();
}

void TKxEditWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    // A click on the selection, which was no drag, puts the caret there.
    if (isLeft && std::exchange(FDragFrom, std::nullopt)) {
        QMouseEvent press(QEvent::MouseButtonPress, event->position(), event->globalPosition(), Qt::LeftButton,
                          Qt::LeftButton, event->modifiers());
        TKxControlWidget::mousePressEvent(&press);
    }
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (isLeft && clipboard->supportsSelection() && Edit().HasSelection())
        clipboard->setText(QString::fromStdString(Edit().SelectedText()), QClipboard::Selection);
    if (event->button() != Qt::MiddleButton)
        TKxControlWidget::mouseReleaseEvent(event);
}

void TKxEditWidget::StartDrag()
{
    FDragFrom.reset();
    auto* const dragged = new QMimeData;
    dragged->setText(QString::fromStdString(Edit().SelectedText()));
    if (const std::string markup = Edit().SelectedMarkup(); !markup.empty())
        dragged->setData(MarkupFormat, QByteArray::fromStdString(markup));
    auto* const drag = new QDrag(this);
    drag->setMimeData(dragged);
    const Qt::DropActions offered = GetReadOnly() ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const QPointer<TKxEditWidget> alive(this);
    const Qt::DropAction done = drag->exec(offered, Qt::CopyAction);
    // What was moved within the edit is there already.
    if (alive && done == Qt::MoveAction && drag->target() != this)
        AsUser([this] { Edit().SelectionCleared(); });
}

void TKxEditWidget::ShowDropPlace(std::optional<int> place)
{
    if (std::exchange(FDropPlace, place) != place)
        update();
}

void TKxEditWidget::PaintAbove(QPainter& painter)
{
    if (!FDropPlace)
        return;
    TRect line = Edit().CaretRect();
    line.Left = Edit().GapX(*FDropPlace);
    line.Right = line.Left;
    QRect place = FromControl(Edit(), line);
    place.setLeft(place.left() - 1);
    place.setWidth(2);
    painter.fillRect(place, palette().text());
}

void TKxEditWidget::dragEnterEvent(QDragEnterEvent* event)
{
    dragMoveEvent(event);
}

void TKxEditWidget::dragMoveEvent(QDragMoveEvent* event)
{
    if (GetReadOnly() || !event->mimeData()->hasText())
        return event->ignore();
    event->setDropAction(ActionFor(*event, event->source() == this));
    event->accept();
    ShowDropPlace(Edit().PointToCaretPos(RootPixel(event->position()).X));
}

void TKxEditWidget::dragLeaveEvent(QDragLeaveEvent*)
{
    ShowDropPlace(std::nullopt);
}

void TKxEditWidget::TakeDrop(const QMimeData& dropped, int place, bool moves)
{
    EndComposition();
    if (moves)
        return Edit().MoveSelection(place);
    Edit().Select(place, place);
    Edit().InsertMarkup(dropped.text().toStdString(), dropped.data(MarkupFormat).toStdString());
    Edit().Select(place, Edit().CaretPos());
}

void TKxEditWidget::dropEvent(QDropEvent* event)
{
    ShowDropPlace(std::nullopt);
    if (GetReadOnly() || !event->mimeData()->hasText())
        return event->ignore();
    const int place = Edit().PointToCaretPos(RootPixel(event->position()).X);
    // A drop forgets what its moves were answered.
    const bool isOwn = event->source() == this;
    event->setDropAction(ActionFor(*event, isOwn));
    const bool moves = isOwn && event->dropAction() == Qt::MoveAction;
    setFocus(Qt::OtherFocusReason);
    Guarded([&] { TakeDrop(*event->mimeData(), place, moves); });
    event->accept();
}

}  // namespace plotkit
