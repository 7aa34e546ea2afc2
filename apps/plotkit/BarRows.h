// The job of BarRows is to say where the bars of a table stand: which rows have a place, in which order, between
// which edges.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "plotkit/table/CsvTable.h"

namespace plotkit {

struct TBarRows
{
    std::vector<std::size_t> Order;  ///< the rows that have a bar, by ascending abscissa
    bool AreAll = false;             ///< all rows, as they stand
    std::vector<double> Edges;       ///< one more than bars: half-way between neighbours
    std::vector<std::string> Notes;  ///< a line each for rows without a place and rows whose place is taken

    /// The ordinates of the bars; missing ones behind the end of `values`.
    TArray<double> Heights(const TArray<double>& values) const;
};

/// Bars at the abscissae `xs`; `name` is what the notes call them. Along a logarithmic axis neighbours meet half-way by
/// their ratio, and only positive abscissae have a place. Of rows with the same abscissa the first has it.
TBarRows RowsOfBars(std::span<const double> xs, bool isLog, const std::string& name);

}  // namespace plotkit
