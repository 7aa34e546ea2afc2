#include "controls/KxFloatEdit.h"

#include <cmath>
#include <limits>

#include "foundation/KxStrings.h"
#include "host/NumberFormat.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr std::array FloatRows{
    Property<&TKxFloatEdit::GetMinValue, &TKxFloatEdit::SetMinValue>("MinValue"),
    Property<&TKxFloatEdit::GetMaxValue, &TKxFloatEdit::SetMaxValue>("MaxValue"),
    Property<&TKxFloatEdit::GetDigits, &TKxFloatEdit::SetDigits>("Digits"),
    Property<&TKxFloatEdit::GetValue, &TKxFloatEdit::SetValue>("Value"),
};

char Separator()
{
    return Host().Locale().DecimalSeparator;
}

std::string_view WithoutSign(std::string_view text)
{
    return text.substr(!text.empty() && (text.front() == '-' || text.front() == '+'));
}

/// Nothing of the number itself has been typed yet.
bool IsBegun(std::string_view text)
{
    text = WithoutSign(text);
    return text.empty() || (text.size() == 1 && (text.front() == '.' || text.front() == Separator()));
}

std::optional<double> RealOf(std::string_view text)
{
    auto number = ParseReal(text, Separator());
    if (!number) {
        const std::size_t exponent = text.find_first_of("eE");
        const bool isOpen = exponent != text.npos && WithoutSign(text.substr(exponent + 1)).empty();
        if (isOpen)
            number = ParseReal(text.substr(0, exponent), Separator());
    }
    return number && std::isfinite(*number) ? number : std::nullopt;
}

}  // namespace

constinit const TClassInfo TKxFloatEdit::Class{"TKxFloatEdit", &TCustomEdit::Class, FloatRows,
                                               &CreateComponent<TKxFloatEdit>};

void TKxFloatEdit::SetMinValue(double value)
{
    if (!std::isfinite(value))
        return;
    FMinValue = value;
    FindBoundLength();
}

void TKxFloatEdit::SetMaxValue(double value)
{
    if (!std::isfinite(value))
        return;
    FMaxValue = value;
    FindBoundLength();
}

void TKxFloatEdit::Loaded()
{
    TCustomEdit::Loaded();
    FindBoundLength();
}

void TKxFloatEdit::FindBoundLength()
{
    FBoundLength =
        static_cast<int>(std::max(RealToStrDigits(FMaxValue, 0).size(), RealToStrDigits(FMinValue, 0).size()));
}

std::string TKxFloatEdit::ValueText() const
{
    return RealToStrDigits(FValue, FDigits);
}

double TKxFloatEdit::CheckValue(double value)
{
    if (FMinValue == FMaxValue)
        return value;
    const double inside = value < FMinValue ? FMinValue : std::min(value, FMaxValue);
    if (inside != value && CharCount() >= FBoundLength) {
        Host().Beep();
        SetText(ValueText());
    }
    return inside;
}

void TKxFloatEdit::TakeText()
{
    const std::string text = GetText();
    if (IsBegun(text))
        return;
    const TRestore changing(FChanging, true);
    if (const auto number = RealOf(text)) {
        FValue = CheckValue(*number);
        FLastValid = GetText();
    } else {
        Host().Beep();
        SetText(FLastValid);
    }
}

void TKxFloatEdit::Change()
{
    if (FChanging)
        return;
    TakeText();
    TCustomEdit::Change();
}

void TKxFloatEdit::SetValue(double value)
{
    if (std::isnan(value))
        return;
    const std::string before = GetText();
    {
        const TRestore changing(FChanging, true);
        constexpr double largest = std::numeric_limits<double>::max();
        FValue = std::clamp(value, -largest, largest);
        FValue = CheckValue(FValue);
        SetText(ValueText());
        FLastValid = GetText();
    }
    if (GetText() != before && !FChanging)
        TCustomEdit::Change();
}

void TKxFloatEdit::SetDigits(int digits)
{
    FDigits = std::clamp(digits, 0, 18);
    SetValue(FValue);
}

void TKxFloatEdit::CMExit()
{
    // Digits that are not shown are no difference.
    if (RealOf(GetText()) != FValue && GetText() != ValueText())
        Host().Beep();
    SetValue(FValue);
    TCustomEdit::CMExit();
}

}  // namespace plotkit
