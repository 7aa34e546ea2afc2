// The job of TableLayout is to find the lines of a sample that name the columns, hold units and start the rows.
#pragma once

#include "plotkit/table/DialectSample.h"

namespace plotkit {

/// Fills in what `dialect` does not know yet; its separator, decimal mark and remarks are known.
void LayOutTable(std::string_view sample, const std::vector<TSampleLine>& lines, const TDialectWish& wish,
                 TTableDialect& dialect);

}  // namespace plotkit
