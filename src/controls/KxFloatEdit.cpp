#include "controls/KxFloatEdit.h"

#include <cmath>

#include "foundation/KxStrings.h"
#include "host/NumberFormat.h"

namespace plotkit {

namespace {

constexpr std::array FloatRows{
    // It sets the value again, which the bounds are not to clamp while a text is read.
    Property<&TKxFloatEdit::GetDigits, &TKxFloatEdit::SetDigits>("Digits"),
    Property<&TKxFloatEdit::GetMinValue, &TKxFloatEdit::SetMinValue>("MinValue"),
    Property<&TKxFloatEdit::GetMaxValue, &TKxFloatEdit::SetMaxValue>("MaxValue"),
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

}  // namespace

constinit const TClassInfo TKxFloatEdit::Class{"TKxFloatEdit", &TCustomEdit::Class, FloatRows,
                                               &CreateComponent<TKxFloatEdit>};

bool TKxFloatEdit::IsBegun(std::string_view text) const
{
    text = WithoutSign(text);
    return text.empty() || (text.size() == 1 && (text.front() == '.' || text.front() == Separator()));
}

std::optional<double> TKxFloatEdit::NumberOf(std::string_view text) const
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

std::string TKxFloatEdit::NumberText(double value) const
{
    return RealToStrDigits(value, FDigits);
}

std::string TKxFloatEdit::BoundText(double bound) const
{
    return RealToStrDigits(bound, 0);
}

void TKxFloatEdit::SetDigits(int digits)
{
    FDigits = std::clamp(digits, 0, 18);
    SetValue(GetValue());
}

}  // namespace plotkit
