// The job of DateText is to read dates and times as people and instruments write them into text files.
#pragma once

#include <optional>
#include <string_view>

#include "host/DateTime.h"

namespace plotkit {

struct TDateReading
{
    /// NaN when there is no such date; both are the same where the text leaves no choice.
    TDateTime DayFirst = 0, MonthFirst = 0;
    bool IsTwoWays = false;    ///< written with slashes or dashes and the year last
    bool IsUniversal = false;  ///< an offset was taken off, or it is "Z"
};

/// The whole of `text` as a date, nothing when it is none or there is no such day in any order:
/// YYYY-MM, YYYY-MM-DD ("/" in place of "-" too; a month or day may be one digit), YYYY-DDD, YYYY-Www-D, YYYYMMDDThhmm
/// and D.M.YYYY, D/M/YYYY, M/D/YYYY, D-M-YYYY, D-Mon-YYYY (English names). Behind a full date a time HH:MM[:SS[.fff]]
/// after "T" or a blank; behind a time "Z" or an offset ±HH[[:]MM], which is taken off, so that the result is universal
/// time; AM or PM where the year is last. A fraction is rounded to milliseconds.
std::optional<TDateReading> ReadDateText(std::string_view text);

/// HH:MM[:SS[.fff]] with or without AM or PM as the fraction of a day, below 1.
std::optional<double> ParseTimeText(std::string_view text);

/// Whether a short date format such as "d/m/yyyy" has the day before the month; true where the year is first, which
/// says nothing about dates with the year last.
bool WritesDayFirst(std::string_view shortDateFormat);

}  // namespace plotkit
