// The job of KxFloatEdit is an edit for a real number that stays between bounds.
#pragma once

#include "host/CustomEdit.h"

namespace plotkit {

/// As TKxIntegerEdit, with reals in the locale's decimal separator or ".". A number that breaks off ("1e-") has the
/// value of what is complete, so that it can be typed to its end. `Value` keeps all its digits, whatever `Digits`
/// shows.
class TKxFloatEdit : public TCustomEdit
{
public:
    using TCustomEdit::TCustomEdit;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// A bound that is no finite number is not taken.
    double GetMinValue() const { return FMinValue; }
    void SetMinValue(double value);
    double GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(double value);
    double GetValue() const { return FValue; }
    /// Shows the value, kept between the bounds; NaN is not taken, infinities are the largest doubles.
    void SetValue(double value);
    int GetDigits() const { return FDigits; }
    /// Characters of the number at most, 0 to 18 (values outside are clamped); 0 shows 15 significant digits.
    void SetDigits(int digits);
    void Loaded() override;

protected:
    void Change() override;
    void CMExit() override;

private:
    double CheckValue(double value);
    void TakeText();
    void FindBoundLength();
    std::string ValueText() const;

    std::string FLastValid = "0";
    double FMinValue = -1.7e308;
    double FMaxValue = 1.7e308;
    double FValue = 0;
    int FDigits = 0;
    int FBoundLength = 8;  ///< of the longer text of the two bounds
    bool FChanging = false;
};

}  // namespace plotkit
