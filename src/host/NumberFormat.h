// The job of NumberFormat is numbers as text: general, fixed and scientific, and tolerant and strict reading.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plotkit {

/// Roundings to digits take the 17-digit decimal text of the value and round half away from zero.

/// General format: the shortest text of `value` rounded to `precision` significant digits (1 to 17, values outside are
/// clamped): trailing zeros removed, the separator only when needed; fixed notation when there are at most `precision`
/// digits before the separator and the magnitude is at least 0.00001, else mantissa, "E", "-" for negative exponents,
/// and the exponent filled with zeros to `exponentDigits`. Zero is "0"; NaN and infinities are "NAN", "INF", "-INF".
std::string FormatGeneral(double value, int precision, int exponentDigits = 0, char separator = '.');

/// Fixed notation with exactly `decimals` (0 to 18, values outside are clamped) digits behind the separator, `value`
/// rounded to `precision` significant digits before (digits beyond are 0); general format when there would be more than
/// 18 digits before the separator. A value that rounds to zero has no sign.
std::string FormatFixed(double value, int precision, int decimals, char separator = '.');

/// A sign (blank or "-"), one digit, ".", 14 digits, "E", the exponent's sign and four digits: 23 characters, the value
/// rounded to 15 significant digits. NaN and infinities as in the general format.
std::string FormatScientific(double value);

/// The shortest text that reads back as the same double, "." as separator; "nan", "inf", "-inf" for the rest.
std::string FormatExact(double value);

/// The whole of `text` (blanks around it allowed) as a real with "." or, when given, also with `separator`; nothing
/// when it is no number. Exponents "E" and "e", a leading "+" and missing digits before or behind the separator are
/// accepted, hexadecimal, "nan" and "inf" are not. Beyond the range of doubles the result is infinite.
std::optional<double> ParseReal(std::string_view text, char separator = '.');
/// The whole of `text` as a decimal 64-bit integer.
std::optional<long long> ParseInteger(std::string_view text);

/// The number at the very front of `text`, "." as separator, and the 1-based position of the first character that does
/// not fit; position 0 when all of it fits. A number that breaks off ("", "-", ".", "1e", "1e+") has the value 0 and
/// the position of the offending character, length + 1 when the text just ends. Blanks in front are skipped, blanks
/// behind do not fit. "1.5;2" gives 1.5 and 4, "1e;5" gives 0 and 3.
struct TNumberPrefix
{
    double Value = 0;
    int ErrorPosition = 0;
};
TNumberPrefix ScanReal(std::string_view text);
/// The same for decimal integers. One beyond 32 bits has the value 0 and the position behind its last digit.
struct TIntegerPrefix
{
    int Value = 0;
    int ErrorPosition = 0;
};
TIntegerPrefix ScanInteger(std::string_view text);

}  // namespace plotkit
