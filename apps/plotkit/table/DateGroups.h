// The job of DateGroups is to find adjacent columns that spell one date together and to join them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/DateTime.h"
#include "plotkit/table/CsvTable.h"

namespace plotkit {

/// Columns year, month and, as far as they follow, day, hour, minute and second; or a column of days and one of times.
struct TDateGroup
{
    std::size_t First = 0;  ///< index of the column of years or days
    std::size_t Count = 0;  ///< 2 to 6
    bool IsDayAndTime = false;
};

/// The groups from left to right: number columns with these names or short ones such as "YY MM DD hh mm"
/// (letter case ignored), and a column of dates without
/// times before a single column of times.
std::vector<TDateGroup> FindDateGroups(const TCsvTable& table);

/// The date of one row; nothing when the parts, none of them missing, are no date or time.
std::optional<TDateTime> JoinDate(const TDateGroup& group, std::span<const double> parts);
/// The parts as a message shows them.
std::string DatePartsText(const TDateGroup& group, std::span<const double> parts);

/// The group as one date-time column named after its ends, "year..minute". A row with a part missing has no value; a
/// row whose parts are no date or time is counted as bad.
TCsvColumn JoinDateGroup(const TCsvTable& table, const TDateGroup& group);

}  // namespace plotkit
