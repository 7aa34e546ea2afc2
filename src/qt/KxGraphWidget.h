// The job of KxGraphWidget is to show a control tree in a Qt window and to serve it with mouse and keys.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "qt/KxShownPicture.h"

namespace plotkit {

/// Carries the tree of one root, which it sizes to `RootRect` in device pixels. The tree is painted into an image of
/// exactly these pixels when something in it changed. Where only parts did (points came at the end of a series, the
/// overlay is another), these are painted and shown alone. Errors raised by painting or by the tree's handlers go to
/// Host().HandleError.
class KxGraphWidget : public QWidget
{
public:
    /// The root is not owned; the widget shows nothing once it is gone.
    explicit KxGraphWidget(TWindowControl* root, QWidget* parent = nullptr);
    explicit KxGraphWidget(std::unique_ptr<TWindowControl> root, QWidget* parent = nullptr);
    /// With an empty root of its own.
    explicit KxGraphWidget(QWidget* parent = nullptr);
    ~KxGraphWidget() override;

    /// nullptr when a root that is not owned is gone.
    TWindowControl* Root() const { return FRoot; }
    /// What the window shows, overlay included; painted now when something changed.
    QImage Shown();

    QSize sizeHint() const override { return {600, 400}; }
    QSize minimumSizeHint() const override { return {40, 30}; }

protected:
    /// Where the root stands in the widget; it may reach beyond it.
    virtual QRect RootRect() const { return rect(); }
    /// Draws what `Shown` tells, where the root stands.
    void DrawRoot(QPainter& painter);
    void FitRoot();
    TPoint RootPixel(QPointF at) const;
    /// Errors go to Host().HandleError.
    void Guarded(const std::function<void()>& action);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    class TSite;

    void Attach(TWindowControl* root);
    void Serve(QEvent* event, const std::function<void(TWindowControl&)>& action);
    void Press(QMouseEvent* event, bool isDouble);
    void Release(QMouseEvent* event, Qt::MouseButton button);
    void ReleaseLost(QMouseEvent* event);
    void BringUpToDate();
    void PictureInvalidated();
    void AskForPaint();
    void AskForParts();
    void UpdateParts();
    QRect WidgetRect(const QRect& pixels) const;
    void ShowPointerOf(TControl* control);

    std::unique_ptr<TSite> FSite;
    std::unique_ptr<TWindowControl> FOwnedRoot;
    TWindowControl* FRoot = nullptr;
    TKxShownPicture FShown;
    Qt::MouseButtons FHeld;  ///< whose presses the tree has heard of, and not yet the releases
    bool FPainting = false;
    bool FAsksForPaint = false;
    bool FAsksForParts = false;
};

}  // namespace plotkit
