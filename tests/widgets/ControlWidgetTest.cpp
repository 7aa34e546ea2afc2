#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "widgets/KxCaptionEditWidget.h"
#include "widgets/KxColorWidgets.h"
#include "widgets/KxNumberWidgets.h"
#include "widgets/KxPickerWidgets.h"

namespace plotkit {
namespace {

/// A window with the widget and something else that can have the focus.
template <class T>
struct TScene
{
    TScene()
    {
        auto* const layout = new QVBoxLayout(&Form);
        layout->addWidget(Widget);
        layout->addWidget(Other);
        Other->setFocusPolicy(Qt::StrongFocus);
        Widget->OnChanged = [this] { ++Changes; };
        Form.resize(240, 120);
        Form.show();
        Form.activateWindow();
        QApplication::processEvents();
        Widget->setFocus(Qt::TabFocusReason);
    }
    int Taken() { return std::exchange(Changes, 0); }

    QWidget Form;
    T* Widget = new T;
    QWidget* Other = new QWidget;
    int Changes = 0;
};

/// Whether the key was taken.
bool Press(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {})
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text), up(QEvent::KeyRelease, key, modifiers, text);
    const bool taken = QApplication::sendEvent(widget, &down) && down.isAccepted();
    QApplication::sendEvent(widget, &up);
    return taken;
}

void Type(QWidget* widget, const QString& text)
{
    for (const QChar letter : text)
        Press(widget, letter.toUpper().unicode(), letter);
}

void Mouse(QWidget* widget, QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton)
{
    const bool isUp = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, isUp ? Qt::NoButton : button, {});
    QApplication::sendEvent(widget, &event);
}

void Click(QWidget* widget, QPointF at)
{
    Mouse(widget, QEvent::MouseButtonPress, at);
    Mouse(widget, QEvent::MouseButtonRelease, at);
}

TEST(CaptionEditWidget, KeysClipboardAndButtonsMakeACaption)
{
    TScene<TKxCaptionEditWidget> scene;
    TKxCaptionEditWidget* const widget = scene.Widget;
    widget->SetButtonsShown(true);
    widget->SetCaption("x");
    EXPECT_EQ(scene.Taken(), 0);
    Press(widget, Qt::Key_End);
    Press(widget, Qt::Key_B, "\x02", Qt::ControlModifier);
    EXPECT_TRUE(widget->Button(0)->isChecked());
    scene.Taken();
    Type(widget, "yz");
    EXPECT_EQ(scene.Taken(), 2);
    EXPECT_EQ(widget->GetCaption(), "x\\byz");
    Press(widget, Qt::Key_Left, {}, Qt::ShiftModifier);
    widget->Button(5)->click();
    EXPECT_EQ(widget->GetCaption(), "x\\by\\-z");
    Press(widget, Qt::Key_C, "\x03", Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "z");
    Press(widget, Qt::Key_End);
    Press(widget, Qt::Key_V, "\x16", Qt::ControlModifier);
    EXPECT_EQ(widget->ValueText(), "xyzz");
    for (int i = 0; i < 2; ++i)
        Press(widget, Qt::Key_Z, "\x1A", Qt::ControlModifier);
    EXPECT_EQ(widget->GetCaption(), "x\\byz");
    // A double click takes the word.
    const QPointF inside = QPointF(widget->FromControl(widget->Control(), widget->Control().CaretRect()).center());
    Mouse(widget, QEvent::MouseButtonDblClick, inside - QPointF(4, 0));
    EXPECT_EQ(widget->Control().SelectedText(), "xyz");
}

