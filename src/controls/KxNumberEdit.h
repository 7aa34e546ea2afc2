// The job of KxNumberEdit is what edits for numbers share: a value that follows the text and stays between bounds.
#pragma once

#include <optional>

#include "host/CustomEdit.h"

namespace plotkit {

/// While the user types, `Value` follows the text, kept between the bounds (none while they are equal). A text beyond
/// them is left alone until it is as long as the longer one of the bounds; invalid text is answered by a beep and the
/// last valid one. Nothing is raised. `OnChange` tells of each change of the text, once. Undo brings text and value
/// back. `T`: int or double.
template <class T>
class TKxNumberEdit : public TCustomEdit
{
public:
    TKxNumberEdit(TComponent* owner, T min, T max) : TCustomEdit(owner), FMinValue(min), FMaxValue(max) {}

    /// A bound that is no finite number is not taken.
    T GetMinValue() const { return FMinValue; }
    void SetMinValue(T value) { SetBound(FMinValue, value); }
    T GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(T value) { SetBound(FMaxValue, value); }
    T GetValue() const { return FValue; }
    /// Shows the value, kept between the bounds; NaN is not taken, infinities are the largest doubles.
    void SetValue(T value);

protected:
    /// Nothing for a text that is no number.
    virtual std::optional<T> NumberOf(std::string_view text) const = 0;
    virtual std::string NumberText(T value) const = 0;
    /// A bound as its length counts.
    virtual std::string BoundText(T bound) const { return NumberText(bound); }
    /// Nothing of the number itself has been typed yet.
    virtual bool IsBegun(std::string_view text) const { return text.empty() || text == "-" || text == "+"; }

    void Change() override;
    void CMExit() override;
    std::string Content() const override;
    void SetContent(const std::string& content) override;

private:
    static void SetBound(T& bound, T value);
    T CheckValue(T value);
    void TakeText();

    std::string FLastValid = "0";
    T FMinValue;
    T FMaxValue;
    T FValue = 0;
    bool FChanging = false;
};

}  // namespace plotkit
