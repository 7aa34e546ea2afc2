#include "plotkit/window/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace plotkit {

void TElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                          foregroundRole());
}

}  // namespace plotkit
