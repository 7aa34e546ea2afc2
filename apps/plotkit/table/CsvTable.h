// The job of CsvTable is to read a text file into named columns of numbers, dates or texts.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "host/Array.h"
#include "plotkit/table/TableDialect.h"
#include "plotkit/table/TextSource.h"

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
    std::string Unit;        ///< from a line of units; empty where there is none
    std::size_t Number = 0;  ///< from 1
    /// What most of the cells are; of two kinds with as many, number before date-time before text.
    TColumnType Type = ctText;
    bool IsTimeOfDay = false;  ///< date-times without a day, from 0 to 1
    bool IsDayFirst = true;    ///< how dates such as 1/2/2012 were read
    bool IsOrderOpen = false;  ///< there are such dates, and none of them tells
    bool IsUniversal = false;  ///< offsets from universal time were taken off
    /// One per row, day numbers for dates, NaN where a value is missing; empty for a text column.
    TArray<double> Values;
    std::size_t ValueCount = 0;  ///< rows that hold a finite number or a date; 0 for a text column
    /// Cells with a content that is not of the column's type; in a text column the texts.
    std::size_t BadCount = 0;
    TCsvCell FirstBad;
    TCsvCell FirstGrouped;  ///< of the numbers with thousands marks, which have no value and are not bad
    std::size_t GroupedCount = 0;
};

/// Rows with fewer or more cells than there are columns; the missing ones have no value, those too many are left out.
struct TRaggedRows
{
    std::size_t Count = 0;
    std::size_t FirstLine = 0;
    std::size_t FirstCells = 0;
};

/// A table without rows, which it may get yet.
class ENoRows : public EConvertError
{
    using EConvertError::EConvertError;
};

struct TCsvTable
{
    std::string File;               ///< as it was named
    std::string RowWord = "line ";  ///< what messages count, with a blank
    bool IsQuery = false;           ///< rows of a database
    std::vector<TCsvColumn> Columns;
    std::size_t RowCount = 0;
    TTableDialect Dialect;
    TRaggedRows Ragged;
    std::size_t CommentLines = 0;
    TTextEncoding Encoding = teUtf8;
    bool IsRegular = false;       ///< a file that can be read again
    std::uint64_t EndOffset = 0;  ///< bytes of the file that were taken; what stands behind is an unfinished line
    std::size_t EndLine = 1;      ///< the line there
    /// Row and line wherever a row does not stand on the line behind the row before it; the first row always.
    std::vector<std::pair<std::size_t, std::size_t>> LineSteps;

    /// Line (from 1) that the row (from 0) starts on.
    std::size_t LineOfRow(std::size_t row) const;
};

struct TReadOptions
{
    TDialectWish Wish;
    TReadProgress Progress;
    /// A last line without line end is still being written and waits.
    bool IsGrowing = false;
};

/// How the file writes its table is found out from its front, see `FindDialect`, and stands in the result. Blank lines
/// and remarks are skipped. A last column without name and content is none. Errors name file, line and column:
/// EFileError: there is no such file, it is a directory, it cannot be read. EConvertError: empty file, no rows, a quote
/// that is not closed, a byte 0, more than 10000 columns, a line beyond 16 MB, more cells than names in most rows.
/// ECancelled.
TCsvTable ReadCsvFile(const std::filesystem::path& file, const TReadOptions& options = {});
/// The same from a stream; `name` stands for the file in messages.
TCsvTable ReadCsv(std::istream& stream, const std::string& name, const TReadOptions& options = {});

}  // namespace plotkit
