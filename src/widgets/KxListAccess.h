// The job of KxListAccess is to let assistive programs walk through the items of a list.
#pragma once

#include <QAccessibleWidget>
#include <QPointer>
#include <vector>

#include "host/CustomListBox.h"
#include "widgets/KxControlWidget.h"

namespace plotkit {

/// What all widgets of controls have in common.
class TControlAccess : public QAccessibleWidget
{
public:
    TControlAccess(TKxControlWidget& widget, QAccessible::Role role) : QAccessibleWidget(&widget, role), FWidget(widget)
    {}

    QString text(QAccessible::Text which) const override;

private:
    TKxControlWidget& FWidget;
};

/// `window` shows the list of `owner`, which may be the same or its drop-down. Items are made when they are asked for.
class TListAccess : public QAccessibleWidget
{
public:
    TListAccess(QWidget& window, TKxControlWidget& owner, TCustomListBox& list);
    ~TListAccess() override;

    QString text(QAccessible::Text which) const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return FList.ItemCount(); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    TKxControlWidget& Owner() const { return FOwner; }
    TCustomListBox& List() const { return FList; }
    QWidget& Window() const { return FWindow; }
    /// Whether the list is a drop-down's.
    bool IsDrop() const { return &FWindow != &FOwner; }
    int Selected() const;
    QRect ItemPlace(int index) const;
    void Choose(int index);

private:
    QWidget& FWindow;
    TKxControlWidget& FOwner;
    TCustomListBox& FList;
    mutable std::vector<QAccessible::Id> FItems;  ///< 0: not made yet
};

}  // namespace plotkit
