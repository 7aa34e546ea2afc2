#include "widgets/KxComboWidget.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionComboBox>

#include "qt/KxQtPen.h"
#include "widgets/KxDropWidget.h"

namespace plotkit {

namespace {

/// What the box draws around its item, which the style draws in its place: frame and arrow.
constexpr QMargins OwnFrame(2, 1, 2 + 17, 1);

}  // namespace

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
    return FPopup && FPopup->isVisible() ? FPopup : nullptr;
}

TKxDropWidget& TKxComboWidget::DropWindow()
{
    if (!FPopup)
        FPopup = new TKxDropWidget(*this);
    return *FPopup;
}

int TKxComboWidget::ListRows() const
{
    const int columns = Combo().GetColumns(), needed = (Combo().ItemCount() + columns - 1) / columns;
    return std::clamp(needed, 1, Combo().GetDropDownCount());
}

QStyleOptionComboBox TKxComboWidget::Option() const
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    // The item stands on the ground of an edit, on which all colours can be told.
    option.editable = true;
    option.frame = true;
    option.subControls = QStyle::SC_All;
    option.activeSubControls = Popup() ? QStyle::SC_ComboBoxArrow : QStyle::SC_None;
    if (Popup())
        option.state |= QStyle::State_On | QStyle::State_Sunken;
    const TColor ground = Combo().GetEnabled() ? Combo().GetColor() : clButtonFace;
    option.palette.setColor(QPalette::Base, QtColor(ground));
    return option;
}

QSize TKxComboWidget::sizeHint() const
{
    const QStyleOptionComboBox option = Option();
    const QSize contents(FItemRoom, std::max(Combo().GetItemHeight() - FItemSlack, fontMetrics().height()));
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

void TKxComboWidget::ShowList()
{
    DropWindow().Drop();
    update();
}

void TKxComboWidget::HideList()
{
    if (FPopup)
        FPopup->hide();
    update();
}

void TKxComboWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier) {
        event->accept();
        return Guarded([this] { Combo().DropDown(); });
    }
    const auto found = FSearch.Find(*event, Combo().GetItemIndex(), Combo().ItemCount(),
                                    [this](int index) { return ItemName(index); });
    if (!found)
        return TKxControlWidget::keyPressEvent(event);
    event->accept();
    Guarded([&] { Combo().SelectByUser(*found); });
}

void TKxComboWidget::hideEvent(QHideEvent* event)
{
    TKxControlWidget::hideEvent(event);
    Guarded([this] { Combo().SetDroppedDown(false); });
}

}  // namespace plotkit
