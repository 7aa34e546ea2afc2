#include "widgets/KxColorWidgets.h"

#include <QDialog>
#include <QPainter>
#include <QStyleOptionButton>
#include <QVBoxLayout>

#include "widgets/KxFormView.h"

namespace plotkit {

namespace {

/// What the button draws around its face.
constexpr int FaceFrame = 3;
constexpr int SwatchWidth = 36, ColorRoom = 140, ColorSlack = 4;

class TColorView : public TKxFormView
{
public:
    TColorView(TKxColorPickerForm& form, QWidget* parent) : TKxFormView(form, parent) { setAccessibleName("Colour"); }
    QString ValueText() const override
    {
        const auto* form = dynamic_cast<const TKxColorPickerForm*>(Root());
        return form ? QString::fromStdString(ColorName(form->GetSelected())) : QString();
    }
    QString PartValue(const TWindowControl& part) const override
    {
        const auto* swatches = dynamic_cast<const TKxColorSwatches*>(&part);
        const auto color = swatches ? swatches->SelectedColor() : std::nullopt;
        return color ? QString::fromStdString(ColorName(*color)) : TKxFormView::PartValue(part);
    }
};

QStyleOptionButton ButtonOption(const TKxColorButtonWidget& button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    option.state |= button.Control().IsPressed() ? QStyle::State_Sunken : QStyle::State_Raised;
    return option;
}

}  // namespace

TKxColorWindow::~TKxColorWindow()
{
    delete FDialog;
}

void TKxColorWindow::Serve(TKxColorPickerForm& form)
{
    form.OnShow = [this, &form] { Open(form); };
    form.OnHide = [this] { Close(); };
}

void TKxColorWindow::Open(TKxColorPickerForm& form)
{
    Close();
    FDialog = new QDialog(&FOver);
    FDialog->setWindowTitle("Colour");
    auto* const layout = new QVBoxLayout(FDialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* const view = new TColorView(form, FDialog);
    layout->addWidget(view);
    QObject::connect(FDialog, &QDialog::rejected, &FOver, [&form] { form.Cancel(); });
    FDialog->open();
    view->setFocus();
}

void TKxColorWindow::Close()
{
    QDialog* const dialog = std::exchange(FDialog, nullptr);
    if (!dialog)
        return;
    dialog->hide();
    dialog->deleteLater();
}

TKxColorButtonWidget::TKxColorButtonWidget(QWidget* parent)
    : TKxControlWidget(std::make_unique<TKxColorBtn>(nullptr), parent)
{
    // The form is made when the button is pressed for the first time.
    Control().OnClick = [this] { FWindow.Serve(Control().PickerForm()); };
    Control().OnChange = [this] { ControlChanged(); };
}

QString TKxColorButtonWidget::ValueText() const
{
    return QString::fromStdString(ColorName(GetSelected()));
}

QSize TKxColorButtonWidget::sizeHint() const
{
    const QStyleOptionButton option = ButtonOption(*this);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, {SwatchWidth, fontMetrics().height()}, this);
}

QRect TKxColorButtonWidget::Hole() const
{
    const QStyleOptionButton option = ButtonOption(*this);
    // The style's button shows around the colour.
    return style()->subElementRect(QStyle::SE_PushButtonContents, &option, this) -
           QMargins(FaceFrame, FaceFrame, FaceFrame, FaceFrame);
}

QRect TKxColorButtonWidget::RootRect() const
{
    return Hole() + QMargins(FaceFrame, FaceFrame, FaceFrame, FaceFrame);
}

void TKxColorButtonWidget::PaintChrome(QPainter& painter)
{
    const QStyleOptionButton option = ButtonOption(*this);
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

TKxColorPickComboWidget::TKxColorPickComboWidget(QWidget* parent)
    : TKxComboWidget(std::make_unique<TKxColorPickCombo>(nullptr), parent)
{
    SetItemRoom(ColorRoom, ColorSlack);
}

QString TKxColorPickComboWidget::ValueText() const
{
    return QString::fromStdString(ColorName(GetSelected()));
}

QString TKxColorPickComboWidget::ItemName(int index) const
{
    return QString::fromStdString(Control().Items()[index]);
}

void TKxColorPickComboWidget::DroppedDown()
{
    FWindow.Serve(Control().PickerForm());
    TKxComboWidget::DroppedDown();
}

}  // namespace plotkit
