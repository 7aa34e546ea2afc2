// The job of DateText is to read dates and times as people and instruments write them into text files.
#pragma once

#include <optional>
#include <string_view>

#include "host/DateTime.h"

namespace plotkit {

/// The whole of `text` as a date: YYYY-MM or YYYY-MM-DD ("/" in place of "-" too; a month or day may be one digit),
/// behind a full date also a time HH:MM[:SS[.fff]] after "T" or a blank, behind a time "Z" or an offset ±HH[[:]MM],
/// which is taken off, so that the result is universal time. A fraction is rounded to milliseconds. Nothing when the
/// text is no such date or there is no such day.
std::optional<TDateTime> ParseDateText(std::string_view text);

}  // namespace plotkit
