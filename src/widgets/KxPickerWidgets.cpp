#include "widgets/KxPickerWidgets.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace plotkit {

namespace {

constexpr int ItemsShown = 5, ItemRoom = 88;
/// The list's own.
constexpr int FrameWidth = 1;

QStyleOptionFrame FrameOption(const QWidget& widget)
{
    QStyleOptionFrame option;
    option.initFrom(&widget);
    option.frameShape = QFrame::StyledPanel;
    option.lineWidth = widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &widget);
    option.state |= QStyle::State_Sunken;
    return option;
}

/// "psDashDot" in words.
QString InWords(std::string_view name)
{
    QString words;
    for (const char letter : name.substr(2)) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        if (isCapital && !words.isEmpty())
            words += ' ';
        words += words.isEmpty() ? QChar::fromLatin1(letter) : QChar::fromLatin1(letter).toLower();
    }
    return words;
}

template <class T>
QString NameOf(T value)
{
    return InWords(ValueNames(value)[static_cast<std::size_t>(value)]);
}

template <class TPicker>
QString ChosenName(const TPicker& picker)
{
    if (picker.GetItemIndex() < 0)
        return {};
    if constexpr (requires { picker.GetPenStyle(); })
        return NameOf(picker.GetPenStyle());
    else if constexpr (requires { picker.GetPointSymbol(); })
        return NameOf(picker.GetPointSymbol());
    else
        return NameOf(picker.GetBrushStyle());
}

}  // namespace

TKxListWidget::TKxListWidget(std::unique_ptr<TCustomListBox> list, QWidget* parent)
    : TKxControlWidget(std::move(list), parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    List().OnChange = [this] { ControlChanged(); };
}

QSize TKxListWidget::sizeHint() const
{
    const int rows = List().GetColumns() > 1 ? (List().ItemCount() + List().GetColumns() - 1) / List().GetColumns()
                                             : std::min(List().ItemCount(), ItemsShown);
    const int frame = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    return {ItemRoom + frame, rows * List().GetItemHeight() + frame};
}

QSize TKxListWidget::minimumSizeHint() const
{
    return {40, sizeHint().height()};
}

QRect TKxListWidget::Hole() const
{
    const QStyleOptionFrame option = FrameOption(*this);
    return style()->subElementRect(QStyle::SE_ShapedFrameContents, &option, this);
}

QRect TKxListWidget::RootRect() const
{
    return Hole() + QMargins(FrameWidth, FrameWidth, FrameWidth, FrameWidth);
}

void TKxListWidget::PaintChrome(QPainter& painter)
{
    const QStyleOptionFrame option = FrameOption(*this);
    style()->drawControl(QStyle::CE_ShapedFrame, &option, &painter, this);
}

template <class TPicker, class TBase>
TKxPickerWidget<TPicker, TBase>::TKxPickerWidget(QWidget* parent) : TBase(std::make_unique<TPicker>(nullptr), parent)
{}

template <class TPicker, class TBase>
QString TKxPickerWidget<TPicker, TBase>::ValueText() const
{
    return ChosenName(Control());
}

template class TKxPickerWidget<TKxLineStylesCombo, TKxComboWidget>;
template class TKxPickerWidget<TKxLineStylesList, TKxListWidget>;
template class TKxPickerWidget<TKxPointSymbolsCombo, TKxComboWidget>;
template class TKxPickerWidget<TKxPointSymbolsList, TKxListWidget>;
template class TKxPickerWidget<TKxBrushStylesCombo, TKxComboWidget>;
template class TKxPickerWidget<TKxBrushStylesList, TKxListWidget>;

}  // namespace plotkit
