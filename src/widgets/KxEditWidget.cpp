#include "widgets/KxEditWidget.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionFrame>
#include <cmath>

#include "qt/KxQtPen.h"
#include "widgets/KxControlAccess.h"
#include "widgets/KxEditPlaces.h"

namespace plotkit {

namespace {

QStyleOptionFrame FrameOption(const QWidget& widget, const QRect& box)
{
    QStyleOptionFrame option;
    option.initFrom(&widget);
    option.rect = box;
    option.lineWidth = widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &widget);
    option.state |= QStyle::State_Sunken;
    return option;
}

}  // namespace

TKxEditWidget::TKxEditWidget(std::unique_ptr<TCustomEdit> edit, QWidget* parent)
    : TKxControlWidget(std::move(edit), parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAcceptDrops(true);
    Edit().SetBorder(false);
}

void TKxEditWidget::SetReadOnly(bool readOnly)
{
    Edit().SetReadOnly(readOnly);
    updateMicroFocus();
    update();
}

void TKxEditWidget::SetRoom(int letters)
{
    FRoom = letters;
    updateGeometry();
}

QString TKxEditWidget::ValueText() const
{
    return QtText(Edit());
}

QSize TKxEditWidget::sizeHint() const
{
    return SizeWithin(style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this));
}

QSize TKxEditWidget::SizeWithin(int frame) const
{
    const QFontMetrics metrics(font());
    const double line = Host().TextMeasurer().Height(Edit().GetFont().State()) / Edit().PixelScale();
    const QSize contents(metrics.horizontalAdvance(QLatin1Char('x')) * FRoom + 4,
                         std::max(metrics.height(), static_cast<int>(std::ceil(line))) + 2);
    QStyleOptionFrame option = FrameOption(*this, {});
    option.lineWidth = frame;
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this);
}

QRect TKxEditWidget::RootRect() const
{
    const QStyleOptionFrame option = FrameOption(*this, FrameRect());
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
}

void TKxEditWidget::PaintChrome(QPainter& painter)
{
    QStyleOptionFrame option = FrameOption(*this, FrameRect());
    const TColor ground = Edit().GetEnabled() ? Edit().GetColor() : clButtonFace;
    option.palette.setColor(QPalette::Base, QtColor(ground));
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
}

void TKxEditWidget::EditChanged()
{
    FTextChanged = true;
    const bool isNew = IsNewValue();
    if (!IsServing())
        return Follow();
    if (!isNew)
        return;
    FChangedByUser = true;
    ControlChanged();
}

void TKxEditWidget::Finish()
{
    if (!std::exchange(FChangedByUser, false) || !OnFinished)
        return;
    Guarded(OnFinished);
}

void TKxEditWidget::Follow()
{
    const TPlace now{Edit().CaretPos(), Anchor(Edit())}, before = std::exchange(FToldPlace, now);
    const bool isChanged = std::exchange(FTextChanged, false);
    if (!IsHeard())
        FToldText.reset();
    else
        TellChanges(isChanged, before);
    // Whoever asks then is an event, too.
    if (isChanged || now != before)
        updateMicroFocus();
}

void TKxEditWidget::TellChanges(bool isChanged, const TPlace& before)
{
    const TPlace now = FToldPlace;
    const int caret = QtPlace(Edit(), now.Caret);
    if (isChanged || !FToldText) {
        const QString text = QtText(Edit());
        const std::optional<QString> old = std::exchange(FToldText, text);
        if (QAccessibleInterface* access = old ? QAccessible::queryAccessibleInterface(this) : nullptr)
            TellTextChange(*access, *old, text, caret);
    }
    if (now != before && (now.IsSelection() || before.IsSelection())) {
        QAccessibleTextSelectionEvent selected(this, QtPlace(Edit(), Edit().SelStart()),
                                               QtPlace(Edit(), Edit().SelEnd()));
        selected.setCursorPosition(caret);
        Tell(selected);
    }
    if (now.Caret != before.Caret) {
        QAccessibleTextCursorEvent moved(this, caret);
        Tell(moved);
    }
    if (isChanged && IsNumber())
        TKxControlWidget::Follow();
}

void TKxEditWidget::focusInEvent(QFocusEvent* event)
{
    TKxControlWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        Edit().SelectAll();
}

void TKxEditWidget::focusOutEvent(QFocusEvent* event)
{
    TKxControlWidget::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Finish();
}

void TKxEditWidget::keyPressEvent(QKeyEvent* event)
{
    TKxControlWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Finish();
}

void TKxEditWidget::AddAction(QMenu& menu, const QString& text, const QKeySequence& key, bool enabled,
                              const std::function<void()>& action)
{
    QAction* const added = menu.addAction(text, this, [this, action] {
        setFocus(Qt::PopupFocusReason);
        AsUser(action);
    });
    added->setShortcut(key);
    added->setEnabled(enabled);
}

void TKxEditWidget::FillMenu(QMenu& menu)
{
    TCustomEdit& edit = Edit();
    const bool writes = !edit.GetReadOnly(), hasText = edit.CharCount() > 0;
    AddAction(menu, "&Undo", QKeySequence::Undo, edit.CanUndo(), [&edit] { edit.Undo(); });
    AddAction(menu, "&Redo", QKeySequence::Redo, edit.CanRedo(), [&edit] { edit.Redo(); });
    menu.addSeparator();
    AddAction(menu, "Cu&t", QKeySequence::Cut, writes && edit.HasSelection(), [&edit] { edit.CutToClipBoard(); });
    AddAction(menu, "&Copy", QKeySequence::Copy, edit.HasSelection(), [&edit] { edit.CopyToClipBoard(); });
    AddAction(menu, "&Paste", QKeySequence::Paste, writes && !Host().ClipboardText().empty(),
              [&edit] { edit.PasteFromClipBoard(); });
    AddAction(menu, "&Delete", QKeySequence::Delete, writes && edit.HasSelection(),
              [&edit] { edit.SelectionCleared(); });
    menu.addSeparator();
    AddAction(menu, "Select &all", QKeySequence::SelectAll, hasText, [&edit] { edit.SelectAll(); });
}

void TKxEditWidget::contextMenuEvent(QContextMenuEvent* event)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Guarded([this] { EndComposition(); });
    FillMenu(*menu);
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint caret = FromControl(Edit(), Edit().CaretRect()).bottomLeft();
    menu->popup(isKey ? mapToGlobal(caret) : event->globalPos());
    event->accept();
}

}  // namespace plotkit
