#include "widgets/KxEditWidget.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <cmath>

#include "qt/KxQtPen.h"

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
    return QString::fromStdString(Edit().TextOf(0, Edit().CharCount()));
}

QSize TKxEditWidget::sizeHint() const
{
    const QFontMetrics metrics(font());
    const double line = Host().TextMeasurer().Height(Edit().GetFont().State()) / Edit().PixelScale();
    const QSize contents(metrics.horizontalAdvance(QLatin1Char('x')) * FRoom + 4,
                         std::max(metrics.height(), static_cast<int>(std::ceil(line))) + 2);
    const QStyleOptionFrame option = FrameOption(*this, {});
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
    if (!IsNewValue() || !IsServing())
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
    const int anchor = Edit().CaretPos() == Edit().SelStart() ? Edit().SelEnd() : Edit().SelStart();
    const bool isMoved = Edit().CaretPos() != FToldCaret || anchor != FToldAnchor;
    if (!isMoved && !FTextChanged)
        return;
    FToldCaret = Edit().CaretPos();
    FToldAnchor = anchor;
    TellPlace();
    updateMicroFocus();
}

void TKxEditWidget::TellPlace()
{
    const bool isChanged = std::exchange(FTextChanged, false);
    if (!QAccessible::isActive())
        return;
    if (isChanged) {
        QAccessibleValueChangeEvent changed(this, ValueText());
        QAccessible::updateAccessibility(&changed);
    }
    QAccessibleTextCursorEvent moved(this, FToldCaret);
    QAccessible::updateAccessibility(&moved);
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

void TKxEditWidget::mousePressEvent(QMouseEvent* event)
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection())
        return TKxControlWidget::mousePressEvent(event);
    event->accept();
    Guarded([&] {
        const int at = Edit().PointToCaretPos(RootPixel(event->position()).X);
        Edit().Select(at, at);
        Edit().Insert(clipboard->text(QClipboard::Selection).toStdString());
    });
}

void TKxEditWidget::mouseReleaseEvent(QMouseEvent* event)
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (event->button() == Qt::LeftButton && clipboard->supportsSelection() && Edit().HasSelection())
        clipboard->setText(QString::fromStdString(Edit().SelectedText()), QClipboard::Selection);
    if (event->button() != Qt::MiddleButton)
        TKxControlWidget::mouseReleaseEvent(event);
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
    FillMenu(*menu);
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint caret = FromControl(Edit(), Edit().CaretRect()).bottomLeft();
    menu->popup(isKey ? mapToGlobal(caret) : event->globalPos());
    event->accept();
}

}  // namespace plotkit
