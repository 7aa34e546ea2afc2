// The job of KxStrings is the text side of numbers: texts for files and labels, numbers out of free text, tokens of
// formulas.
//
// "American" texts have "." as decimal separator, whatever the locale; the others have the locale's.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plotkit {

/// Without its spaces; other white space stays.
std::string StripBlanks(std::string_view s);

/// A token is the character, letter case of A to Z ignored, alone between the delimiters "(", ")", "*", "+", "-", "/",
/// "^" and the ends of the text. A blank is no delimiter.
bool ContainsToken(std::string_view s, char c);
/// The places of the tokens are those in `s`, also behind a replacement that is longer than one character: exact for
/// replacements of one character or one occurrence.
std::string ReplaceTokenWith(std::string_view s, char c, std::string_view replacement);
/// A token directly before "(" starts a function's name and stays. Replacements of any length.
std::string ReplaceTokenWithBracket(std::string_view s, char c, std::string_view replacement);

/// "." becomes the locale's decimal separator.
std::string DeAmericanize(std::string_view s);
/// The locale's decimal separator becomes ".".
std::string Americanize(std::string_view s);

/// At least `digits` characters, filled with "0" in front of everything: -5 with 3 digits is "0-5".
std::string IntToStrDigits(int n, std::int16_t digits);
/// "mm:ss", "hh:mm:ss" when there are hours, "dd" + ... with "d" when there are days: 90061 is "1d01:01:01".
std::string SecondsToStr(int n);

/// Whether the whole text is a real with "." or the locale's separator.
bool IsNumber(std::string_view s);

/// General format with 14 significant digits.
std::string RealToStr(double x);
/// The most precise general format that is at most `digits` characters long, or the shortest when none is; 15
/// significant digits when `digits` is 0.
std::string RealToStrDigits(double x, int digits);
std::string RealToAmericanStr(double x);
std::string RealToAmericanStrDigits(double x, int digits);
/// General format with 8 significant digits and at least 4 digits in an exponent.
std::string Float8_4(double x);

/// Deletes from the front until the text starts with a digit, "+", "-", ".", "E" or "e", or is empty.
void EraseToNumber(std::string& s);
void EraseToNumber(std::string_view& s);
/// Skips the number at the front and erases up to the next one.
void EraseToNextNumber(std::string& s);

/// The first integer, which is removed together with the character behind it; the text's last integer is not removed.
/// EConvertError "Error during integer extraction" when what starts there is no integer of 32 bits.
int ExtractOneInt(std::string& s);
/// The first real, which is removed with all up to the next one. EConvertError "Error during integer extraction" when
/// what starts there is no real; that is removed as well.
double ExtractOneReal(std::string& s);
/// The same on a view, which only moves on: for loops over long lists.
double ExtractOneReal(std::string_view& s);

/// Column letters of a spreadsheet: 1 is "A", 27 is "AA"; empty for 0 and below.
std::string ColumnToCharHeader(int n);

}  // namespace plotkit
