#include "widgets/KxControlWidget.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>
#include <cmath>

#include "host/CustomEdit.h"
#include "host/Restore.h"
#include "qt/KxQtKeys.h"
#include "widgets/KxControlAccess.h"

namespace plotkit {

namespace {

/// Qt counts in halves of characters beyond the first 65536.
int QtPlace(const TEditableText& edit, int index)
{
    int place = 0;
    for (int i = 0; i < std::min(index, edit.CharCount()); ++i)
        place += edit.CharAt(i).size() == 4 ? 2 : 1;
    return place;
}

int CharPlace(const TEditableText& edit, int qtPlace)
{
    int index = 0;
    for (int place = 0; place < qtPlace && index < edit.CharCount(); ++index)
        place += edit.CharAt(index).size() == 4 ? 2 : 1;
    return index;
}

QString QtText(const std::string& text)
{
    return QString::fromStdString(text);
}

}  // namespace

TKxControlWidget::TKxControlWidget(std::unique_ptr<TWindowControl> control, QWidget* parent)
    : KxGraphWidget(std::move(control), parent)
{
    Prepare();
}

TKxControlWidget::TKxControlWidget(TWindowControl* root, QWidget* parent) : KxGraphWidget(root, parent)
{
    Prepare();
}

void TKxControlWidget::Prepare()
{
    // The corners of a style's frame show what is behind them.
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    OfferAccess();
    TakeFont();
}

void TKxControlWidget::TakeFont()
{
    if (!Root())
        return;
    const QFontInfo info(font());
    TFont& own = Root()->GetFont();
    own.SetName(font().family().toStdString());
    own.SetSize(std::max(static_cast<int>(std::lround(info.pointSizeF())), 1));
}

TCustomEdit* TKxControlWidget::FocusedEdit() const
{
    return Root() ? dynamic_cast<TCustomEdit*>(Root()->Focused()) : nullptr;
}

QPoint TKxControlWidget::FromControl(const TControl& control, TPoint at) const
{
    const TPoint root = control.OriginInRoot() + at;
    const double ratio = devicePixelRatioF();
    return RootRect().topLeft() + QPointF(root.X / ratio, root.Y / ratio).toPoint();
}

QRect TKxControlWidget::FromControl(const TControl& control, const TRect& box) const
{
    return {FromControl(control, box.TopLeft()), FromControl(control, TPoint{box.Right, box.Bottom}) - QPoint(1, 1)};
}

void TKxControlWidget::AsUser(const std::function<void()>& action)
{
    const QPointer<QWidget> alive(this);
    ++FServing;
    Guarded(action);
    if (!alive)
        return;
    --FServing;
    Follow();
}

void TKxControlWidget::ControlChanged()
{
    if (FNotifying || !OnChanged)
        return;
    const TRestore notifying(FNotifying, true);
    OnChanged();
}

bool TKxControlWidget::IsKeyWanted(int key, TShiftState shift) const
{
    const TWindowControl* const focused = Root() ? Root()->Focused() : nullptr;
    return focused && focused->WantsKey(key, shift);
}

bool TKxControlWidget::IsWheelWanted() const
{
    return false;
}

bool TKxControlWidget::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        auto* const pressed = static_cast<QKeyEvent*>(event);
        const auto key = KeyOf(*pressed);
        if (key && IsKeyWanted(*key, ShiftStateOf(pressed->modifiers(), {}))) {
            event->accept();
            return true;
        }
    }
    bool done = false;
    AsUser([&] { done = KxGraphWidget::event(event); });
    return done;
}

void TKxControlWidget::changeEvent(QEvent* event)
{
    KxGraphWidget::changeEvent(event);
    if (!Root())
        return;
    Guarded([&] {
        if (event->type() == QEvent::FontChange)
            TakeFont();
        if (event->type() == QEvent::EnabledChange)
            Root()->SetEnabled(isEnabled());
        Root()->Invalidate();
    });
    updateGeometry();
}

void TKxControlWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintChrome(painter);
    painter.setClipRect(Hole());
    DrawRoot(painter);
    if (!FPreedit.isEmpty())
        PaintPreedit(painter);
}

