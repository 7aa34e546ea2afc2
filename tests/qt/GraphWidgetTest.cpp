#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>
#include <sstream>
#include <stdexcept>

#include "PixelSheet.h"
#include "host/Panel.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxQtHost.h"

namespace plotkit {

namespace {

/// Writes down what it hears.
class TProbe : public TGraphicControl
{
public:
    using TGraphicControl::TGraphicControl;

    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override { Note("down", button, shift, x, y); }
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override { Note("up", button, shift, x, y); }
    void MouseMove(TShiftState shift, int x, int y) override { Note("move", 0, shift, x, y); }
    void MouseWheel(TShiftState shift, int delta, int x, int y) override { Note("wheel", delta, shift, x, y); }
    void ContextPopup(TPoint at) override { Note("popup", 0, {}, at.X, at.Y); }
    void Click() override { Heard += "click;"; }
    void DblClick() override { Heard += "double;"; }

    int Paints = 0;
    bool Fails = false;
    std::string Heard;

protected:
    void Paint() override
    {
        ++Paints;
        if (Fails)
            throw std::runtime_error("no ink");
        Canvas().Brush.SetColor(clRed);
        Canvas().FillRect(ClientRect());
    }

private:
    /// Positions in 1/96 inches.
    void Note(const char* what, int with, TShiftState shift, int x, int y)
    {
        std::ostringstream out;
        out << what << ' ' << with << ' ' << std::lround(x / PixelScale()) << ',' << std::lround(y / PixelScale())
            << (shift.Shift ? "S" : "") << (shift.Ctrl ? "C" : "") << (shift.Left ? "l" : "")
            << (shift.Right ? "r" : "") << (shift.Double ? "d" : "") << ';';
        Heard += out.str();
    }
};

/// A panel with a probe at (20, 10), shown in a widget of 200 by 100.
struct TScene
{
    TScene() : Probe(new TProbe(&Root)), Widget(&Root)
    {
        Host.OnError = [this](const std::exception& error) { Errors.emplace_back(error.what()); };
        Widget.resize(200, 100);
        Ratio = Widget.devicePixelRatioF();
        Root.SetPixelScale(Ratio);
        Probe->SetParent(&Root);
        Probe->SetBounds(At(20), At(10), At(50), At(30));
        Widget.Shown();
        Probe->Paints = 0;
    }
    int At(int pixel) const { return static_cast<int>(std::lround(pixel * Ratio)); }
    void Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::NoButton, Qt::MouseButtons held = {},
               Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(type, at, Widget.mapToGlobal(at), button, held, modifiers);
        QApplication::sendEvent(&Widget, &event);
    }
    void Wheel(int delta)
    {
        QWheelEvent event({30, 20}, {}, {}, {0, delta}, {}, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Widget, &event);
    }
    std::string Heard() { return std::exchange(Probe->Heard, {}); }

    std::vector<std::string> Errors;
    TQtHost Host;
    THostGuard Guard{Host};
    TPanel Root{nullptr};
    TProbe* Probe;
    KxGraphWidget Widget;
    double Ratio = 1;
};

}  // namespace

TEST(GraphWidget, HandsMouseEventsToTheControlUnderThem)
{
    TScene scene;
    scene.Mouse(QEvent::MouseMove, {30, 20});
    scene.Mouse(QEvent::MouseButtonPress, {30, 20}, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
    scene.Mouse(QEvent::MouseMove, {10, 4}, Qt::NoButton, Qt::LeftButton);
    scene.Mouse(QEvent::MouseButtonRelease, {32, 22}, Qt::LeftButton, {}, Qt::ControlModifier);
    EXPECT_EQ(scene.Heard(), "move 0 10,10;down 0 10,10Sl;move 0 -10,-6l;click;up 0 12,12C;");
    scene.Mouse(QEvent::MouseButtonDblClick, {30, 20}, Qt::LeftButton, Qt::LeftButton);
    scene.Mouse(QEvent::MouseButtonRelease, {30, 20}, Qt::LeftButton);
    EXPECT_EQ(scene.Heard(), "double;down 0 10,10ld;up 0 10,10;");
    scene.Wheel(-120);
    scene.Wheel(0);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, {30, 20}, {});
    QApplication::sendEvent(&scene.Widget, &menu);
    EXPECT_EQ(scene.Heard(), "wheel -120 10,10C;popup 0 10,10;");

    scene.Mouse(QEvent::MouseButtonPress, {30, 20}, Qt::RightButton, Qt::RightButton);
    scene.Mouse(QEvent::MouseMove, {5, 5});
    scene.Mouse(QEvent::MouseMove, {5, 5});
    EXPECT_EQ(scene.Heard(), "down 1 10,10r;up 1 -15,-5;") << "the release went to a menu";
}

