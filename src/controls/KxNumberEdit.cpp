#include "controls/KxNumberEdit.h"

#include <cmath>
#include <limits>

#include "host/NumberFormat.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

/// Between the text and the value of a state that undo keeps; texts may hold it, values do not.
constexpr char ContentSeparator = '\n';

}  // namespace

template <class T>
void TKxNumberEdit<T>::SetBound(T& bound, T value)
{
    if (std::isfinite(static_cast<double>(value)))
        bound = value;
}

template <class T>
T TKxNumberEdit<T>::CheckValue(T value)
{
    if (FMinValue == FMaxValue)
        return value;
    // Crossed bounds give the upper one, whatever the value, so that it stays what it is.
    const T inside = std::min(std::max(value, FMinValue), FMaxValue);
    const std::size_t longest = std::max(BoundText(FMinValue).size(), BoundText(FMaxValue).size());
    if (inside != value && static_cast<std::size_t>(CharCount()) >= longest) {
        Host().Beep();
        SetText(NumberText(FValue));
    }
    return inside;
}

template <class T>
void TKxNumberEdit<T>::TakeText()
{
    const std::string text = GetText();
    if (IsBegun(text))
        return;
    const TRestore changing(FChanging, true);
    if (const auto number = NumberOf(text)) {
        FValue = CheckValue(*number);
        FLastValid = GetText();
    } else {
        Host().Beep();
        SetText(FLastValid);
    }
}

template <class T>
void TKxNumberEdit<T>::Change()
{
    if (FChanging)
        return;
    TakeText();
    TCustomEdit::Change();
}

template <class T>
void TKxNumberEdit<T>::SetValue(T value)
{
    if constexpr (std::is_floating_point_v<T>) {
        if (std::isnan(value))
            return;
        constexpr T largest = std::numeric_limits<T>::max();
        value = std::clamp(value, -largest, largest);
    }
    const std::string before = GetText();
    {
        const TRestore changing(FChanging, true);
        FValue = value;
        FValue = CheckValue(value);
        SetText(NumberText(FValue));
        FLastValid = GetText();
    }
    if (GetText() != before && !FChanging)
        TCustomEdit::Change();
}

template <class T>
void TKxNumberEdit<T>::CMExit()
{
    // Digits that are not shown are no difference.
    const bool isShown = GetText() == NumberText(FValue);
    const bool isOther = !isShown && NumberOf(GetText()) != FValue;
    if (isOther)
        Host().Beep();
    const auto show = [this] { SetValue(FValue); };
    // A whole number stays as it was typed.
    const bool isToBeShown = isOther || std::is_floating_point_v<T>;
    if (isToBeShown && (isShown || GetReadOnly()))
        show();
    else if (isToBeShown)
        Edit(-1, ekOther, true, show);
    TCustomEdit::CMExit();
}

template <class T>
std::string TKxNumberEdit<T>::Content() const
{
    return GetText() + ContentSeparator + FormatExact(static_cast<double>(FValue));
}

template <class T>
void TKxNumberEdit<T>::SetContent(const std::string& content)
{
    const std::size_t end = content.rfind(ContentSeparator);
    {
        const TRestore changing(FChanging, true);
        SetText(content.substr(0, end));
    }
    FValue = static_cast<T>(ParseReal(content.substr(end + 1)).value_or(0));
    FLastValid = NumberOf(GetText()) ? GetText() : NumberText(FValue);
    TCustomEdit::Change();
}

template class TKxNumberEdit<int>;
template class TKxNumberEdit<double>;

}  // namespace plotkit
