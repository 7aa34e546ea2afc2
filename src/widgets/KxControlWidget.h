// The job of KxControlWidget is to make one control of the library a widget among others in any Qt form.
#pragma once

#include "qt/KxGraphWidget.h"

class QInputMethodEvent;

namespace plotkit {

class TCustomEdit;

/// The base of the widgets of this folder: behaviour and content are the control's, the chrome around it is the
/// style's. Focus, tab order, input method, palette, font and accessibility are the widget's; keys that the control has
/// no use for are left to the dialog. A TQtHost is to be in force. The control's `OnChange` is the widget's own.
class TKxControlWidget : public KxGraphWidget
{
public:
    /// The user has changed the value, once for each change. Not told of what the program sets. The widget may not be
    /// destroyed in it, only later.
    std::function<void()> OnChanged;

    /// The value in words, as assistive programs hear it.
    virtual QString ValueText() const { return {}; }
    /// Of a list or drop-down: what an item shows, in words.
    virtual QString ItemName(int) const { return {}; }
    /// The edit that has the focus of the tree; nullptr when something else has it.
    TCustomEdit* FocusedEdit() const;
    /// Where an own pixel rectangle of a control stands in the widget.
    QRect FromControl(const TControl& control, const TRect& box) const;
    QPoint FromControl(const TControl& control, TPoint at) const;

    QSize minimumSizeHint() const override { return sizeHint(); }
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    /// What somebody else than the mouse or a key does in the user's name, such as an action of a menu.
    void AsUser(const std::function<void()>& action);

protected:
    TKxControlWidget(std::unique_ptr<TWindowControl> control, QWidget* parent);
    TKxControlWidget(TWindowControl* root, QWidget* parent);

    /// The frame and all that the style draws around the control.
    virtual void PaintChrome(QPainter&) {}
    /// The part of the widget where the control shows, which may be less than all of it.
    virtual QRect Hole() const { return RootRect(); }
    virtual bool IsKeyWanted(int key, TShiftState shift) const;
    virtual bool IsWheelWanted() const;
    /// For `OnChange` of the control.
    void ControlChanged();
    /// Whether what goes on was begun by the user.
    bool IsServing() const { return FServing > 0; }
    /// After every event; tells assistive programs what has changed.
    virtual void Follow();
    /// What stands in front of the control.
    virtual void PaintAbove(QPainter&) {}
    /// Ends what an input method composes; its text stays.
    void EndComposition();

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    void Prepare();
    void TakeFont();
    void TakeCommit(TCustomEdit& edit, const QInputMethodEvent& event);

    QString FToldValue;
    int FServing = 0;
    bool FNotifying = false;
};

}  // namespace plotkit
