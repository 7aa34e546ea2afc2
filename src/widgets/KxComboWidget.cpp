#include "widgets/KxComboWidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <cmath>

#include "qt/KxQtPen.h"

namespace plotkit {

namespace {

/// What the box draws around its item, which the style draws in its place: frame and arrow.
constexpr QMargins OwnFrame(2, 1, 2 + 17, 1);

}  // namespace

class TKxComboWidget::TPopup : public KxGraphWidget
{
public:
    explicit TPopup(TKxComboWidget& box) : KxGraphWidget(&box.Combo().DropList(), &box), FBox(box)
    {
        setWindowFlags(Qt::Popup);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (rect().contains(event->position().toPoint()))
            return KxGraphWidget::mousePressEvent(event);
        // The press on the box would open the list again.
        setAttribute(Qt::WA_NoMouseReplay, FBox.rect().contains(FBox.mapFromGlobal(event->globalPosition().toPoint())));
        hide();
    }
    void hideEvent(QHideEvent* event) override
    {
        KxGraphWidget::hideEvent(event);
        Guarded([this] { FBox.Combo().SetDroppedDown(false); });
    }
    bool focusNextPrevChild(bool) override { return false; }

private:
    TKxComboWidget& FBox;
};

TKxComboWidget::TKxComboWidget(std::unique_ptr<TCustomComboBox> combo, QWidget* parent)
    : TKxControlWidget(std::move(combo), parent)
{
    Combo().OnDropDown = [this] { DroppedDown(); };
    Combo().OnCloseUp = [this] { HideList(); };
    Combo().OnChange = [this] { ControlChanged(); };
}

TKxComboWidget::~TKxComboWidget()
{
    Combo().OnCloseUp = nullptr;
    delete FPopup;
}

QWidget* TKxComboWidget::Popup() const
{
    return FPopup;
}

QStyleOptionComboBox TKxComboWidget::Option() const
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    // The item stands on the ground of an edit, on which all colours can be told.
    option.editable = true;
    option.frame = true;
    option.subControls = QStyle::SC_All;
    option.activeSubControls = FPopup ? QStyle::SC_ComboBoxArrow : QStyle::SC_None;
    if (FPopup)
        option.state |= QStyle::State_On | QStyle::State_Sunken;
    const TColor ground = Combo().GetEnabled() ? Combo().GetColor() : clButtonFace;
    option.palette.setColor(QPalette::Base, QtColor(ground));
    return option;
}

QSize TKxComboWidget::sizeHint() const
{
    const QStyleOptionComboBox option = Option();
    const QSize contents(FItemRoom, std::max(Combo().GetItemHeight(), fontMetrics().height()));
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

QRect TKxComboWidget::Hole() const
{
    const QStyleOptionComboBox option = Option();
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
}

QRect TKxComboWidget::RootRect() const
{
    return Hole() + OwnFrame;
}

void TKxComboWidget::PaintChrome(QPainter& painter)
{
    const QStyleOptionComboBox option = Option();
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
}

void TKxComboWidget::PlaceList(QWidget& popup) const
{
    const int high = static_cast<int>(std::ceil(Combo().DropList().GetHeight() / devicePixelRatioF()));
    const QPoint below = mapToGlobal(QPoint(0, height()));
    const QRect free = screen()->availableGeometry();
    QRect box(below, QSize(width(), std::min(high, free.height())));
    if (box.bottom() > free.bottom() && below.y() - height() - box.height() >= free.top())
        box.moveBottom(below.y() - height() - 1);
    else if (box.bottom() > free.bottom())
        box.moveBottom(free.bottom());
    box.moveLeft(std::clamp(box.left(), free.left(), std::max(free.left(), free.right() + 1 - box.width())));
    popup.setGeometry(box);
}

void TKxComboWidget::ShowList()
{
    HideList();
    FPopup = new TPopup(*this);
    PlaceList(*FPopup);
    FPopup->show();
    FPopup->setFocus(Qt::PopupFocusReason);
    update();
}

void TKxComboWidget::HideList()
{
    if (TPopup* const popup = std::exchange(FPopup, nullptr)) {
        popup->hide();
        popup->deleteLater();
    }
    update();
}

void TKxComboWidget::hideEvent(QHideEvent* event)
{
    TKxControlWidget::hideEvent(event);
    Guarded([this] { Combo().SetDroppedDown(false); });
}

}  // namespace plotkit
