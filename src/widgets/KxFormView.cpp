#include "widgets/KxFormView.h"

#include <QAccessible>
#include <cmath>

#include "host/CustomButton.h"
#include "host/CustomEdit.h"
#include "host/TextLabel.h"
#include "widgets/KxControlAccess.h"
#include "widgets/KxEditPlaces.h"

namespace plotkit {

TKxFormView::TKxFormView(TWindowControl& form, QWidget* parent) : TKxControlWidget(&form, parent)
{
    setFixedSize(static_cast<int>(std::ceil(form.GetWidth() / form.PixelScale())),
                 static_cast<int>(std::ceil(form.GetHeight() / form.PixelScale())));
}

std::vector<TWindowControl*> TKxFormView::Parts() const
{
    std::vector<TWindowControl*> parts;
    if (!Root())
        return parts;
    for (TControl* control : Root()->Controls())
        if (auto* part = dynamic_cast<TWindowControl*>(control))
            parts.push_back(part);
    return parts;
}

QString TKxFormView::NameOf(const TWindowControl& part) const
{
    if (dynamic_cast<const TCustomButton*>(&part))
        return QString::fromStdString(part.GetText());
    const TRect& box = part.Bounds();
    const TTextLabel* nearest = nullptr;
    int best = box.Height() + part.GetLeft() + part.GetTop();
    for (const TControl* control : Root()->Controls()) {
        const auto* label = dynamic_cast<const TTextLabel*>(control);
        if (!label)
            continue;
        const int middle = (label->Bounds().Top + label->Bounds().Bottom) / 2;
        const bool isBeside = middle >= box.Top && middle < box.Bottom && label->GetLeft() < box.Left;
        const bool isAbove = label->GetLeft() <= box.Left && middle < box.Top;
        const int way = isBeside ? 0 : isAbove ? box.Top - middle : best;
        if (way < best) {
            best = way;
            nearest = label;
        }
    }
    return nearest ? QString::fromStdString(nearest->GetText()) : QString();
}

QString TKxFormView::PartValue(const TWindowControl& part) const
{
    const auto* edit = dynamic_cast<const TCustomEdit*>(&part);
    return edit ? QtText(*edit) : QString();
}

void TKxFormView::focusInEvent(QFocusEvent* event)
{
    KxGraphWidget::focusInEvent(event);
}

void TKxFormView::focusOutEvent(QFocusEvent* event)
{
    KxGraphWidget::focusOutEvent(event);
}

void TKxFormView::Follow()
{
    if (!IsHeard() || !Root() || !Root()->Focused() || !hasFocus())
        return;
    const TWindowControl& part = *Root()->Focused();
    const auto* edit = dynamic_cast<const TCustomEdit*>(&part);
    const QString text = PartValue(part);
    const int caret = edit ? QtPlace(*edit, edit->CaretPos()) : 0;
    const bool isOther = std::exchange(FToldPart, &part) != &part;
    const QString before = std::exchange(FToldText, text);
    const int caretBefore = std::exchange(FToldCaret, caret);
    QAccessibleInterface* const form = QAccessible::queryAccessibleInterface(this);
    QAccessibleInterface* const access = form ? form->focusChild() : nullptr;
    if (!access)
        return;
    if (isOther || (!edit && before != text)) {
        QAccessibleEvent focused(access, QAccessible::Focus);
        Tell(focused);
    }
    if (!edit || isOther)
        return;
    TellTextChange(*access, before, text, caret);
    if (caret == caretBefore)
        return;
    QAccessibleTextCursorEvent moved(access, caret);
    Tell(moved);
}

}  // namespace plotkit
