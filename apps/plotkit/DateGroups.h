// The job of DateGroups is to find adjacent columns that spell one date together and to join them.
#pragma once

#include <string>
#include <vector>

#include "plotkit/CsvTable.h"

namespace plotkit {

/// Columns year, month and, as far as they follow, day, hour, minute and second.
struct TDateGroup
{
    std::size_t First = 0;  ///< index of the column of years
    std::size_t Count = 0;  ///< 2 to 6
};

/// The groups of number columns with these names (letter case ignored), from left to right.
std::vector<TDateGroup> FindDateGroups(const TCsvTable& table);

/// The group as one date-time column named after its ends, "year..minute". A row with a part missing has no value; a
/// row whose parts are no date or time is counted as bad.
TCsvColumn JoinDateGroup(const TCsvTable& table, const TDateGroup& group);

}  // namespace plotkit
