#include "widgets/KxListAccess.h"

#include "widgets/KxComboWidget.h"

namespace plotkit {

namespace {

class TItemAccess : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    TItemAccess(TListAccess& list, int index) : FWindow(&list.Window()), FList(list), FIndex(index) {}

    int Index() const { return FIndex; }

    bool isValid() const override { return FWindow && FIndex < FList.childCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return &FList; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override { return isValid() ? FList.ItemPlace(FIndex) : QRect(); }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name && isValid() ? FList.Owner().ItemName(FIndex) : QString();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid())
            return state;
        state.selectable = state.focusable = true;
        state.selected = FIndex == FList.Selected();
        state.focused = state.selected && FList.Window().hasFocus();
        state.disabled = !FList.Owner().isEnabled();
        state.invisible = !FList.Window().isVisible();
        const TCustomListBox& list = FList.List();
        state.offscreen = FIndex < list.GetTopIndex() || FIndex >= list.GetTopIndex() + list.VisibleCount();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction() && isValid() && FList.Owner().isEnabled())
            FList.Choose(FIndex);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<QWidget> FWindow;
    TListAccess& FList;
    int FIndex;
};

}  // namespace

TListAccess::TListAccess(QWidget& window, TKxControlWidget& owner, TCustomListBox& list)
    : QAccessibleWidget(&window, QAccessible::List), FWindow(window), FOwner(owner), FList(list)
{}

TListAccess::~TListAccess()
{
    for (const QAccessible::Id id : FItems)
        if (id != 0)
            QAccessible::deleteAccessibleInterface(id);
}

QString TListAccess::text(QAccessible::Text which) const
{
    if (which == QAccessible::Value)
        return FOwner.ValueText();
    const QString own = QAccessibleWidget::text(which);
    return which == QAccessible::Name && own.isEmpty() && IsDrop() ? FOwner.accessibleName() : own;
}

QAccessibleInterface* TListAccess::parent() const
{
    return IsDrop() ? QAccessible::queryAccessibleInterface(&FOwner) : QAccessibleWidget::parent();
}

QAccessibleInterface* TListAccess::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    const auto at = static_cast<std::size_t>(index);
    if (FItems.size() <= at)
        FItems.resize(static_cast<std::size_t>(childCount()));
    // Qt takes it.
    if (FItems[at] == 0)
        FItems[at] = QAccessible::registerAccessibleInterface(new TItemAccess(const_cast<TListAccess&>(*this), index));
    return QAccessible::accessibleInterface(FItems[at]);
}

int TListAccess::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* item = dynamic_cast<const TItemAccess*>(child);
    return item && item->parent() == this ? item->Index() : -1;
}

QAccessibleInterface* TListAccess::childAt(int x, int y) const
{
    for (int i = FList.GetTopIndex(); i < std::min(FList.GetTopIndex() + FList.VisibleCount(), childCount()); ++i)
        if (ItemPlace(i).contains(x, y))
            return child(i);
    return nullptr;
}

QAccessibleInterface* TListAccess::focusChild() const
{
    return FWindow.hasFocus() ? child(Selected()) : nullptr;
}

int TListAccess::Selected() const
{
    const auto* combo = dynamic_cast<const TKxComboWidget*>(&FOwner);
    const bool isClosed = combo && !combo->Popup();
    return isClosed ? combo->Combo().GetItemIndex() : FList.GetItemIndex();
}

QRect TListAccess::ItemPlace(int index) const
{
    const TRect box = FList.ItemRect(index);
    const double ratio = FWindow.devicePixelRatioF();
    const QRectF place(box.Left / ratio, box.Top / ratio, box.Width() / ratio, box.Height() / ratio);
    const QPoint root = IsDrop() ? QPoint(0, 0) : FOwner.FromControl(FList, TPoint{0, 0});
    return place.toAlignedRect().translated(FWindow.mapToGlobal(root));
}

void TListAccess::Choose(int index)
{
    auto* const combo = dynamic_cast<TKxComboWidget*>(&FOwner);
    FOwner.AsUser([&] {
        if (!combo)
            return FList.SelectByUser(index);
        if (!combo->Popup())
            return combo->Combo().SelectByUser(index);
        FList.SelectByUser(index);
        combo->Combo().CloseUp(true);
    });
}

}  // namespace plotkit
