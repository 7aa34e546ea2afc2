// The job of ColumnChoice is to say which columns of a table become abscissae and ordinates.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "plotkit/SeriesKind.h"
#include "plotkit/table/CsvTable.h"

namespace plotkit {

struct TChosenColumn
{
    /// Column name; "year..minute" for columns that form one date together; "row number".
    std::string Name;
    /// What an axis calls it: the name with its unit, or "date" for columns that form one together.
    std::string Caption;
    bool IsDateTime = false;
    bool IsTimeOfDay = false;  ///< date-times without a day
    bool IsOrderOpen = false;  ///< its dates do not tell day from month
    bool IsDayFirst = true;
    bool IsUniversal = false;  ///< its dates were brought to universal time
    /// Columns of the table (from 0) that it is made of; none for row numbers.
    std::vector<std::size_t> Sources;
    TArray<double> Values;
    /// Rows and how many of them have a value; a file that is followed gets more than there are `Values`.
    std::size_t RowCount = 0;
    std::size_t ValueCount = 0;
    std::size_t BadCount = 0;
    TCsvCell FirstBad;
};

/// A column of errors or displacements.
struct TExtraColumn
{
    std::size_t Ordinate = 0;  ///< whose it is
    int Place = 0;             ///< see TExtraName
    TChosenColumn Column;
};

struct TColumnChoice
{
    TChosenColumn X;
    std::vector<TChosenColumn> Ys;  ///< at least one
    std::vector<TExtraColumn> Extras;
    std::optional<TChosenColumn> Weights;
};

/// `x` and `ys`: what the user named; `ys` texts may name several columns, separated by commas. A column is named by
/// its name (letter case counts only where it decides) or by its number from 1. Without `x`: the first date-time or
/// strictly ascending number column that is no ordinate. Adjacent columns year, month and, as far as they are there,
/// day, hour, minute and second are one date, and so are a column of days and the column of times behind it. The row
/// number when there is no such column. Without `ys`: the first number column with values that is neither X nor another
/// time column (a date, a part of one, or an ascending column with a word such as "year" or "time" in its name); a time
/// column when there is nothing else. EConvertError with file and option: an unknown or ambiguous name (the columns are
/// listed), a column that holds no numbers or numbers with thousands marks, no number column at all.
TColumnChoice ChooseColumns(const TCsvTable& table, const std::optional<std::string>& x,
                            const std::vector<std::string>& ys, std::span<const TExtraName> extras = {});

/// A column of numbers for another purpose, named as in `ChooseColumns`. EConvertError with file and `option`.
TChosenColumn ChooseColumn(const TCsvTable& table, const std::string& name, const std::string& option);

/// "X: year_month (date), Y: co2_ppm (820 values, 3 missing)".
std::string DescribeChoice(const TColumnChoice& choice);

}  // namespace plotkit
