// The job of LookDate is to write and read values of axes that show dates as people type them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/DateTime.h"

namespace plotkit {

class TComponent;

/// Whether the values of an axis, or the abscissae of a series, are dates.
bool HasLookDates(const TComponent& component);

/// YYYY-MM-DD, behind it as much of HH:MM:SS.fff as is not zero.
std::string LookDateText(TDateTime value);
/// The first moment of YYYY[-MM[-DD[ HH:MM[:SS[.f...]]]]], "T" in place of the blank too; nothing for any other text.
std::optional<TDateTime> LookDateValue(std::string_view text);

}  // namespace plotkit
