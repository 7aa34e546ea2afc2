// The job of FileFollower is to read the rows that a growing file gets, for the columns that were chosen from it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "plotkit/table/RowFollower.h"

namespace plotkit {

/// Polled by whoever has a clock. Only whole lines are read; a cell that does not fit its column is a missing value and
/// counted. What was read last is compared each time something changed, so that a file that was cut, rewritten or
/// replaced is noticed whatever its size; it is then read from its start.
class TFileFollower : public TRowFollower
{
public:
    /// `table` was read with `IsGrowing` and `wish`. EFileError with the file's name when it is no file that can be
    /// read again.
    TFileFollower(const TCsvTable& table, std::vector<TFollowedColumn> columns, const TDialectWish& wish);

    /// What came since the last time. Errors are notes: a file that is gone for a while is waited for.
    TFollowedRows Poll() override;

    /// Rows since the start with cells that did not fit or with another number of them.
    std::size_t BadRows() const { return FBadRows; }

private:
    bool HasChanged();
    bool IsSameText(std::uint64_t size) const;
    std::string TextBefore(std::uint64_t end) const;
    void ReadOn(TFollowedRows& rows);
    void Restart(TFollowedRows& rows);
    void TakeTable(const TCsvTable& table, TFollowedRows& rows);
    bool HasSameColumns(const TCsvTable& table) const;
    std::size_t TakeRecords(std::string_view text, TFollowedRows& rows);
    void TakeRow(const TRecord& record, TFollowedRows& rows);
    std::optional<double> ValueOf(const TFollowedColumn& column, const std::vector<std::optional<double>>& cells) const;
    void NoteOnce(std::size_t column, const std::string& note, TFollowedRows& rows);
    void Keep(const TCsvTable& table);

    std::string FFile;
    TDialectWish FWish;
    TTableDialect FDialect;
    TTextEncoding FEncoding = teUtf8;
    std::vector<TCsvColumn> FColumns;  ///< without their values
    std::vector<TFollowedColumn> FFollowed;
    std::vector<bool> FIsNeeded, FIsNoted;  ///< per column; the last stands for the rows as a whole
    std::uint64_t FOffset = 0;
    std::size_t FLine = 1, FRow = 0, FBadRows = 0;
    std::string FTail;  ///< the last bytes that were read
    std::uint64_t FSize = 0;
    std::filesystem::file_time_type FTime;
    bool FIsUnread = false;  ///< it was gone or could not be opened
    bool FIsOther = false;   ///< cut or replaced, and not read since
    std::string FLastError;
};

}  // namespace plotkit
