// The job of RowFollower is the rows that a growing table gets, for the columns that were chosen from it, wherever it
// is.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "plotkit/table/CsvTable.h"
#include "plotkit/table/DateGroups.h"

namespace plotkit {

/// A column to be followed: one of the table, a group that forms a date, or, without sources, the row number.
struct TFollowedColumn
{
    std::string Name;                  ///< for messages
    std::vector<std::size_t> Sources;  ///< from 0
};

struct TFollowedRows
{
    /// The file was cut or replaced, or the table changed: these are all of its rows, and none of those before is
    /// valid.
    bool IsRestart = false;
    bool IsSameTable = false;  ///< after a restart too: who looks at a part of it goes on doing so
    std::size_t RowCount = 0;
    std::vector<std::vector<double>> Values;  ///< per followed column
    std::vector<std::string> Notes;           ///< what could not be read, a line each
};

class TRowFollower
{
public:
    TRowFollower() = default;
    TRowFollower(const TRowFollower&) = delete;
    TRowFollower& operator=(const TRowFollower&) = delete;
    virtual ~TRowFollower() = default;

    /// What came since the last time. Errors are notes.
    virtual TFollowedRows Poll() = 0;

    /// For tables that tell when they have changed; polling is then worth while at once.
    std::function<void()> OnNews;
};

/// The group of columns that form a date together.
TDateGroup GroupOf(const TFollowedColumn& column, const std::vector<TCsvColumn>& columns);
/// A followed column of a whole table.
TArray<double> ValuesOf(const TFollowedColumn& column, const TCsvTable& table);

}  // namespace plotkit
