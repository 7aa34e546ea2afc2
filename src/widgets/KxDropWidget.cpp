#include "widgets/KxDropWidget.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <cmath>

#include "qt/KxQtHost.h"
#include "widgets/KxComboWidget.h"
#include "widgets/KxControlAccess.h"

namespace plotkit {

namespace {

/// The list's own.
constexpr int FrameWidth = 1;
constexpr QMargins Frame(FrameWidth, FrameWidth, FrameWidth, FrameWidth);

}  // namespace

TKxDropWidget::TKxDropWidget(TKxComboWidget& box)
    : KxGraphWidget(&box.Combo().DropList(), &box), FBox(box), FScroll(*this, box.Combo().DropList())
{
    setWindowFlags(Qt::Popup);
    // Its box may have colours of its own.
    setAttribute(Qt::WA_WindowPropagation);
}

QRect TKxDropWidget::Inside() const
{
    return rect() - Frame;
}

QRect TKxDropWidget::RootRect() const
{
    return FScroll.Room(Inside()) + Frame;
}

QRect TKxDropWidget::PlaceBeside(const QRect& box, const QRect& screen) const
{
    const double ratio = FBox.devicePixelRatioF();
    const double item = List().Px(List().GetItemHeight()) / ratio;
    const auto heightOf = [item](int rows) { return static_cast<int>(std::ceil(rows * item)) + 2 * FrameWidth; };
    const int below = screen.bottom() - box.bottom(), above = box.top() - screen.top();
    int rows = FBox.ListRows();
    const bool goesUp = heightOf(rows) > below && above > below;
    const int room = goesUp ? above : below;
    if (heightOf(rows) > room)
        rows = std::max(static_cast<int>((room - 2 * FrameWidth) / item), 1);
    const int width = std::min(std::max(box.width(), FBox.ListWidth()), screen.width());
    const int left = std::clamp(box.left(), screen.left(), screen.right() + 1 - width);
    const int height = heightOf(rows);
    return {left, goesUp ? box.top() - height : box.bottom() + 1, width, height};
}

void TKxDropWidget::Drop()
{
    const QRect box(FBox.mapToGlobal(QPoint(0, 0)), FBox.size());
    const QScreen* screen = QGuiApplication::screenAt(box.center());
    setGeometry(PlaceBeside(box, (screen ? screen : FBox.screen())->availableGeometry()));
    FToldItem = -1;
    FitRoot();
    // The chosen item is in sight, as far up as it was.
    const int chosen = List().GetItemIndex();
    List().SetItemIndex(-1);
    List().SetItemIndex(chosen);
    show();
    setFocus(Qt::PopupFocusReason);
}

bool TKxDropWidget::event(QEvent* event)
{
    const TQtPaletteScope colors(palette());
    const bool done = KxGraphWidget::event(event);
    if (!isVisible() || !Root())
        return done;
    FScroll.Follow(Inside());
    FollowItem();
    return done;
}

void TKxDropWidget::FollowItem()
{
    const int item = List().GetItemIndex();
    if (std::exchange(FToldItem, item) != item && item >= 0)
        TellItem(*this, item, true);
}

void TKxDropWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier) {
        event->accept();
        return Guarded([this] { FBox.Combo().CloseUp(true); });
    }
    const auto found =
        FSearch.Find(*event, List().GetItemIndex(), List().ItemCount(), [this](int i) { return FBox.ItemName(i); });
    if (!found)
        return KxGraphWidget::keyPressEvent(event);
    event->accept();
    Guarded([&] { List().SelectByUser(*found); });
}

void TKxDropWidget::mousePressEvent(QMouseEvent* event)
{
    if (rect().contains(event->position().toPoint()))
        return KxGraphWidget::mousePressEvent(event);
    // The press on the box would open the list again.
    setAttribute(Qt::WA_NoMouseReplay, FBox.rect().contains(FBox.mapFromGlobal(event->globalPosition().toPoint())));
    hide();
}

void TKxDropWidget::hideEvent(QHideEvent* event)
{
    KxGraphWidget::hideEvent(event);
    Guarded([this] { FBox.Combo().SetDroppedDown(false); });
}

}  // namespace plotkit
