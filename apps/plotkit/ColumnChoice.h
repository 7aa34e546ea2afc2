// The job of ColumnChoice is to say which columns of a table become abscissae and ordinates.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plotkit/CsvTable.h"

namespace plotkit {

struct TChosenColumn
{
    /// Column name; "year..minute" for columns that form one date together; "row number".
    std::string Name;
    /// What an axis calls it: the name, or "date" for columns that form one together.
    std::string Caption;
    bool IsDateTime = false;
    TArray<double> Values;
    std::size_t ValueCount = 0;
    std::size_t BadCount = 0;
    TCsvCell FirstBad;
};

struct TColumnChoice
{
    TChosenColumn X;
    std::vector<TChosenColumn> Ys;  ///< at least one
};

/// `x` and `ys`: what the user named; `ys` texts may name several columns, separated by commas. A column is named by
/// its name (letter case counts only where it decides) or by its number from 1. Without `x`: the first date-time or
/// strictly ascending number column that is no ordinate. Adjacent columns year, month and, as far as they are there,
/// day, hour, minute and second are one date. The row number when there is no such column. Without `ys`: the first
/// number column with values that is neither X nor another time column (a date, a part of one, or an ascending column
/// with a word such as "year" or "time" in its name); a time column when there is nothing else. EConvertError with file
/// and option: an unknown or ambiguous name (the columns are listed), a column that holds no numbers, no number column
/// at all.
TColumnChoice ChooseColumns(const TCsvTable& table, const std::optional<std::string>& x,
                            const std::vector<std::string>& ys);

/// "X: year_month (date), Y: co2_ppm (820 values)".
std::string DescribeChoice(const TColumnChoice& choice);

/// A line for each chosen column with cells that could not be read: file, line, column, the first of them, how many.
std::vector<std::string> DescribeBadCells(const TCsvTable& table, const TColumnChoice& choice);

}  // namespace plotkit
