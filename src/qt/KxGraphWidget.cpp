#include "qt/KxGraphWidget.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>
#include <QWheelEvent>
#include <cmath>

#include "qt/KxQtHost.h"
#include "qt/KxQtKeys.h"

namespace plotkit {

/// Hears of the tree's wishes and of the root's end.
class KxGraphWidget::TSite : public TControlSite, public TComponent
{
public:
    explicit TSite(KxGraphWidget& widget) : TComponent(nullptr), FWidget(widget) {}
    ~TSite() override { BeginDestroy(); }

    void TreeInvalidated() override { FWidget.PictureInvalidated(); }
    void TreePartsInvalidated() override
    {
        FWidget.FShown.PartsChanged();
        FWidget.AskForParts();
    }
    void OverlayChanged() override
    {
        FWidget.FShown.OverlayChanged();
        FWidget.AskForParts();
    }
    void PointerChanged(TControl* under) override { FWidget.ShowPointerOf(under); }

protected:
    void Notification(TComponent* component, TOperation operation) override
    {
        if (operation == opRemove && component == FWidget.FRoot) {
            FWidget.FRoot = nullptr;
            FWidget.ShowPointerOf(nullptr);
            FWidget.PictureInvalidated();
        }
        TComponent::Notification(component, operation);
    }

private:
    KxGraphWidget& FWidget;
};

KxGraphWidget::KxGraphWidget(TWindowControl* root, QWidget* parent) : QWidget(parent)
{
    Attach(root);
}

KxGraphWidget::KxGraphWidget(std::unique_ptr<TWindowControl> root, QWidget* parent)
    : QWidget(parent), FOwnedRoot(std::move(root))
{
    Attach(FOwnedRoot.get());
}

KxGraphWidget::KxGraphWidget(QWidget* parent) : KxGraphWidget(std::make_unique<TWindowControl>(nullptr), parent) {}

KxGraphWidget::~KxGraphWidget()
{
    if (!FRoot)
        return;
    FSite->StopWatching(FRoot);
    if (FRoot->Site() == FSite.get())
        FRoot->SetSite(nullptr);
}

void KxGraphWidget::Attach(TWindowControl* root)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    FSite = std::make_unique<TSite>(*this);
    FRoot = root;
    if (!FRoot)
        return;
    FSite->WatchFor(FRoot);
    Guarded([this] { FRoot->SetSite(FSite.get()); });
}

void KxGraphWidget::Guarded(const std::function<void()>& action)
{
    // Qt's event loop lets no exception through.
    try {
        action();
    } catch (const std::exception& error) {
        Host().HandleError(error);
    }
}

void KxGraphWidget::FitRoot()
{
    const double ratio = devicePixelRatioF();
    const QSize size = RootRect().size();
    const int wide = static_cast<int>(std::lround(size.width() * ratio));
    const int high = static_cast<int>(std::lround(size.height() * ratio));
    if (!FRoot || (FRoot->OwnPixelScale() == ratio && FRoot->GetWidth() == wide && FRoot->GetHeight() == high))
        return;
    Guarded([&] {
        FRoot->SetPixelScale(ratio);
        FRoot->SetBounds(FRoot->GetLeft(), FRoot->GetTop(), wide, high);
    });
}

void KxGraphWidget::BringUpToDate()
{
    FPainting = true;
    FitRoot();
    Guarded([this] {
        if (FRoot)
            FShown.Update(*FRoot);
    });
    FPainting = false;
}

QImage KxGraphWidget::Shown()
{
    BringUpToDate();
    return FRoot ? FShown.Image() : QImage();
}

void KxGraphWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    DrawRoot(painter);
}

void KxGraphWidget::DrawRoot(QPainter& painter)
{
    const bool isWhole = std::exchange(FAsksForPaint, false);
    BringUpToDate();
    const QRegion changed = FShown.TakeChanged();
    const QImage& shown = FShown.Image();
    if (!FRoot || shown.isNull()) {
        painter.fillRect(RootRect(), palette().window());
        return;
    }
    // A view of the same pixels: an image that is given another ratio copies them when somebody else has it.
    QImage view(const_cast<uchar*>(shown.constBits()), shown.width(), shown.height(), shown.bytesPerLine(),
                shown.format());
    view.setDevicePixelRatio(devicePixelRatioF());
    painter.drawImage(RootRect().topLeft(), view);
    // What came since the event was asked for may lie beside it.
    if (!isWhole)
        for (const QRect& pixels : changed)
            update(WidgetRect(pixels));
}

QRect KxGraphWidget::WidgetRect(const QRect& pixels) const
{
    const double ratio = devicePixelRatioF();
    const QRectF box(pixels.x() / ratio, pixels.y() / ratio, pixels.width() / ratio, pixels.height() / ratio);
    return box.toAlignedRect().translated(RootRect().topLeft());
}

void KxGraphWidget::resizeEvent(QResizeEvent*)
{
    FitRoot();
}

void KxGraphWidget::PictureInvalidated()
{
    FShown.PictureChanged();
    AskForPaint();
}

void KxGraphWidget::AskForPaint()
{
    // Once for all that changes until it comes: live data call here with every value.
    if (FPainting || FAsksForPaint)
        return;
    FAsksForPaint = true;
    update();
}

