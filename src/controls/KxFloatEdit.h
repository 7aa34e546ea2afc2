// The job of KxFloatEdit is an edit for a real number that stays between bounds.
#pragma once

#include "controls/KxNumberEdit.h"

namespace plotkit {

/// Reals in the locale's decimal separator or ".". A number that breaks off ("1e-") has the value of what is complete,
/// so that it can be typed to its end. `Value` keeps all its digits, whatever `Digits` shows.
class TKxFloatEdit : public TKxNumberEdit<double>
{
public:
    explicit TKxFloatEdit(TComponent* owner) : TKxNumberEdit(owner, -1.7e308, 1.7e308) {}

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    int GetDigits() const { return FDigits; }
    /// Characters of the number at most, 0 to 18 (values outside are clamped); 0 shows 15 significant digits.
    void SetDigits(int digits);

protected:
    std::optional<double> NumberOf(std::string_view text) const override;
    std::string NumberText(double value) const override;
    std::string BoundText(double bound) const override;
    bool IsBegun(std::string_view text) const override;

private:
    int FDigits = 0;
};

}  // namespace plotkit
