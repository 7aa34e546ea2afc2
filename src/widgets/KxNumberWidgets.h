// The job of KxNumberWidgets is the edits for numbers as widgets.
#pragma once

#include <QBasicTimer>

#include "controls/KxFloatEdit.h"
#include "controls/KxIntegerEdit.h"
#include "widgets/KxEditWidget.h"

class QStyleOptionSpinBox;

namespace plotkit {

/// `OnChanged` tells of each other value, while it is typed.
class TKxIntegerEditWidget : public TKxEditWidget
{
public:
    explicit TKxIntegerEditWidget(QWidget* parent = nullptr);

    TKxIntegerEdit& Control() const { return static_cast<TKxIntegerEdit&>(Edit()); }
    int GetValue() const { return Control().GetValue(); }
    void SetValue(int value) { Control().SetValue(value); }
    /// Equal ones are none.
    void SetBounds(int min, int max);
    bool IsNumber() const override { return true; }

protected:
    TKxIntegerEditWidget(std::unique_ptr<TKxIntegerEdit> edit, QWidget* parent);

    bool IsNewValue() override;

private:
    int FKnown = 0;
};

/// The buttons are the style's; they repeat while they are held.
class TKxSpinIntegerEditWidget : public TKxIntegerEditWidget
{
public:
    explicit TKxSpinIntegerEditWidget(QWidget* parent = nullptr);

    TKxSpinIntegerEdit& Control() const { return static_cast<TKxSpinIntegerEdit&>(Edit()); }
    QSize sizeHint() const override;
    bool CanStep(TUpDownButton button) const;

protected:
    QRect RootRect() const override;
    void PaintChrome(QPainter& painter) override;
    void Follow() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool IsWheelWanted() const override { return Control().HasFocus(); }

private:
    QStyleOptionSpinBox Option() const;
    std::optional<TUpDownButton> ButtonAt(QPoint at) const;
    void Step();
    void Release();

    QBasicTimer FRepeat;
    std::optional<TUpDownButton> FPressed, FUnder;
    bool FRepeating = false;
};

class TKxFloatEditWidget : public TKxEditWidget
{
public:
    explicit TKxFloatEditWidget(QWidget* parent = nullptr);

    TKxFloatEdit& Control() const { return static_cast<TKxFloatEdit&>(Edit()); }
    double GetValue() const { return Control().GetValue(); }
    void SetValue(double value) { Control().SetValue(value); }
    /// Equal ones are none.
    void SetBounds(double min, double max);
    bool IsNumber() const override { return true; }

protected:
    bool IsNewValue() override;

private:
    double FKnown = 0;
};

}  // namespace plotkit