TEST(GraphWidget, HandsKeysToTheFocusedControl)
{
    TScene scene;
    std::vector<int> keys;
    scene.Root.OnKeyDown = [&](int key, TShiftState) { keys.push_back(key); };
    const auto press = [&](int key, const QString& text, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&scene.Widget, &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(press(Qt::Key_Escape, QStringLiteral("\x1B"))) << "left to a dialog while nothing has the focus";
    scene.Root.SetFocus();
    EXPECT_TRUE(press(Qt::Key_Left, {}));
    press(Qt::Key_C, QStringLiteral("\x03"), Qt::ControlModifier);
    press(0, QStringLiteral("ä"));
    press(Qt::Key_Enter, QStringLiteral("\r"));
    EXPECT_FALSE(press(Qt::Key_F5, {}));
    EXPECT_EQ(keys, (std::vector<int>{kyEscape, kyLeft, 'C', 0xE4, kyEnter}));
}

TEST(GraphWidget, FollowsItsSizeAndPaintsOncePerChange)
{
    TScene scene;
    scene.Widget.Shown();
    EXPECT_EQ(scene.Probe->Paints, 0) << "an unchanged tree is not painted again";
    scene.Widget.resize(321, 123);
    for (int i = 0; i < 3; ++i)
        scene.Probe->Invalidate();
    const QImage grabbed = scene.Widget.grab().toImage();
    EXPECT_EQ(scene.Probe->Paints, 1);
    EXPECT_EQ(scene.Root.Bounds().Width(), scene.At(321));
    EXPECT_EQ(grabbed.size(), QSize(scene.At(321), scene.At(123)));
    EXPECT_EQ(grabbed.pixel(scene.At(30), scene.At(20)), Red);
}

TEST(GraphWidget, OverlayDrawnTwiceLeavesThePicture)
{
    TScene scene;
    const QImage before = scene.Widget.Shown().copy();
    const auto shownWith = [&](int right) {
        TCanvas& canvas = scene.Root.Canvas();
        canvas.FocusRect({5, 5, right, 60});
        canvas.Pen.Mode = dmXor;
        canvas.Pen.Color = clWhite;
        canvas.MoveTo(0, 0);
        canvas.LineTo(right, 70);
        return scene.Widget.Shown().copy();
    };
    const QImage first = shownWith(120);
    EXPECT_FALSE(first == before);
    EXPECT_TRUE(shownWith(120) == before);
    EXPECT_TRUE(shownWith(120) == first);
    EXPECT_EQ(scene.Probe->Paints, 0) << "only the overlay changed";
    scene.Probe->Invalidate();
    EXPECT_TRUE(scene.Widget.Shown() == first) << "a new picture keeps the overlay";
}

TEST(GraphWidget, HandsErrorsOnAndPaintsOn)
{
    TScene scene;
    scene.Probe->Fails = true;
    for (int i = 0; i < 3; ++i) {
        scene.Probe->Invalidate();
        EXPECT_FALSE(scene.Widget.Shown().isNull());
    }
    scene.Root.OnMouseDown = [](TMouseButton, TShiftState, int, int) { throw std::runtime_error("no hand"); };
    scene.Mouse(QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(scene.Errors, (std::vector<std::string>{"no ink", "no hand"}));
}

TEST(GraphWidget, ShowsCursorAndHint)
{
    TScene scene;
    scene.Root.SetCursor(crCross);
    scene.Root.SetHint("<b> is no markup");
    scene.Root.SetShowHint(true);
    scene.Mouse(QEvent::MouseMove, {5, 5});
    EXPECT_EQ(scene.Widget.cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(scene.Widget.toolTip(), QStringLiteral("&lt;b&gt; is no markup"));
    scene.Probe->SetHint("a probe");
    scene.Mouse(QEvent::MouseMove, {30, 20});
    EXPECT_EQ(scene.Widget.toolTip(), QString()) << "a control that does not show its hint";
    scene.Probe->SetShowHint(true);
    scene.Probe->SetCursor(crHand);
    EXPECT_EQ(scene.Widget.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(scene.Widget.toolTip(), QStringLiteral("a probe"));
}

TEST(GraphWidget, OutlivesItsRootAndIsOutlivedByIt)
{
    auto root = std::make_unique<TPanel>(nullptr);
    auto widget = std::make_unique<KxGraphWidget>(root.get());
    widget.reset();
    EXPECT_EQ(root->Site(), nullptr);
    root->Invalidate();
    widget = std::make_unique<KxGraphWidget>(root.get());
    EXPECT_FALSE(widget->Shown().isNull());
    root.reset();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, {5, 5}, {});
    QApplication::sendEvent(widget.get(), &menu);
    EXPECT_TRUE(widget->Shown().isNull() && !widget->grab().isNull());
    KxGraphWidget own, given(std::make_unique<TPanel>(nullptr));
    EXPECT_FALSE(own.Shown().isNull() || given.Shown().isNull());
}

}  // namespace plotkit
