#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "widgets/KxCaptionEditWidget.h"
#include "widgets/KxColorWidgets.h"
#include "widgets/KxControlAccess.h"
#include "widgets/KxDropWidget.h"
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

TEST(CaptionEditWidget, WhatIsComposedPushesTheRestAside)
{
    TScene<TKxCaptionEditWidget> scene;
    TKxCaptionEditWidget* const widget = scene.Widget;
    TKxCaptionEdit& edit = widget->Control();
    widget->SetCaption("abcd");
    edit.Select(2, 2);
    const int third = edit.GapX(3);
    const QRect caret = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    QInputMethodEvent composing("日本", {{QInputMethodEvent::Cursor, 1, 1, {}}});
    QApplication::sendEvent(widget, &composing);
    const int pushed = edit.GapX(3) - third;
    EXPECT_GT(pushed, 10);
    const QRect inside = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_NEAR((inside.left() - caret.left()) * widget->devicePixelRatioF(), pushed / 2.0, 2);
    EXPECT_EQ(edit.PointToCaretPos(edit.GapX(3)), 3);
    EXPECT_EQ(edit.PointToCaretPos(edit.GapX(2) + pushed / 2), 2);
    EXPECT_EQ(widget->inputMethodQuery(Qt::ImSurroundingText).toString(), "abcd");
    EXPECT_EQ(widget->inputMethodQuery(Qt::ImTextAfterCursor).toString(), "cd");
    QInputMethodEvent composed;
    composed.setCommitString("日本");
    QApplication::sendEvent(widget, &composed);
    EXPECT_EQ(widget->ValueText(), "ab日本cd");
    EXPECT_EQ(edit.Composition(), TComposition{});
    EXPECT_EQ(scene.Taken(), 1);
    QApplication::sendEvent(widget, &composing);
    scene.Other->setFocus();
    EXPECT_EQ(edit.Composition(), TComposition{});
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

/// What assistive programs are told.
struct TTold
{
    TTold()
    {
        Lines.clear();
        SetAccessListener(&Take);
    }
    ~TTold() { SetAccessListener(nullptr); }
    static void Take(QAccessibleEvent& event)
    {
        if (event.type() == QAccessible::TextInserted) {
            auto* const one = static_cast<QAccessibleTextInsertEvent*>(&event);
            Lines << QString("+%1 %2").arg(one->changePosition()).arg(one->textInserted());
        } else if (event.type() == QAccessible::TextRemoved) {
            auto* const one = static_cast<QAccessibleTextRemoveEvent*>(&event);
            Lines << QString("-%1 %2").arg(one->changePosition()).arg(one->textRemoved());
        } else if (event.type() == QAccessible::TextUpdated) {
            auto* const one = static_cast<QAccessibleTextUpdateEvent*>(&event);
            Lines << QString("=%1 %2>%3").arg(one->changePosition()).arg(one->textRemoved(), one->textInserted());
        } else if (event.type() == QAccessible::TextCaretMoved) {
            Lines << QString("|%1").arg(static_cast<QAccessibleTextCursorEvent*>(&event)->cursorPosition());
        } else if (event.type() == QAccessible::TextSelectionChanged) {
            auto* const one = static_cast<QAccessibleTextSelectionEvent*>(&event);
            Lines << QString("[%1 %2").arg(one->selectionStart()).arg(one->selectionEnd());
        } else if (event.type() == QAccessible::ValueChanged) {
            Lines << "v" + static_cast<QAccessibleValueChangeEvent*>(&event)->value().toString();
        } else if (event.type() == QAccessible::Selection) {
            Lines << "i" + event.accessibleInterface()->text(QAccessible::Name);
        }
    }
    QString Taken() { return std::exchange(Lines, {}).join(' '); }

    static inline QStringList Lines;
};

QAccessibleInterface& AccessOf(QWidget* widget)
{
    return *QAccessible::queryAccessibleInterface(widget);
}

TEST(WidgetAccess, TextCaretAndSelectionAreToldOnEveryRoute)
{
    TTold told;
    TScene<TKxCaptionEditWidget> scene;
    TKxCaptionEditWidget* const widget = scene.Widget;
    told.Taken();
    Type(widget, "ab");
    EXPECT_EQ(told.Taken(), "+0 a |1 +1 b |2");
    widget->SetCaption("x𝛼\\by");
    EXPECT_EQ(told.Taken(), "=0 ab>x𝛼y");
    Press(widget, Qt::Key_Home, {}, Qt::ShiftModifier);
    EXPECT_EQ(told.Taken(), "[0 3 |0");
    QAccessibleInterface& access = AccessOf(widget);
    QAccessibleTextInterface* const text = access.textInterface();
    ASSERT_TRUE(text && access.editableTextInterface());
    EXPECT_EQ(text->characterCount(), 4);
    EXPECT_EQ(text->text(1, 4), "𝛼y");
    int from = 0, to = 0;
    EXPECT_EQ(text->attributes(3, &from, &to), "font-weight:bold;");
    EXPECT_EQ(std::pair(from, to), std::pair(3, 4));
    const QRect place = text->characterRect(1);
    EXPECT_EQ(text->offsetAtPoint(place.center()), 1);
    text->setCursorPosition(3);
    EXPECT_EQ(widget->Control().CaretPos(), 2);
    access.editableTextInterface()->replaceText(0, 3, "q");
    EXPECT_EQ(widget->GetCaption(), "q\\by");
    EXPECT_EQ(scene.Taken(), 3);
    widget->SetReadOnly(true);
    access.editableTextInterface()->deleteText(0, 1);
    EXPECT_EQ(widget->ValueText(), "qy");
    EXPECT_TRUE(access.state().readOnly);
}

TEST(WidgetAccess, NumbersHaveValueBoundsAndSteps)
{
    TTold told;
    TScene<TKxSpinIntegerEditWidget> scene;
    TKxSpinIntegerEditWidget* const widget = scene.Widget;
    widget->setAccessibleName("Order");
    widget->SetBounds(1, 9);
    widget->Control().SetIncrement(2);
    QAccessibleInterface& access = AccessOf(widget);
    EXPECT_EQ(access.role(), QAccessible::SpinBox);
    EXPECT_EQ(access.text(QAccessible::Name), "Order");
    QAccessibleValueInterface* const value = access.valueInterface();
    ASSERT_TRUE(value);
    EXPECT_EQ(value->minimumValue().toInt(), 1);
    EXPECT_EQ(value->maximumValue().toInt(), 9);
    EXPECT_EQ(value->minimumStepSize().toInt(), 2);
    told.Taken();
    value->setCurrentValue(3);
    EXPECT_EQ(told.Taken(), "+0 3 v3");
    EXPECT_EQ(scene.Taken(), 1);
    access.actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(value->currentValue().toInt(), 5);
    widget->SetValue(7);
    EXPECT_EQ(told.Lines.last(), "v7");
    TScene<TKxFloatEditWidget> real;
    real.Widget->SetBounds(-0.5, 0.5);
    EXPECT_EQ(AccessOf(real.Widget).valueInterface()->minimumValue().toDouble(), -0.5);
}

TEST(WidgetAccess, ItemsCanBeWalkedAndChosen)
{
    TTold told;
    TScene<TKxLineStylesComboWidget> box;
    QAccessibleInterface& access = AccessOf(box.Widget);
    EXPECT_EQ(access.role(), QAccessible::ComboBox);
    QAccessibleInterface* const list = access.child(0);
    ASSERT_TRUE(list && list->childCount() == 5);
    EXPECT_EQ(list->parent(), &access);
    QAccessibleInterface* const item = list->child(3);
    EXPECT_EQ(item->text(QAccessible::Name), "Dash dot");
    EXPECT_EQ(list->indexOfChild(item), 3);
    EXPECT_FALSE(item->state().selected);
    told.Taken();
    item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(item->state().selected);
    EXPECT_EQ(box.Widget->Control().GetPenStyle(), psDashDot);
    EXPECT_EQ(box.Taken(), 1);
    EXPECT_EQ(told.Taken(), "vDash dot");
    access.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    ASSERT_TRUE(box.Widget->Popup());
    EXPECT_TRUE(access.state().expanded);
    Press(box.Widget->Popup(), Qt::Key_Up);
    EXPECT_EQ(told.Lines.last(), "iDot");
    EXPECT_EQ(list->childAt(item->rect().center().x(), item->rect().center().y()), item);

    TScene<TKxBrushStylesListWidget> scene;
    scene.Widget->Control().SetBrushStyle(bsHorizontal);
    EXPECT_EQ(AccessOf(scene.Widget).text(QAccessible::Value), "Horizontal");
    EXPECT_EQ(AccessOf(scene.Widget).child(0)->text(QAccessible::Name), "Solid");
}

TEST(WidgetAccess, TheColourFormHasNamedParts)
{
    TScene<TKxColorButtonWidget> scene;
    scene.Widget->SetSelected(clWhite);
    AccessOf(scene.Widget).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(scene.Widget->Dialog());
    QAccessibleInterface& form = AccessOf(scene.Widget->Dialog()->findChild<QWidget*>());
    QStringList names;
    for (int i = 0; i < form.childCount(); ++i)
        names << form.child(i)->text(QAccessible::Name);
    EXPECT_EQ(names.join(';').toStdString(),
              "Told apart by all eyes;Plain: White;Recent;Of the desktop;Red;Green;Blue;Colour;OK;Cancel");
    ASSERT_TRUE(form.child(5)->valueInterface());
    form.child(5)->valueInterface()->setCurrentValue(0);
    EXPECT_EQ(form.child(7)->textInterface()->text(0, 20), "Pure magenta");
    form.child(8)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(scene.Widget->GetSelected(), RgbColor(0xFF, 0, 0xFF));
    EXPECT_EQ(AccessOf(scene.Widget).text(QAccessible::Description), "Pure magenta");
}

TEST(EditWidgets, TakeDroppedTextAndMoveTheirOwn)
{
    TScene<TKxCaptionEditWidget> scene;
    TKxCaptionEditWidget* const widget = scene.Widget;
    widget->SetCaption("ab\\bcd");
    QMimeData data;
    data.setText("X\\b");
    const auto at = [&](int index) {
        TRect gap = widget->Control().CaretRect();
        gap.Left = gap.Right = widget->Control().GapX(index);
        return widget->FromControl(widget->Control(), gap).center();
    };
    QDragEnterEvent enter(at(1), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(at(1), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &drop);
    EXPECT_EQ(widget->ValueText(), "aX\\bbcd");
    EXPECT_EQ(widget->Control().SelectedText(), "X\\b");
    EXPECT_EQ(scene.Taken(), 1);
    widget->SetCaption("ab\\bcd\\bef");
    widget->Control().Select(2, 4);
    widget->Control().MoveSelection(5);
    EXPECT_EQ(widget->GetCaption(), "abe\\bcd\\bf");
    widget->Control().MoveSelection(0);
    EXPECT_EQ(widget->GetCaption(), "\\bcd\\babef");
    widget->Control().Undo();
    widget->Control().Undo();
    EXPECT_EQ(widget->GetCaption(), "ab\\bcd\\bef");
    // A click on the selection places the caret, and only then.
    widget->Control().SelectAll();
    Mouse(widget, QEvent::MouseButtonPress, at(3));
    EXPECT_TRUE(widget->Control().HasSelection());
    Mouse(widget, QEvent::MouseButtonRelease, at(3));
    EXPECT_FALSE(widget->Control().HasSelection());
    EXPECT_EQ(widget->Control().CaretPos(), 3);
    widget->SetReadOnly(true);
    QDragEnterEvent refused(at(1), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &refused);
    EXPECT_FALSE(refused.isAccepted());
}

TEST(PickerWidgets, AListWithoutRoomScrollsAndIsSearchedByLetters)
{
    TScene<TKxColorPickComboWidget> scene;
    TKxColorPickComboWidget* const widget = scene.Widget;
    const QRect screen = widget->screen()->availableGeometry();
    widget->Control().SetDropDownCount(100);
    widget->Control().SetItemHeight(screen.height() / 12);
    scene.Form.move(screen.left(), screen.bottom() - 2 * scene.Form.height());
    QApplication::processEvents();
    Press(widget, Qt::Key_F4);
    ASSERT_TRUE(widget->Popup());
    TKxDropWidget& window = widget->DropWindow();
    EXPECT_TRUE(screen.contains(window.geometry()));
    EXPECT_LE(window.geometry().bottom(), widget->mapToGlobal(QPoint(0, 0)).y());
    QApplication::processEvents();
    ASSERT_TRUE(window.ScrollBar().isVisible());
    Press(&window, Qt::Key_End);
    EXPECT_EQ(window.ScrollBar().value(), window.ScrollBar().maximum());
    window.ScrollBar().setValue(2);
    EXPECT_EQ(window.List().GetTopIndex(), 2);
    Type(&window, "sk");
    EXPECT_EQ(widget->ItemName(window.List().GetItemIndex()), "Sky blue");
    Press(&window, Qt::Key_Escape);
    EXPECT_EQ(scene.Taken(), 0);
    EXPECT_EQ(widget->ValueText(), "Black");
    // In the closed box the same letter goes on to the next one.
    for (const char* name : {"Bluish green", "Blue", "Button", "Button text"}) {
        Press(widget, Qt::Key_B, "b");
        EXPECT_EQ(widget->ValueText(), name);
    }
    EXPECT_EQ(scene.Taken(), 4);
    TScene<TKxBrushStylesListWidget> list;
    list.Widget->setFixedHeight(60);
    QApplication::processEvents();
    EXPECT_TRUE(list.Widget->ScrollBar().isVisible());
    Press(list.Widget, Qt::Key_V, "v");
    EXPECT_EQ(list.Widget->ValueText(), "Vertical");
    EXPECT_EQ(list.Taken(), 1);
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
    QPalette own = before;
    own.setColor(QPalette::Base, QColor(1, 2, 3));
    scene.Widget->setPalette(own);
    EXPECT_EQ(ground().name(), "#010203");
    scene.Widget->setPalette(before);
    scene.Widget->setEnabled(false);
    EXPECT_EQ(ground().name(), before.color(QPalette::Window).name());
    Type(scene.Widget, "5");
    EXPECT_EQ(scene.Widget->ValueText(), "0");
}

}  // namespace
}  // namespace plotkit
