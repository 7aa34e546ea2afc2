// The job of CsvTable is to read a file of comma-separated text into named columns of numbers, dates or texts.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "host/Array.h"

namespace plotkit {

enum TColumnType
{
    ctText,
    ctNumber,
    ctDateTime
};

/// One cell, for messages. `Text` is shortened and free of control characters.
struct TCsvCell
{
    std::size_t Line = 0;  ///< from 1; 0: there is none
    std::string Text;
};

struct TCsvColumn
{
    std::string Name;        ///< from the header; "column 3" where that has none
    std::size_t Number = 0;  ///< from 1
    /// What most of the cells are; of two kinds with as many, number before date-time before text.
    TColumnType Type = ctText;
    /// One per row, day numbers for dates, NaN where a value is missing; empty for a text column.
    TArray<double> Values;
    std::size_t ValueCount = 0;  ///< rows that hold a finite number or a date; 0 for a text column
    /// Cells with a content that is not of the column's type; in a text column the texts.
    std::size_t BadCount = 0;
    TCsvCell FirstBad;
};

struct TCsvTable
{
    std::string File;  ///< as it was named
    std::vector<TCsvColumn> Columns;
    std::size_t RowCount = 0;
    /// Row and line wherever a row does not stand on the line behind the row before it; the first row always.
    std::vector<std::pair<std::size_t, std::size_t>> LineSteps;

    /// Line (from 1) that the row (from 0) starts on.
    std::size_t LineOfRow(std::size_t row) const;
};

/// Cells are separated by commas, or by the semicolons or tabs that the first line has more of; cells may be quoted.
/// The first line names the columns unless all its cells are numbers or dates. Empty cells, "nan" and infinities are
/// missing values, blank lines are skipped, a byte-order mark too. Errors name file, line and column: EFileError: there
/// is no such file, it is a directory, it cannot be read. EConvertError: empty file, no rows, a row with too many or
/// too few cells, a quote that is not closed or stands where it cannot stand, a byte 0, more than 10000 columns.
TCsvTable ReadCsvFile(const std::filesystem::path& file);
/// The same from a stream; `name` stands for the file in messages.
TCsvTable ReadCsv(std::istream& stream, const std::string& name);

}  // namespace plotkit
