// The job of DatabaseTable is to read the rows of a database as a table of named columns.
#pragma once

#include "plotkit/TableOrigin.h"
#include "qt/KxSqlReader.h"

namespace plotkit {

/// Documents may be of databases from now on.
void UseDatabases();

/// A connection of its own, which cannot write. An empty field is a missing value.
class TDatabaseOrigin : public TTableOrigin
{
public:
    /// EFileError: no driver, no such file, a file of passwords that others can read.
    explicit TDatabaseOrigin(const TOptions& options);
    ~TDatabaseOrigin() override;

    TCsvTable Read(const TReadOptions& options) override;
    std::unique_ptr<TRowFollower> Follow(const TCsvTable& table, std::vector<TFollowedColumn> columns,
                                         const TDialectWish& wish) override;

    /// The rows as they are now; errors in the words of the database.
    TCsvTable ReadAgain(const TReadOptions& options);

    TKxSqlReader& Reader() { return *FReader; }
    const TDatabaseWish& Wish() const { return FWish; }
    const std::string& Label() const { return FLabel; }
    /// What reads the rows; known when they have been read.
    const std::string& Statement() const { return FStatement; }
    /// The words of a database as they may be shown.
    std::string Said(const std::string& text) const;

private:
    void Configure(QSqlDatabase database) const;
    void CheckFile() const;
    std::string Password() const;
    void FindStatement();

    TDatabaseWish FWish;
    std::string FLabel;
    bool FNamesOrdinates;
    std::string FConnection;
    std::string FStatement;
    std::unique_ptr<TKxSqlReader> FReader;
};

}  // namespace plotkit
