// The job of TableNotes is to say how a file was read and what in it could not be.
#pragma once

#include <string>
#include <vector>

#include "plotkit/ColumnChoice.h"

namespace plotkit {

/// "1 row", "2 rows".
std::string Counted(std::size_t count, const std::string& thing);

/// "Read: 820 rows, 7 columns separated by commas, names in line 1".
std::string DescribeReading(const TCsvTable& table);

/// A line for each thing the user should know of: rows with another number of cells, cells that could not be read
/// (file, line, column, the first of them, how many), dates whose order the columns leave open, dates in universal
/// time.
std::vector<std::string> DescribeDoubts(const TCsvTable& table, const TColumnChoice& choice);

}  // namespace plotkit
