#include "widgets/KxPickerWidgets.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>

#include "widgets/KxControlAccess.h"

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
QString NameOfItem(const TPicker& picker, int index)
{
    if constexpr (requires { picker.GetPenStyle(); })
        return NameOf(static_cast<TPenStyle>(index));
    else if constexpr (requires { picker.GetPointSymbol(); })
        return NameOf(static_cast<TKxPointSymbol>(index));
    else
        return NameOf(picker.StyleOf(index));
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

QRect TKxListWidget::Inside() const
{
    const QStyleOptionFrame option = FrameOption(*this);
    return style()->subElementRect(QStyle::SE_ShapedFrameContents, &option, this);
}

QRect TKxListWidget::Hole() const
{
    return FScroll.Room(Inside());
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

void TKxListWidget::Follow()
{
    TKxControlWidget::Follow();
    FScroll.Follow(Inside());
    const int item = List().GetItemIndex();
    if (std::exchange(FToldItem, item) != item && item >= 0)
        TellItem(*this, item, hasFocus());
}

void TKxListWidget::keyPressEvent(QKeyEvent* event)
{
    const auto found =
        FSearch.Find(*event, List().GetItemIndex(), List().ItemCount(), [this](int index) { return ItemName(index); });
    if (!found)
        return TKxControlWidget::keyPressEvent(event);
    event->accept();
    Guarded([&] { List().SelectByUser(*found); });
}

template <class TPicker, class TBase>
TKxPickerWidget<TPicker, TBase>::TKxPickerWidget(QWidget* parent) : TBase(std::make_unique<TPicker>(nullptr), parent)
{}

template <class TPicker, class TBase>
QString TKxPickerWidget<TPicker, TBase>::ValueText() const
{
    return Control().GetItemIndex() < 0 ? QString() : ItemName(Control().GetItemIndex());
}

template <class TPicker, class TBase>
QString TKxPickerWidget<TPicker, TBase>::ItemName(int index) const
{
    return NameOfItem(Control(), index);
}

template class TKxPickerWidget<TKxLineStylesCombo, TKxComboWidget>;
template class TKxPickerWidget<TKxLineStylesList, TKxListWidget>;
template class TKxPickerWidget<TKxPointSymbolsCombo, TKxComboWidget>;
template class TKxPickerWidget<TKxPointSymbolsList, TKxListWidget>;
template class TKxPickerWidget<TKxBrushStylesCombo, TKxComboWidget>;
template class TKxPickerWidget<TKxBrushStylesList, TKxListWidget>;

}  // namespace plotkit