void KxGraphWidget::AskForParts()
{
    if (FPainting || FAsksForPaint || FAsksForParts)
        return;
    FAsksForParts = true;
    // Which parts is known when all that is under way has come.
    QMetaObject::invokeMethod(
        this, [this] { UpdateParts(); }, Qt::QueuedConnection);
}

void KxGraphWidget::UpdateParts()
{
    FAsksForParts = false;
    if (FAsksForPaint || !isVisible())
        return;
    BringUpToDate();
    for (const QRect& pixels : FShown.TakeChanged())
        update(WidgetRect(pixels));
}

void KxGraphWidget::ShowPointerOf(TControl* control)
{
    if (control)
        setCursor(CursorShapeOf(control->Cursor()));
    else
        unsetCursor();
    const TControl* hinting = control;
    while (hinting && hinting->GetHint().empty())
        hinting = hinting->Parent();
    const bool shows = hinting && hinting->GetShowHint();
    const QString hint = shows ? QString::fromStdString(hinting->GetHint()) : QString();
    setToolTip(Qt::mightBeRichText(hint) ? hint.toHtmlEscaped() : hint);
}

TPoint KxGraphWidget::RootPixel(QPointF at) const
{
    const QPointF inside = (at - RootRect().topLeft()) * devicePixelRatioF();
    return {static_cast<int>(std::floor(inside.x())), static_cast<int>(std::floor(inside.y()))};
}

void KxGraphWidget::Serve(QEvent* event, const std::function<void(TWindowControl&)>& action)
{
    event->accept();
    if (FRoot)
        Guarded([&] { action(*FRoot); });
}

void KxGraphWidget::Press(QMouseEvent* event, bool isDouble)
{
    const auto button = MouseButtonOf(event->button());
    if (!button)
        return event->ignore();
    ReleaseLost(event);
    FHeld |= event->button();
    const TPoint at = RootPixel(event->position());
    TShiftState shift = ShiftStateOf(event->modifiers(), event->buttons());
    shift.Double = isDouble;
    Serve(event, [&](TWindowControl& root) { root.DispatchMouseDown(*button, shift, at.X, at.Y); });
}

void KxGraphWidget::Release(QMouseEvent* event, Qt::MouseButton button)
{
    const auto released = MouseButtonOf(button);
    if (!released)
        return event->ignore();
    FHeld.setFlag(button, false);
    const TPoint at = RootPixel(event->position());
    const TShiftState shift = ShiftStateOf(event->modifiers(), event->buttons());
    Serve(event, [&](TWindowControl& root) { root.DispatchMouseUp(*released, shift, at.X, at.Y); });
}

/// A dialog or menu that a press opens gets the release in the widget's place.
void KxGraphWidget::ReleaseLost(QMouseEvent* event)
{
    const Qt::MouseButtons held = event->buttons().setFlag(event->button(), false);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        if (FHeld.testFlag(button) && !held.testFlag(button))
            Release(event, button);
}

void KxGraphWidget::mousePressEvent(QMouseEvent* event)
{
    Press(event, false);
}

void KxGraphWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    Press(event, true);
}

void KxGraphWidget::mouseMoveEvent(QMouseEvent* event)
{
    ReleaseLost(event);
    const TPoint at = RootPixel(event->position());
    const TShiftState shift = ShiftStateOf(event->modifiers(), event->buttons());
    Serve(event, [&](TWindowControl& root) { root.DispatchMouseMove(shift, at.X, at.Y); });
}

void KxGraphWidget::mouseReleaseEvent(QMouseEvent* event)
{
    Release(event, event->button());
}

void KxGraphWidget::wheelEvent(QWheelEvent* event)
{
    const TPoint at = RootPixel(event->position());
    // With Alt held down a wheel turns sideways.
    const QPoint turned = event->angleDelta();
    const int delta = turned.y() != 0 ? turned.y() : turned.x();
    // Touch pads also tell of a turn's begin and end.
    if (delta == 0)
        return event->ignore();
    const TShiftState shift = ShiftStateOf(event->modifiers(), event->buttons());
    Serve(event, [&](TWindowControl& root) { root.DispatchMouseWheel(shift, delta, at.X, at.Y); });
}

void KxGraphWidget::contextMenuEvent(QContextMenuEvent* event)
{
    const TPoint at = RootPixel(event->pos());
    Serve(event, [&](TWindowControl& root) { root.DispatchContextPopup(at.X, at.Y); });
}

void KxGraphWidget::keyPressEvent(QKeyEvent* event)
{
    const auto key = KeyOf(*event);
    if (!key)
        return event->ignore();
    // What no control of the tree has the focus for may be meant for the dialog around it.
    const bool isTaken = FRoot && FRoot->Focused();
    Serve(event, [&](TWindowControl& root) { root.DispatchKeyDown(*key, ShiftStateOf(event->modifiers(), {})); });
    event->setAccepted(isTaken);
}

void KxGraphWidget::keyReleaseEvent(QKeyEvent* event)
{
    const auto key = KeyOf(*event);
    if (!key)
        return event->ignore();
    Serve(event, [&](TWindowControl& root) { root.DispatchKeyUp(*key, ShiftStateOf(event->modifiers(), {})); });
}

}  // namespace plotkit