TEST(CaptionEditWidget, InputMethodsComposeAndReplace)
{
    TScene<TKxCaptionEditWidget> scene;
    TKxCaptionEditWidget* const widget = scene.Widget;
    EXPECT_TRUE(widget->inputMethodQuery(Qt::ImEnabled).toBool());
    QInputMethodEvent composing("´", {});
    QApplication::sendEvent(widget, &composing);
    EXPECT_EQ(widget->ValueText(), "");
    QInputMethodEvent composed;
    composed.setCommitString("é𝛼b");
    QApplication::sendEvent(widget, &composed);
    EXPECT_EQ(widget->ValueText(), "é𝛼b");
    EXPECT_EQ(widget->inputMethodQuery(Qt::ImCursorPosition).toInt(), 4);
    QInputMethodEvent replacing;
    replacing.setCommitString("c", -3, 3);
    QApplication::sendEvent(widget, &replacing);
    EXPECT_EQ(widget->ValueText(), "éc");
    EXPECT_EQ(scene.Taken(), 2);
    widget->SetReadOnly(true);
    QApplication::sendEvent(widget, &composed);
    EXPECT_EQ(widget->ValueText(), "éc");
    EXPECT_FALSE(widget->inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST(NumberWidgets, TellEachValueOnceAndTheEndOnce)
{
    TScene<TKxIntegerEditWidget> scene;
    TKxIntegerEditWidget* const widget = scene.Widget;
    int ends = 0;
    widget->OnFinished = [&] { ++ends; };
    widget->SetBounds(0, 100);
    widget->SetValue(7);
    widget->Edit().SelectAll();
    Type(widget, "500");
    EXPECT_EQ(widget->GetValue(), 100);
    EXPECT_EQ(widget->ValueText(), "50");
    EXPECT_EQ(scene.Taken(), 3);
    EXPECT_EQ(ends, 0);
    scene.Other->setFocus();
    EXPECT_EQ(widget->ValueText(), "100");
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(scene.Taken(), 0);
    widget->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(widget->Edit().SelectedText(), "100");
    // Enter and Escape are the dialog's.
    EXPECT_FALSE(Press(widget, Qt::Key_Return, "\r"));
    EXPECT_FALSE(Press(widget, Qt::Key_Escape, "\x1B"));
    EXPECT_TRUE(Press(widget, Qt::Key_2, "2"));
    EXPECT_FALSE(Press(widget, Qt::Key_Return, "\r"));
    EXPECT_EQ(ends, 2);
}

TEST(NumberWidgets, SpinByMouseKeysAndWheel)
{
    TScene<TKxSpinIntegerEditWidget> scene;
    TKxSpinIntegerEditWidget* const widget = scene.Widget;
    widget->SetBounds(0, 3);
    const QPointF up(widget->width() - 6, widget->height() / 4.0), down(up.x(), widget->height() * 0.75);
    const auto wheel = [&](int delta) {
        QWheelEvent event({10, 10}, {}, {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
        return event.isAccepted();
    };
    for (int i = 0; i < 5; ++i)
        Click(widget, up);
    EXPECT_EQ(widget->GetValue(), 3);
    EXPECT_EQ(scene.Taken(), 3);
    Click(widget, down);
    Press(widget, Qt::Key_Down);
    EXPECT_EQ(widget->GetValue(), 1);
    EXPECT_TRUE(wheel(120));
    EXPECT_EQ(widget->GetValue(), 2);
    scene.Other->setFocus();
    EXPECT_FALSE(wheel(120));
    EXPECT_EQ(widget->GetValue(), 2);
}

TEST(PickerWidgets, TheListDropsDownAndTakesKeysAndMouse)
{
    TScene<TKxLineStylesComboWidget> scene;
    TKxLineStylesComboWidget* const widget = scene.Widget;
    Click(widget, {10, 10});
    ASSERT_TRUE(widget->Popup() && widget->Popup()->isVisible());
    Press(widget->Popup(), Qt::Key_Down);
    Press(widget->Popup(), Qt::Key_Escape);
    EXPECT_FALSE(widget->Popup());
    EXPECT_EQ(scene.Taken(), 0);
    Press(widget, Qt::Key_Space, " ");
    ASSERT_TRUE(widget->Popup());
    const double row = widget->Popup()->height() / 5.0;
    Mouse(widget->Popup(), QEvent::MouseMove, {20, 3.5 * row}, Qt::NoButton);
    Click(widget->Popup(), {20, 3.5 * row});
    EXPECT_EQ(widget->Control().GetPenStyle(), psDashDot);
    EXPECT_EQ(scene.Taken(), 1);
    Press(widget, Qt::Key_Up);
    EXPECT_EQ(widget->Control().GetPenStyle(), psDot);
    EXPECT_EQ(scene.Taken(), 1);
    // A popup that its widget takes along.
    Press(widget, Qt::Key_Space, " ");
    delete std::exchange(scene.Widget, nullptr);
}

TEST(ColorWidgets, TheDialogGivesItsColour)
{
    TScene<TKxColorButtonWidget> scene;
    TKxColorButtonWidget* const widget = scene.Widget;
    const auto open = [&] {
        Click(widget, QPointF(widget->rect().center()));
        return widget->Dialog() ? widget->Dialog()->findChild<QWidget*>() : nullptr;
    };
    QWidget* view = open();
    ASSERT_TRUE(view);
    Type(view, "#0A0");
    Press(view, Qt::Key_Return, "\r");
    EXPECT_FALSE(widget->Dialog());
    EXPECT_EQ(widget->GetSelected(), RgbColor(0, 0xAA, 0));
    EXPECT_EQ(scene.Taken(), 1);
    view = open();
    ASSERT_TRUE(view);
    Type(view, "#123456");
    widget->Dialog()->reject();
    EXPECT_FALSE(widget->Dialog());
    EXPECT_EQ(widget->GetSelected(), RgbColor(0, 0xAA, 0));
    EXPECT_EQ(scene.Taken(), 0);
    open();
    delete std::exchange(scene.Widget, nullptr);
}

TEST(ControlWidgets, AssistiveProgramsHearNameAndValue)
{
    TScene<TKxSpinIntegerEditWidget> spin;
    TScene<TKxBrushStylesListWidget> list;
    spin.Widget->setAccessibleName("Order");
    spin.Widget->SetValue(3);
    list.Widget->Control().SetBrushStyle(bsHorizontal);
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(spin.Widget);
    ASSERT_TRUE(access);
    EXPECT_EQ(access->role(), QAccessible::SpinBox);
    EXPECT_EQ(access->text(QAccessible::Name), "Order");
    EXPECT_EQ(access->text(QAccessible::Value), "3");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(list.Widget)->text(QAccessible::Value), "Horizontal");
}

TEST(ControlWidgets, FollowPaletteAndEnabling)
{
    TScene<TKxFloatEditWidget> scene;
    scene.Other->setFocus();
    const QPalette before = QApplication::palette();
    const auto ground = [&] {
        const QImage shown = scene.Widget->grab().toImage();
        return shown.pixelColor(shown.width() - 20, shown.height() / 2);
    };
    for (const QColor& base : {QColor(30, 31, 32), QColor(250, 251, 252)}) {
        QPalette palette = before;
        palette.setColor(QPalette::Base, base);
        QApplication::setPalette(palette);
        QApplication::processEvents();
        EXPECT_EQ(ground().name(), base.name());
    }
    QApplication::setPalette(before);
    scene.Widget->setEnabled(false);
    EXPECT_EQ(ground().name(), before.color(QPalette::Window).name());
    Type(scene.Widget, "5");
    EXPECT_EQ(scene.Widget->ValueText(), "0");
}

}  // namespace
}  // namespace plotkit
