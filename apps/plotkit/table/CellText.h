// The job of CellText is to say what one cell of a table holds.
#pragma once

#include <string>
#include <string_view>

namespace plotkit {

enum TCellKind
{
    ckMissing,
    ckNumber,
    ckDateTime,
    ckTimeOfDay,
    ckGrouped,  ///< a number with thousands marks, which is not guessed
    ckText
};

struct TCellContent
{
    TCellKind Kind = ckMissing;
    double Value = 0;          ///< of a date that may be read two ways: day before month, NaN when that is no date
    double MonthFirst = 0;     ///< a date read with the month before the day
    bool IsTwoWays = false;    ///< the order of day and month is to be decided
    bool IsUniversal = false;  ///< the date has an offset from universal time, which was taken off
};

/// What a cell says; blanks around it do not count. `decimal` is '.' or ','. Missing are the empty cell, "nan", "na",
/// "n/a", "#n/a", "null", "-", "--", infinities and numbers beyond the range of doubles. Exponents may be written with
/// "D".
TCellContent ReadCell(std::string_view cell, char decimal);

/// Without blanks and line ends around it.
std::string_view Trimmed(std::string_view text);
/// A name from a file: trimmed, control characters blank; what is no UTF-8 is taken as Latin-1.
std::string NameText(std::string_view text);
/// The same for a message: no longer than a glance.
std::string Shortened(std::string_view text);

}  // namespace plotkit
