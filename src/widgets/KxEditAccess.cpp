#include "widgets/KxEditAccess.h"

#include <limits>

#include "controls/KxCaptionEdit.h"
#include "widgets/KxEditPlaces.h"
#include "widgets/KxListAccess.h"
#include "widgets/KxNumberWidgets.h"

namespace plotkit {

namespace {

class TEditAccess : public TControlAccess, public TEditTextAccess
{
public:
    TEditAccess(TKxEditWidget& widget, QAccessible::Role role)
        : TControlAccess(widget, role), TEditTextAccess(widget, widget.Edit()), FEditWidget(widget)
    {}

    using TControlAccess::text;
    QString text(int start, int end) const override { return TEditTextAccess::text(start, end); }
    QAccessible::State state() const override
    {
        QAccessible::State state = TControlAccess::state();
        state.editable = state.selectableText = true;
        state.readOnly = FEditWidget.GetReadOnly();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return TControlAccess::interface_cast(type);
    }

private:
    TKxEditWidget& FEditWidget;
};

class TNumberAccess : public TEditAccess, public TEditValueAccess
{
public:
    TNumberAccess(TKxEditWidget& widget, QAccessible::Role role)
        : TEditAccess(widget, role),
          TEditValueAccess(widget, widget.Edit()),
          FSpin(dynamic_cast<TKxSpinIntegerEditWidget*>(&widget))
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return TEditAccess::interface_cast(type);
    }
    QStringList actionNames() const override
    {
        return FSpin ? QStringList{increaseAction(), decreaseAction(), setFocusAction()} : TEditAccess::actionNames();
    }
    void doAction(const QString& name) override
    {
        const bool isUp = name == increaseAction();
        if (!FSpin || (!isUp && name != decreaseAction()))
            return TEditAccess::doAction(name);
        if (FSpin->CanStep(isUp ? udUp : udDown))
            FSpin->AsUser([&] { FSpin->Control().Step(isUp ? udUp : udDown); });
    }

private:
    TKxSpinIntegerEditWidget* FSpin;
};

}  // namespace

void TEditTextAccess::selection(int index, int* start, int* end) const
{
    const bool isOne = index == 0 && FEdit.HasSelection();
    *start = isOne ? QtPlace(FEdit, FEdit.SelStart()) : 0;
    *end = isOne ? QtPlace(FEdit, FEdit.SelEnd()) : 0;
}

void TEditTextAccess::removeSelection(int index)
{
    if (index == 0)
        FWidget.AsUser([this] { FEdit.NoSelection(); });
}

void TEditTextAccess::setSelection(int index, int start, int end)
{
    if (index == 0)
        FWidget.AsUser([&] { FEdit.Select(CharPlace(FEdit, start), CharPlace(FEdit, end)); });
}

int TEditTextAccess::cursorPosition() const
{
    return QtPlace(FEdit, FEdit.CaretPos());
}

QString TEditTextAccess::text(int start, int end) const
{
    return QtText(FEdit).mid(start, std::max(end - start, 0));
}

int TEditTextAccess::characterCount() const
{
    return QtPlace(FEdit, FEdit.CharCount());
}

QRect TEditTextAccess::characterRect(int offset) const
{
    const int index = CharPlace(FEdit, offset);
    if (index >= FEdit.CharCount())
        return {};
    TRect box = FEdit.CaretRect();
    box.Left = FEdit.GapX(index);
    box.Right = FEdit.GapX(index + 1);
    const QRect place = FWidget.FromControl(FEdit, box);
    return {FWidget.mapToGlobal(place.topLeft()), place.size()};
}

int TEditTextAccess::offsetAtPoint(const QPoint& point) const
{
    const QPoint inside = FWidget.mapFromGlobal(point);
    for (int i = 0; i < FEdit.CharCount(); ++i) {
        const int offset = QtPlace(FEdit, i);
        if (characterRect(offset).contains(point))
            return offset;
    }
    return FWidget.rect().contains(inside) ? characterCount() : -1;
}

