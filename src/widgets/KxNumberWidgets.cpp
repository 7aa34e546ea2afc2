#include "widgets/KxNumberWidgets.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionSpinBox>

#include "qt/KxQtPen.h"

namespace plotkit {

namespace {

constexpr int NumberRoom = 10;

}  // namespace

TKxIntegerEditWidget::TKxIntegerEditWidget(std::unique_ptr<TKxIntegerEdit> edit, QWidget* parent)
    : TKxEditWidget(std::move(edit), parent)
{
    setInputMethodHints(Qt::ImhDigitsOnly);
    SetRoom(NumberRoom);
    Control().OnChange = [this] { EditChanged(); };
}

TKxIntegerEditWidget::TKxIntegerEditWidget(QWidget* parent)
    : TKxIntegerEditWidget(std::make_unique<TKxIntegerEdit>(nullptr), parent)
{}

void TKxIntegerEditWidget::SetBounds(int min, int max)
{
    Control().SetMinValue(min);
    Control().SetMaxValue(max);
    update();
}

bool TKxIntegerEditWidget::IsNewValue()
{
    const int value = GetValue();
    return std::exchange(FKnown, value) != value;
}

TKxFloatEditWidget::TKxFloatEditWidget(QWidget* parent) : TKxEditWidget(std::make_unique<TKxFloatEdit>(nullptr), parent)
{
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    SetRoom(NumberRoom);
    Control().OnChange = [this] { EditChanged(); };
}

void TKxFloatEditWidget::SetBounds(double min, double max)
{
    Control().SetMinValue(min);
    Control().SetMaxValue(max);
}

bool TKxFloatEditWidget::IsNewValue()
{
    const double value = GetValue();
    return std::exchange(FKnown, value) != value;
}

TKxSpinIntegerEditWidget::TKxSpinIntegerEditWidget(QWidget* parent)
    : TKxIntegerEditWidget(std::make_unique<TKxSpinIntegerEdit>(nullptr), parent)
{
    Control().SetBtnWidth(0);
}

bool TKxSpinIntegerEditWidget::CanStep(TUpDownButton button) const
{
    const TKxSpinIntegerEdit& edit = Control();
    if (edit.GetReadOnly() || !edit.GetEnabled())
        return false;
    if (edit.GetMinValue() == edit.GetMaxValue())
        return true;
    const bool rises = (button == udUp) == (edit.GetIncrement() > 0);
    return rises ? edit.GetValue() < edit.GetMaxValue() : edit.GetValue() > edit.GetMinValue();
}

QStyleOptionSpinBox TKxSpinIntegerEditWidget::Option() const
{
    QStyleOptionSpinBox option;
    option.initFrom(this);
    option.frame = true;
    option.subControls =
        QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown | QStyle::SC_SpinBoxEditField;
    if (CanStep(udUp))
        option.stepEnabled |= QAbstractSpinBox::StepUpEnabled;
    if (CanStep(udDown))
        option.stepEnabled |= QAbstractSpinBox::StepDownEnabled;
    if (const auto shown = FPressed ? FPressed : FUnder)
        option.activeSubControls = *shown == udUp ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
    if (FPressed)
        option.state |= QStyle::State_Sunken;
    const TColor ground = Control().GetEnabled() ? Control().GetColor() : clButtonFace;
    option.palette.setColor(QPalette::Base, QtColor(ground));
    return option;
}

QSize TKxSpinIntegerEditWidget::sizeHint() const
{
    const QStyleOptionSpinBox option = Option();
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, SizeWithin(0), this);
}

QRect TKxSpinIntegerEditWidget::RootRect() const
{
    const QStyleOptionSpinBox option = Option();
    return style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, this);
}

void TKxSpinIntegerEditWidget::PaintChrome(QPainter& painter)
{
    const QStyleOptionSpinBox option = Option();
    style()->drawComplexControl(QStyle::CC_SpinBox, &option, &painter, this);
}

void TKxSpinIntegerEditWidget::Follow()
{
    TKxIntegerEditWidget::Follow();
    update();
}

std::optional<TUpDownButton> TKxSpinIntegerEditWidget::ButtonAt(QPoint at) const
{
    const QStyleOptionSpinBox option = Option();
    switch (style()->hitTestComplexControl(QStyle::CC_SpinBox, &option, at, this)) {
        case QStyle::SC_SpinBoxUp:
            return udUp;
        case QStyle::SC_SpinBoxDown:
            return udDown;
        default:
            return std::nullopt;
    }
}

void TKxSpinIntegerEditWidget::Step()
{
    if (CanStep(*FPressed))
        Control().Step(*FPressed);
    else
        Release();
}

void TKxSpinIntegerEditWidget::Release()
{
    FRepeat.stop();
    FPressed.reset();
    update();
}

void TKxSpinIntegerEditWidget::mousePressEvent(QMouseEvent* event)
{
    const auto button = event->button() == Qt::LeftButton ? ButtonAt(event->position().toPoint()) : std::nullopt;
    if (!button)
        return TKxIntegerEditWidget::mousePressEvent(event);
    event->accept();
    FPressed = button;
    FRepeating = false;
    FRepeat.start(style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatThreshold, nullptr, this), this);
    Guarded([this] { Step(); });
    update();
}

void TKxSpinIntegerEditWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (ButtonAt(event->position().toPoint()))
        mousePressEvent(event);
    else
        TKxIntegerEditWidget::mouseDoubleClickEvent(event);
}

void TKxSpinIntegerEditWidget::mouseMoveEvent(QMouseEvent* event)
{
    FUnder = ButtonAt(event->position().toPoint());
    if (!FPressed)
        TKxIntegerEditWidget::mouseMoveEvent(event);
    if (FUnder || FPressed)
        setCursor(Qt::ArrowCursor);
    else
        setCursor(Qt::IBeamCursor);
    update();
}

void TKxSpinIntegerEditWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (FPressed && event->button() == Qt::LeftButton)
        return Release();
    TKxIntegerEditWidget::mouseReleaseEvent(event);
}

void TKxSpinIntegerEditWidget::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != FRepeat.timerId() || !FPressed)
        return TKxIntegerEditWidget::timerEvent(event);
    if (!std::exchange(FRepeating, true))
        FRepeat.start(style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatRate, nullptr, this), this);
    Guarded([this] { Step(); });
}

void TKxSpinIntegerEditWidget::focusOutEvent(QFocusEvent* event)
{
    Release();
    TKxIntegerEditWidget::focusOutEvent(event);
}

}  // namespace plotkit
