#include "widgets/KxFormAccess.h"

#include "controls/KxFloatEdit.h"
#include "controls/KxIntegerEdit.h"
#include "host/CustomButton.h"
#include "widgets/KxEditAccess.h"

namespace plotkit {

namespace {

class TPartAccess : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    TPartAccess(TFormAccess& form, TWindowControl& part) : FView(&form.View()), FForm(form), FPart(part) {}

    TWindowControl& Part() const { return FPart; }

    bool isValid() const override { return FView && FView->Root(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return &FForm; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override
    {
        if (dynamic_cast<TKxSpinIntegerEdit*>(&FPart))
            return QAccessible::SpinBox;
        if (dynamic_cast<TCustomEdit*>(&FPart))
            return QAccessible::EditableText;
        return dynamic_cast<TCustomButton*>(&FPart) ? QAccessible::Button : QAccessible::List;
    }
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect place = FView->FromControl(FPart, FPart.ClientRect());
        return {FView->mapToGlobal(place.topLeft()), place.size()};
    }
    QString text(QAccessible::Text which) const override
    {
        if (!isValid() || (which != QAccessible::Name && which != QAccessible::Value))
            return {};
        const QString value = FView->PartValue(FPart);
        if (which == QAccessible::Value)
            return value;
        // A list says what is chosen with its name, as its items are no parts of their own.
        const QString name = FView->NameOf(FPart);
        return role() == QAccessible::List && !value.isEmpty() ? name + ": " + value : name;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.focused = isValid() && FView->hasFocus() && FPart.HasFocus();
        state.disabled = !FPart.GetEnabled();
        state.editable = dynamic_cast<TCustomEdit*>(&FPart) != nullptr;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override
    {
        return role() == QAccessible::Button ? QStringList{pressAction(), setFocusAction()}
                                             : QStringList{setFocusAction()};
    }
    void doAction(const QString& name) override
    {
        auto* const button = dynamic_cast<TCustomButton*>(&FPart);
        if (name == pressAction() && button && FPart.GetEnabled())
            FView->AsUser([button] { button->Click(); });
        else if (name == setFocusAction())
            FView->AsUser([this] { FPart.SetFocus(); });
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<TKxFormView> FView;
    TFormAccess& FForm;
    TWindowControl& FPart;
};

class TEditPartAccess : public TPartAccess, public TEditTextAccess, public TEditValueAccess
{
public:
    TEditPartAccess(TFormAccess& form, TCustomEdit& edit)
        : TPartAccess(form, edit), TEditTextAccess(form.View(), edit), TEditValueAccess(form.View(), edit)
    {}

    using TPartAccess::text;
    QString text(int start, int end) const override { return TEditTextAccess::text(start, end); }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        const bool isNumber = dynamic_cast<TKxIntegerEdit*>(&Part()) || dynamic_cast<TKxFloatEdit*>(&Part());
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        if (type == QAccessible::ValueInterface && isNumber)
            return static_cast<QAccessibleValueInterface*>(this);
        return TPartAccess::interface_cast(type);
    }
};

}  // namespace

TFormAccess::TFormAccess(TKxFormView& view) : TControlAccess(view, QAccessible::Form), FView(view) {}

TFormAccess::~TFormAccess()
{
    for (const QAccessible::Id id : FParts)
        if (id != 0)
            QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* TFormAccess::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    const auto at = static_cast<std::size_t>(index);
    FParts.resize(FView.Parts().size());
    if (FParts[at] == 0) {
        auto& form = const_cast<TFormAccess&>(*this);
        TWindowControl* const part = FView.Parts()[at];
        auto* const edit = dynamic_cast<TCustomEdit*>(part);
        // Qt takes it.
        FParts[at] = QAccessible::registerAccessibleInterface(edit ? new TEditPartAccess(form, *edit)
                                                                   : new TPartAccess(form, *part));
    }
    return QAccessible::accessibleInterface(FParts[at]);
}

int TFormAccess::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* access = dynamic_cast<const TPartAccess*>(child);
    const std::vector<TWindowControl*> parts = FView.Parts();
    const auto found = access ? std::find(parts.begin(), parts.end(), &access->Part()) : parts.end();
    return found == parts.end() ? -1 : static_cast<int>(found - parts.begin());
}

QAccessibleInterface* TFormAccess::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i)
        if (child(i)->rect().contains(x, y))
            return child(i);
    return nullptr;
}

QAccessibleInterface* TFormAccess::focusChild() const
{
    const std::vector<TWindowControl*> parts = FView.Parts();
    const TWindowControl* const focused = FView.Root() ? FView.Root()->Focused() : nullptr;
    const auto found = std::find(parts.begin(), parts.end(), focused);
    return focused && found != parts.end() ? child(static_cast<int>(found - parts.begin())) : nullptr;
}

}  // namespace plotkit
