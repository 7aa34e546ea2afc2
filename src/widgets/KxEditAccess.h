// The job of KxEditAccess is to let assistive programs read and write edits: text, caret, selection, value.
#pragma once

#include <QAccessible>

#include "widgets/KxEditWidget.h"

namespace plotkit {

/// The text of an edit that stands anywhere in a widget. Places count as Qt does.
class TEditTextAccess : public QAccessibleTextInterface, public QAccessibleEditableTextInterface
{
public:
    TEditTextAccess(TKxControlWidget& widget, TCustomEdit& edit) : FWidget(widget), FEdit(edit) {}

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override { return FEdit.HasSelection() ? 1 : 0; }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override { setSelection(0, position, position); }
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int, int end) override { setCursorPosition(end); }
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString& text) override;

private:
    /// "name:value;" for what a character looks like.
    QString AttributesAt(int index) const;

    TKxControlWidget& FWidget;
    TCustomEdit& FEdit;
};

/// The number of an edit for integers or reals.
class TEditValueAccess : public QAccessibleValueInterface
{
public:
    TEditValueAccess(TKxControlWidget& widget, TCustomEdit& edit) : FWidget(widget), FEdit(edit) {}

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    /// 0 of edits without steps.
    QVariant minimumStepSize() const override;

private:
    TKxControlWidget& FWidget;
    TCustomEdit& FEdit;
};

/// For Qt to take.
QAccessibleInterface* NewEditAccess(TKxEditWidget& widget);

}  // namespace plotkit