void TKxControlWidget::PaintPreedit(QPainter& painter)
{
    const TCustomEdit* const edit = FocusedEdit();
    if (!edit)
        return;
    QFont underlined = font();
    underlined.setUnderline(true);
    QRect box = FromControl(*edit, edit->CaretRect());
    box.setWidth(QFontMetrics(underlined).horizontalAdvance(FPreedit) + 1);
    painter.fillRect(box, palette().base());
    painter.setFont(underlined);
    painter.setPen(palette().text().color());
    painter.drawText(box, Qt::AlignVCenter | Qt::TextSingleLine, FPreedit);
}

void TKxControlWidget::focusInEvent(QFocusEvent* event)
{
    KxGraphWidget::focusInEvent(event);
    Guarded([this] {
        if (Root())
            Root()->SetFocus();
    });
}

void TKxControlWidget::focusOutEvent(QFocusEvent* event)
{
    KxGraphWidget::focusOutEvent(event);
    FPreedit.clear();
    // A menu or a list gives the focus back.
    if (event->reason() == Qt::PopupFocusReason)
        return;
    Guarded([this] {
        if (Root())
            Root()->KillFocus();
    });
}

void TKxControlWidget::keyPressEvent(QKeyEvent* event)
{
    const auto key = KeyOf(*event);
    if (!key)
        return event->ignore();
    const bool isWanted = IsKeyWanted(*key, ShiftStateOf(event->modifiers(), {}));
    // Some keyboards have keys for two characters.
    if (isWanted && FocusedEdit() && *key < kyFirst && event->text().toUcs4().size() > 1)
        Guarded([&] { Root()->DispatchText(event->text().toStdString()); });
    else
        KxGraphWidget::keyPressEvent(event);
    event->setAccepted(isWanted);
}

void TKxControlWidget::wheelEvent(QWheelEvent* event)
{
    // What only scrolls the form past the control changes nothing.
    if (!IsWheelWanted())
        return event->ignore();
    KxGraphWidget::wheelEvent(event);
}

void TKxControlWidget::contextMenuEvent(QContextMenuEvent* event)
{
    event->ignore();
}

void TKxControlWidget::inputMethodEvent(QInputMethodEvent* event)
{
    TCustomEdit* const edit = FocusedEdit();
    if (!edit || edit->GetReadOnly())
        return event->ignore();
    Guarded([&] {
        if (event->replacementLength() > 0) {
            const int start = QtPlace(*edit, edit->CaretPos()) + event->replacementStart();
            edit->Select(CharPlace(*edit, start), CharPlace(*edit, start + event->replacementLength()));
        } else if (!event->preeditString().isEmpty()) {
            edit->SelectionCleared();
        }
        if (!event->commitString().isEmpty() || event->replacementLength() > 0)
            Root()->DispatchText(event->commitString().toStdString());
    });
    FPreedit = event->preeditString();
    event->accept();
    update();
}

QVariant TKxControlWidget::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const TCustomEdit* const edit = FocusedEdit();
    if (query == Qt::ImEnabled)
        return edit && edit->GetEnabled() && !edit->GetReadOnly();
    if (!edit)
        return KxGraphWidget::inputMethodQuery(query);
    switch (query) {
        case Qt::ImCursorRectangle:
            return FromControl(*edit, edit->CaretRect());
        case Qt::ImSurroundingText:
            return QtText(edit->TextOf(0, edit->CharCount()));
        case Qt::ImCursorPosition:
        case Qt::ImAbsolutePosition:
            return QtPlace(*edit, edit->CaretPos());
        case Qt::ImAnchorPosition:
            return QtPlace(*edit, edit->CaretPos() == edit->SelStart() ? edit->SelEnd() : edit->SelStart());
        case Qt::ImCurrentSelection:
            return QtText(edit->SelectedText());
        case Qt::ImMaximumTextLength:
            return edit->GetMaxLength() > 0 ? QVariant(edit->GetMaxLength()) : QVariant();
        default:
            return KxGraphWidget::inputMethodQuery(query);
    }
}

}  // namespace plotkit
