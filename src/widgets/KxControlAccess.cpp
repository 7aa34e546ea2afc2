#include "widgets/KxControlAccess.h"

#include <QAccessibleWidget>

#include "widgets/KxColorWidgets.h"
#include "widgets/KxNumberWidgets.h"
#include "widgets/KxPickerWidgets.h"

namespace plotkit {

namespace {

QAccessible::Role RoleOf(const TKxControlWidget& widget)
{
    if (dynamic_cast<const TKxSpinIntegerEditWidget*>(&widget))
        return QAccessible::SpinBox;
    if (dynamic_cast<const TKxEditWidget*>(&widget))
        return QAccessible::EditableText;
    if (dynamic_cast<const TKxComboWidget*>(&widget))
        return QAccessible::ComboBox;
    if (dynamic_cast<const TKxListWidget*>(&widget))
        return QAccessible::List;
    return dynamic_cast<const TKxColorButtonWidget*>(&widget) ? QAccessible::ColorChooser : QAccessible::Form;
}

class TControlAccess : public QAccessibleWidget
{
public:
    explicit TControlAccess(TKxControlWidget& widget) : QAccessibleWidget(&widget, RoleOf(widget)), FWidget(widget) {}

    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Value ? FWidget.ValueText() : QAccessibleWidget::text(which);
    }

private:
    TKxControlWidget& FWidget;
};

QAccessibleInterface* AccessOf(const QString&, QObject* object)
{
    auto* const widget = dynamic_cast<TKxControlWidget*>(object);
    // Qt takes it.
    return widget ? new TControlAccess(*widget) : nullptr;
}

}  // namespace

void OfferAccess()
{
    static const bool isOffered = [] {
        QAccessible::installFactory(&AccessOf);
        return true;
    }();
    static_cast<void>(isOffered);
}

}  // namespace plotkit
