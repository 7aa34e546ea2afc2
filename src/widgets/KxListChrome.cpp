#include "widgets/KxListChrome.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <cmath>

namespace plotkit {

std::optional<int> TKxLetterSearch::Find(const QKeyEvent& event, int current, int count,
                                         const std::function<QString(int)>& name)
{
    const QString letters = event.text();
    const bool isLetter = !letters.isEmpty() && letters[0].isPrint() &&
                          !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    const bool isLate = !FSince.isValid() || FSince.elapsed() > QGuiApplication::styleHints()->keyboardInputInterval();
    if (isLate)
        FTyped.clear();
    // A blank alone opens the list, or chooses.
    if (!isLetter || (FTyped.isEmpty() && letters[0].isSpace()))
        return std::nullopt;
    FSince.restart();
    FTyped += letters;
    const bool isRow = FTyped.count(FTyped[0], Qt::CaseInsensitive) == FTyped.size();
    const QString wanted = isRow ? FTyped.left(1) : FTyped;
    const int first = FTyped.size() == 1 || isRow ? current + 1 : std::max(current, 0);
    for (int i = 0; i < count; ++i)
        if (const int at = (first + i) % count; name(at).startsWith(wanted, Qt::CaseInsensitive))
            return at;
    return -1;
}

TKxListScroll::TKxListScroll(QWidget& window, TCustomListBox& list)
    : FWindow(window), FList(list), FBar(new QScrollBar)
{
    // Which the window hears of.
    FBar->setParent(&window);
    FBar->hide();
    FBar->setCursor(Qt::ArrowCursor);
    FBar->setFocusPolicy(Qt::NoFocus);
    QObject::connect(FBar, &QScrollBar::valueChanged, FBar, [this](int value) {
        FList.SetTopIndex(IsSideways() ? value * FList.Rows() : value);
        FWindow.update();
    });
}

int TKxListScroll::ItemRoom(const QRect& all) const
{
    const int high = static_cast<int>(std::lround(all.height() * FWindow.devicePixelRatioF()));
    return std::max(high / FList.Px(FList.GetItemHeight()), 1) * FList.GetColumns();
}

bool TKxListScroll::IsNeeded(const QRect& all) const
{
    return !all.isEmpty() && FList.ItemCount() > ItemRoom(all);
}

QRect TKxListScroll::Room(const QRect& all) const
{
    if (!IsNeeded(all))
        return all;
    const QSize bar = FBar->sizeHint();
    return IsSideways() ? all.adjusted(0, 0, 0, -bar.height()) : all.adjusted(0, 0, -bar.width(), 0);
}

void TKxListScroll::Follow(const QRect& all)
{
    FBar->setOrientation(IsSideways() ? Qt::Horizontal : Qt::Vertical);
    const bool isNeeded = IsNeeded(all);
    FBar->setVisible(isNeeded);
    if (!isNeeded)
        return;
    const QRect room = Room(all);
    FBar->setGeometry(IsSideways() ? QRect(all.left(), room.bottom() + 1, all.width(), all.bottom() - room.bottom())
                                   : QRect(room.right() + 1, all.top(), all.right() - room.right(), all.height()));
    const QSignalBlocker blocker(FBar);
    const int rows = FList.Rows(), columns = (FList.ItemCount() + rows - 1) / rows;
    const int shown = IsSideways() ? FList.GetColumns() : rows;
    FBar->setRange(0, std::max((IsSideways() ? columns : FList.ItemCount()) - shown, 0));
    FBar->setPageStep(shown);
    FBar->setValue(IsSideways() ? FList.GetTopIndex() / rows : FList.GetTopIndex());
}

}  // namespace plotkit