QString TEditTextAccess::AttributesAt(int index) const
{
    const auto* caption = dynamic_cast<const TKxCaptionEdit*>(&FEdit);
    if (!caption)
        return {};
    QString all;
    const auto add = [&all](bool isOn, const char* text) {
        if (isOn)
            all += QLatin1String(text);
    };
    add(caption->IsBold(index), "font-weight:bold;");
    add(caption->IsItalic(index), "font-style:italic;");
    add(caption->IsUnderline(index), "text-underline-style:solid;text-underline-type:single;");
    add(caption->IsStrikeout(index), "text-line-through-type:single;");
    add(caption->IsSubscript(index), "text-position:sub;");
    add(caption->IsSuperscript(index), "text-position:super;");
    add(caption->IsSymbolFont(index), "font-family:Symbol;");
    return all;
}

QString TEditTextAccess::attributes(int offset, int* start, int* end) const
{
    const int count = FEdit.CharCount();
    *start = *end = 0;
    if (count == 0)
        return {};
    int from = std::min(CharPlace(FEdit, offset), count - 1), to = from + 1;
    const QString all = AttributesAt(from);
    while (from > 0 && AttributesAt(from - 1) == all)
        --from;
    while (to < count && AttributesAt(to) == all)
        ++to;
    *start = QtPlace(FEdit, from);
    *end = QtPlace(FEdit, to);
    return all;
}

void TEditTextAccess::replaceText(int start, int end, const QString& text)
{
    if (FEdit.GetReadOnly() || !FEdit.GetEnabled())
        return;
    FWidget.AsUser([&] {
        FEdit.Select(CharPlace(FEdit, start), CharPlace(FEdit, end));
        if (text.isEmpty())
            FEdit.SelectionCleared();
        else
            FEdit.Insert(text.toStdString());
    });
}

QVariant TEditValueAccess::currentValue() const
{
    if (const auto* whole = dynamic_cast<const TKxIntegerEdit*>(&FEdit))
        return whole->GetValue();
    return static_cast<const TKxFloatEdit&>(FEdit).GetValue();
}

void TEditValueAccess::setCurrentValue(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || FEdit.GetReadOnly() || !FEdit.GetEnabled())
        return;
    FWidget.AsUser([&] {
        if (auto* whole = dynamic_cast<TKxIntegerEdit*>(&FEdit))
            whole->SetValue(value.toInt());
        else
            static_cast<TKxFloatEdit&>(FEdit).SetValue(number);
    });
}

QVariant TEditValueAccess::maximumValue() const
{
    if (const auto* whole = dynamic_cast<const TKxIntegerEdit*>(&FEdit))
        return whole->GetMinValue() == whole->GetMaxValue() ? std::numeric_limits<int>::max() : whole->GetMaxValue();
    const auto& real = static_cast<const TKxFloatEdit&>(FEdit);
    return real.GetMinValue() == real.GetMaxValue() ? std::numeric_limits<double>::max() : real.GetMaxValue();
}

QVariant TEditValueAccess::minimumValue() const
{
    if (const auto* whole = dynamic_cast<const TKxIntegerEdit*>(&FEdit))
        return whole->GetMinValue() == whole->GetMaxValue() ? std::numeric_limits<int>::min() : whole->GetMinValue();
    const auto& real = static_cast<const TKxFloatEdit&>(FEdit);
    return real.GetMinValue() == real.GetMaxValue() ? std::numeric_limits<double>::lowest() : real.GetMinValue();
}

QVariant TEditValueAccess::minimumStepSize() const
{
    const auto* spin = dynamic_cast<const TKxSpinIntegerEdit*>(&FEdit);
    return spin ? std::abs(spin->GetIncrement()) : 0;
}

QAccessibleInterface* NewEditAccess(TKxEditWidget& widget)
{
    if (dynamic_cast<const TKxSpinIntegerEditWidget*>(&widget))
        return new TNumberAccess(widget, QAccessible::SpinBox);
    if (widget.IsNumber())
        return new TNumberAccess(widget, QAccessible::EditableText);
    return new TEditAccess(widget, QAccessible::EditableText);
}

}  // namespace plotkit
