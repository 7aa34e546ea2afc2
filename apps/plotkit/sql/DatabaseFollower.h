// The job of DatabaseFollower is to look at a query again and again, and to say which rows came or that they are
// others.
#pragma once

#include <chrono>

#include "plotkit/sql/DatabaseTable.h"

namespace plotkit {

/// Rows behind those known before are news, any other change is a restart. A look that fails keeps what is known and is
/// noted once; what is over is noted, too. Looking takes a fifth of the time at most.
class TDatabaseFollower : public TRowFollower
{
public:
    /// `origin` has read the table and outlives this object.
    TDatabaseFollower(TDatabaseOrigin& origin, const TCsvTable& table, std::vector<TFollowedColumn> columns,
                      const TDialectWish& wish);
    ~TDatabaseFollower() override;

    TFollowedRows Poll() override;

private:
    using TClock = std::chrono::steady_clock;

    bool IsWorthWhile();
    void Look(TFollowedRows& rows);
    void CheckColumns(const TCsvTable& table) const;
    void NoteBadCells(const TCsvTable& table, TFollowedRows& rows);
    void NoteTrouble(const EError& error, TFollowedRows& rows);
    void NoteRecovery(TFollowedRows& rows);

    TDatabaseOrigin& FOrigin;
    TReadOptions FReading;
    std::vector<TFollowedColumn> FFollowed;
    std::vector<TCsvColumn> FColumns;    ///< without their values
    std::vector<TArray<double>> FKnown;  ///< per followed column
    std::vector<bool> FIsNoted;          ///< per column: bad cells
    std::string FVersion;
    std::string FTrouble;
    TClock::time_point FNextLook;
    bool FIsTold = true;
    bool FIsLost = false;
};

}  // namespace plotkit
