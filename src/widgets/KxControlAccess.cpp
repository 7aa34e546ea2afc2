#include "widgets/KxControlAccess.h"

#include "widgets/KxColorWidgets.h"
#include "widgets/KxDropWidget.h"
#include "widgets/KxEditAccess.h"
#include "widgets/KxFormAccess.h"
#include "widgets/KxPickerWidgets.h"

namespace plotkit {

namespace {

void (*Listener)(QAccessibleEvent&) = nullptr;

class TComboAccess : public TControlAccess
{
public:
    explicit TComboAccess(TKxComboWidget& widget) : TControlAccess(widget, QAccessible::ComboBox), FBox(widget) {}

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(&FBox.DropWindow()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child && child->object() == &FBox.DropWindow() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::State state() const override
    {
        QAccessible::State state = TControlAccess::state();
        state.expandable = state.hasPopup = true;
        state.expanded = FBox.Popup() != nullptr;
        state.collapsed = !state.expanded;
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == setFocusAction())
            return TControlAccess::doAction(name);
        if (FBox.isEnabled())
            FBox.AsUser([this] { FBox.Combo().SetDroppedDown(!FBox.Combo().GetDroppedDown()); });
    }

private:
    TKxComboWidget& FBox;
};

class TButtonAccess : public TControlAccess
{
public:
    explicit TButtonAccess(TKxColorButtonWidget& widget) : TControlAccess(widget, QAccessible::Button), FButton(widget)
    {}

    QString text(QAccessible::Text which) const override
    {
        const QString own = TControlAccess::text(which);
        // Programs that read no values of buttons read what describes them.
        return which == QAccessible::Description && own.isEmpty() ? FButton.ValueText() : own;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == setFocusAction())
            return TControlAccess::doAction(name);
        if (FButton.isEnabled())
            FButton.AsUser([this] { FButton.Control().Click(); });
    }

private:
    TKxColorButtonWidget& FButton;
};

QAccessibleInterface* AccessOfWidget(TKxControlWidget& widget)
{
    if (auto* edit = dynamic_cast<TKxEditWidget*>(&widget))
        return NewEditAccess(*edit);
    if (auto* combo = dynamic_cast<TKxComboWidget*>(&widget))
        return new TComboAccess(*combo);
    if (auto* list = dynamic_cast<TKxListWidget*>(&widget))
        return new TListAccess(*list, *list, list->List());
    if (auto* button = dynamic_cast<TKxColorButtonWidget*>(&widget))
        return new TButtonAccess(*button);
    if (auto* form = dynamic_cast<TKxFormView*>(&widget))
        return new TFormAccess(*form);
    return new TControlAccess(widget, QAccessible::Client);
}

QAccessibleInterface* AccessOf(const QString&, QObject* object)
{
    // Qt takes what comes out.
    if (auto* drop = dynamic_cast<TKxDropWidget*>(object))
        return new TListAccess(*drop, drop->Box(), drop->List());
    auto* const widget = dynamic_cast<TKxControlWidget*>(object);
    return widget ? AccessOfWidget(*widget) : nullptr;
}

}  // namespace

QString TControlAccess::text(QAccessible::Text which) const
{
    return which == QAccessible::Value ? FWidget.ValueText() : QAccessibleWidget::text(which);
}

void OfferAccess()
{
    static const bool isOffered = [] {
        QAccessible::installFactory(&AccessOf);
        return true;
    }();
    static_cast<void>(isOffered);
}

bool IsHeard()
{
    return Listener || QAccessible::isActive();
}

void Tell(QAccessibleEvent& event)
{
    if (Listener)
        Listener(event);
    else
        QAccessible::updateAccessibility(&event);
}

void SetAccessListener(void (*listener)(QAccessibleEvent& event))
{
    Listener = listener;
}

void TellTextChange(QAccessibleInterface& access, const QString& before, const QString& after, int caret)
{
    if (before == after)
        return;
    const auto shorter = std::min(before.size(), after.size());
    qsizetype same = 0, behind = 0;
    while (same < shorter && before[same] == after[same])
        ++same;
    while (behind < shorter - same && before[before.size() - 1 - behind] == after[after.size() - 1 - behind])
        ++behind;
    const int at = static_cast<int>(same);
    const QString gone = before.mid(same, before.size() - same - behind);
    const QString come = after.mid(same, after.size() - same - behind);
    const auto tell = [caret](QAccessibleTextCursorEvent&& event) {
        event.setCursorPosition(caret);
        Tell(event);
    };
    if (gone.isEmpty())
        tell(QAccessibleTextInsertEvent(&access, at, come));
    else if (come.isEmpty())
        tell(QAccessibleTextRemoveEvent(&access, at, gone));
    else
        tell(QAccessibleTextUpdateEvent(&access, at, gone, come));
}

void TellItem(QWidget& list, int index, bool hasFocus)
{
    if (!IsHeard())
        return;
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&list);
    QAccessibleInterface* const item = access ? access->child(index) : nullptr;
    if (!item)
        return;
    QAccessibleEvent selected(item, QAccessible::Selection);
    Tell(selected);
    if (!hasFocus)
        return;
    QAccessibleEvent focused(item, QAccessible::Focus);
    Tell(focused);
}

}  // namespace plotkit
