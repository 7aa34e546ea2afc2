#include "widgets/KxControlWidget.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QTextFormat>
#include <QWheelEvent>
#include <cmath>

#include "host/CustomEdit.h"
#include "host/Restore.h"
#include "qt/KxQtHost.h"
#include "qt/KxQtKeys.h"
#include "widgets/KxControlAccess.h"
#include "widgets/KxEditPlaces.h"

namespace plotkit {

namespace {

TComposition CompositionOf(const QInputMethodEvent& event)
{
    const QString text = event.preeditString();
    const auto characters = [&text](int place) { return static_cast<int>(text.left(place).toUcs4().size()); };
    const int all = static_cast<int>(text.size());
    TComposition composition{text.toStdString(), characters(all), 0, 0};
    for (const QInputMethodEvent::Attribute& one : event.attributes()) {
        const int from = std::clamp(one.start, 0, all), to = std::clamp(one.start + one.length, from, all);
        if (one.type == QInputMethodEvent::Cursor)
            composition.Caret = characters(from);
        const QTextFormat format = qvariant_cast<QTextFormat>(one.value);
        const bool isMarked =
            one.type == QInputMethodEvent::TextFormat && format.hasProperty(QTextFormat::BackgroundBrush);
        if (isMarked && from < to) {
            composition.MarkStart = characters(from);
            composition.MarkEnd = characters(to);
        }
    }
    return composition;
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

void TKxControlWidget::Follow()
{
    if (!IsHeard())
        return;
    const QString value = ValueText();
    if (std::exchange(FToldValue, value) == value)
        return;
    QAccessibleValueChangeEvent changed(this, value);
    Tell(changed);
}

bool TKxControlWidget::event(QEvent* event)
{
    const TQtPaletteScope colors(palette());
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
    PaintAbove(painter);
}

void TKxControlWidget::focusInEvent(QFocusEvent* event)
{
    KxGraphWidget::focusInEvent(event);
    Guarded([this] {
        if (Root())
            Root()->SetFocus();
    });
    updateMicroFocus();
}

void TKxControlWidget::focusOutEvent(QFocusEvent* event)
{
    KxGraphWidget::focusOutEvent(event);
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
    event->accept();
}

void TKxControlWidget::contextMenuEvent(QContextMenuEvent* event)
{
    event->ignore();
}

void TKxControlWidget::EndComposition()
{
    TCustomEdit* const edit = FocusedEdit();
    if (!edit || edit->Composition().Text.empty())
        return;
    QGuiApplication::inputMethod()->commit();
    edit->Compose({});
}

void TKxControlWidget::mousePressEvent(QMouseEvent* event)
{
    Guarded([this] { EndComposition(); });
    KxGraphWidget::mousePressEvent(event);
}

void TKxControlWidget::TakeCommit(TCustomEdit& edit, const QInputMethodEvent& event)
{
    const bool replaces = event.replacementLength() > 0 || event.replacementStart() != 0;
    if (replaces) {
        const int start = QtPlace(edit, edit.CaretPos()) + event.replacementStart();
        edit.Select(CharPlace(edit, start), CharPlace(edit, start + event.replacementLength()));
    } else if (!event.preeditString().isEmpty()) {
        edit.SelectionCleared();
    }
    if (!event.commitString().isEmpty() || event.replacementLength() > 0)
        Root()->DispatchText(event.commitString().toStdString());
}

void TKxControlWidget::inputMethodEvent(QInputMethodEvent* event)
{
    TCustomEdit* const edit = FocusedEdit();
    if (!edit || edit->GetReadOnly())
        return event->ignore();
    Guarded([&] {
        edit->Compose({});
        TakeCommit(*edit, *event);
        for (const QInputMethodEvent::Attribute& one : event->attributes())
            if (one.type == QInputMethodEvent::Selection)
                edit->Select(CharPlace(*edit, one.start), CharPlace(*edit, one.start + one.length));
        edit->Compose(CompositionOf(*event));
    });
    event->accept();
    updateMicroFocus();
    update();
}

QVariant TKxControlWidget::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const TCustomEdit* const edit = FocusedEdit();
    if (query == Qt::ImEnabled)
        return edit && edit->GetEnabled() && !edit->GetReadOnly();
    if (!edit)
        return KxGraphWidget::inputMethodQuery(query);
    const int caret = edit->CaretPos();
    switch (query) {
        case Qt::ImCursorRectangle:
            return FromControl(*edit, edit->CaretRect());
        case Qt::ImAnchorRectangle: {
            TRect place = edit->CaretRect();
            place.Left = edit->GapX(Anchor(*edit));
            place.Right = place.Left + 1;
            return FromControl(*edit, place);
        }
        case Qt::ImInputItemClipRectangle:
            return FromControl(*edit, edit->EditRect());
        case Qt::ImFont:
            return font();
        case Qt::ImSurroundingText:
            return QtText(*edit);
        case Qt::ImCursorPosition:
        case Qt::ImAbsolutePosition:
            return QtPlace(*edit, caret);
        case Qt::ImAnchorPosition:
            return QtPlace(*edit, Anchor(*edit));
        case Qt::ImCurrentSelection:
            return QtText(*edit, edit->SelStart(), edit->SelEnd());
        case Qt::ImTextBeforeCursor:
            return QtText(*edit, 0, caret);
        case Qt::ImTextAfterCursor:
            return QtText(*edit, caret, edit->CharCount());
        case Qt::ImMaximumTextLength:
            return edit->GetMaxLength() > 0 ? QVariant(edit->GetMaxLength()) : QVariant();
        case Qt::ImReadOnly:
            return edit->GetReadOnly();
        default:
            return KxGraphWidget::inputMethodQuery(query);
    }
}

}  // namespace plotkit
