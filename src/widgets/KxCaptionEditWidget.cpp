#include "widgets/KxCaptionEditWidget.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QResizeEvent>
#include <QToolButton>

namespace plotkit {

namespace {

struct TAttribute
{
    const char* Letter;
    const char* Name;
    const char* Key;
    void (TKxCaptionEdit::*Toggle)();
};

constexpr std::array<TAttribute, TKxCaptionEditWidget::ButtonCount> Attributes{{
    {"B", "Bold", "Ctrl+B", &TKxCaptionEdit::BoldAtrribute},
    {"I", "Italic", "Ctrl+I", &TKxCaptionEdit::ItalicAtrribute},
    {"U", "Underline", "Ctrl+U", &TKxCaptionEdit::UnderlineAtrribute},
    {"S", "Strike out", "", &TKxCaptionEdit::StrikeoutAtrribute},
    {"Ω", "Symbol font", "", &TKxCaptionEdit::SymbolAtrribute},
    {"x₂", "Subscript", "Ctrl+-", &TKxCaptionEdit::SubscriptAtrribute},
    {"x²", "Superscript", "Ctrl++", &TKxCaptionEdit::SuperscriptAtrribute},
}};

constexpr int RowGap = 2;

}  // namespace

TKxCaptionEditWidget::TKxCaptionEditWidget(QWidget* parent)
    : TKxEditWidget(std::make_unique<TKxCaptionEdit>(nullptr), parent)
{
    Control().OnChange = [this] { EditChanged(); };
    Control().OnCaretChanged = [this](bool bold, bool italic, bool underline, bool strikeOut, bool subscript,
                                      bool superscript, bool symbol) {
        FStates = {bold, italic, underline, strikeOut, symbol, subscript, superscript};
        ShowStates();
    };
}

void TKxCaptionEditWidget::SetCaption(const TKxCaption& caption)
{
    Control().SetText(caption);
}

void TKxCaptionEditWidget::ShowStates()
{
    for (std::size_t i = 0; FRow && i < FStates.size(); ++i)
        FButtons[i]->setChecked(FStates[i]);
}

void TKxCaptionEditWidget::Toggle(int index)
{
    setFocus(Qt::OtherFocusReason);
    AsUser([&] { (Control().*Attributes[static_cast<std::size_t>(index)].Toggle)(); });
    ShowStates();
}

void TKxCaptionEditWidget::MakeRow()
{
    FRow = new QWidget(this);
    FRow->setCursor(Qt::ArrowCursor);
    auto* const layout = new QHBoxLayout(FRow);
    layout->setContentsMargins(0, RowGap, 0, 0);
    layout->setSpacing(1);
    for (int i = 0; i < ButtonCount; ++i) {
        const TAttribute& attribute = Attributes[static_cast<std::size_t>(i)];
        auto* const button = new QToolButton(FRow);
        button->setText(QString::fromUtf8(attribute.Letter));
        button->setAccessibleName(attribute.Name);
        const QString key(attribute.Key);
        button->setToolTip(key.isEmpty() ? QString(attribute.Name) : QString("%1 (%2)").arg(attribute.Name, key));
        button->setCheckable(true);
        button->setAutoRaise(true);
        // The selection stays where it is.
        button->setFocusPolicy(Qt::NoFocus);
        QFont face = font();
        face.setBold(i == 0);
        face.setItalic(i == 1);
        face.setUnderline(i == 2);
        face.setStrikeOut(i == 3);
        button->setFont(face);
        connect(button, &QToolButton::clicked, this, [this, i] { Toggle(i); });
        layout->addWidget(button);
        FButtons[static_cast<std::size_t>(i)] = button;
    }
    layout->addStretch();
}

void TKxCaptionEditWidget::SetButtonsShown(bool shown)
{
    if (shown == GetButtonsShown())
        return;
    if (shown) {
        MakeRow();
        FRow->setVisible(true);
        ShowStates();
    } else {
        delete std::exchange(FRow, nullptr);
        FButtons.fill(nullptr);
    }
    updateGeometry();
    QResizeEvent resized(size(), size());
    resizeEvent(&resized);
    update();
}

QSize TKxCaptionEditWidget::sizeHint() const
{
    const QSize edit = TKxEditWidget::sizeHint();
    if (!FRow)
        return edit;
    const QSize row = FRow->sizeHint();
    return {std::max(edit.width(), row.width()), edit.height() + row.height()};
}

QRect TKxCaptionEditWidget::FrameRect() const
{
    return rect().adjusted(0, 0, 0, FRow ? -FRow->sizeHint().height() : 0);
}

void TKxCaptionEditWidget::resizeEvent(QResizeEvent* event)
{
    TKxEditWidget::resizeEvent(event);
    if (FRow)
        FRow->setGeometry(0, height() - FRow->sizeHint().height(), width(), FRow->sizeHint().height());
}

void TKxCaptionEditWidget::changeEvent(QEvent* event)
{
    TKxEditWidget::changeEvent(event);
    if (FRow && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)) {
        SetButtonsShown(false);
        SetButtonsShown(true);
    }
}

void TKxCaptionEditWidget::FillMenu(QMenu& menu)
{
    TKxEditWidget::FillMenu(menu);
    menu.addSeparator();
    for (int i = 0; i < ButtonCount; ++i) {
        const TAttribute& attribute = Attributes[static_cast<std::size_t>(i)];
        AddAction(menu, attribute.Name, QKeySequence(attribute.Key), !GetReadOnly(), [this, i] { Toggle(i); });
        menu.actions().back()->setCheckable(true);
        menu.actions().back()->setChecked(FStates[static_cast<std::size_t>(i)]);
    }
}

}  // namespace plotkit
