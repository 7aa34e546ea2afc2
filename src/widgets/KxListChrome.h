// The job of KxListChrome is what a list of the library has around it in a window: scroll bar, and search by letters.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <optional>

#include "host/CustomListBox.h"

class QKeyEvent;
class QRect;
class QScrollBar;
class QWidget;

namespace plotkit {

/// Letters that follow each other quickly are the begin of an item's name; the same one again and again goes through
/// all items that begin with it.
class TKxLetterSearch
{
public:
    /// The item that a key leads to from `current` on; nothing for keys that are no letters, -1 when no item begins
    /// like that.
    std::optional<int> Find(const QKeyEvent& event, int current, int count, const std::function<QString(int)>& name);

private:
    QString FTyped;
    QElapsedTimer FSince;
};

/// The bar stands at the right, below a list of several columns at the bottom, while not all items have room.
class TKxListScroll
{
public:
    TKxListScroll(QWidget& window, TCustomListBox& list);

    /// What the bar leaves of the room for list and bar.
    QRect Room(const QRect& all) const;
    /// Shows where the list is scrolled to.
    void Follow(const QRect& all);
    QScrollBar& Bar() const { return *FBar; }

private:
    /// Items that have room without a bar.
    int ItemRoom(const QRect& all) const;
    bool IsNeeded(const QRect& all) const;
    bool IsSideways() const { return FList.GetColumns() > 1; }

    QWidget& FWindow;
    TCustomListBox& FList;
    QScrollBar* FBar;
};

}  // namespace plotkit
