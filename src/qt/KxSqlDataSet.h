// The job of KxSqlDataSet is a data set of the rows of a SQL query, which may be read again and again while others
// write.
#pragma once

#include <functional>

#include "host/DataSet.h"
#include "host/Timer.h"
#include "qt/KxSqlReader.h"

namespace plotkit {

/// The connection is one of QSqlDatabase, named and set up by the program, so that no form holds a password. All rows
/// are kept, numbers and dates as reals that vectors share; they cannot be edited, TKxModelDataSet is for that. A text
/// that is a number is taken as one.
class TKxSqlDataSet : public TDataSet
{
public:
    explicit TKxSqlDataSet(TComponent* owner) : TDataSet(owner) {}
    ~TKxSqlDataSet() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    const std::string& GetConnection() const { return FConnection; }
    void SetConnection(std::string_view name);
    /// A statement that gives rows. Of an open data set the rows are read at once; when that fails it stays closed.
    const std::string& GetQuery() const { return FQuery; }
    void SetQuery(std::string_view sql);
    /// Milliseconds between two looks at the database while open, 0 for none. A query that takes long is asked less
    /// often: looking takes a fifth of the time at most.
    int GetRefreshInterval() const { return FInterval; }
    void SetRefreshInterval(int milliSeconds);
    /// Also looks when the server tells of this channel (PostgreSQL: NOTIFY), whose name is case-sensitive.
    const std::string& GetChannel() const { return FChannel; }
    void SetChannel(std::string_view channel);

    /// Looks now: when something changed the records are told to have. What goes wrong keeps the records.
    void Look();
    /// Why the last look failed; empty when it did not.
    const std::string& Trouble() const { return FTrouble; }
    /// The trouble changed: began, is another, is over (empty).
    std::function<void(const std::string& trouble)> OnTrouble;

    int FieldCount() const override { return static_cast<int>(FColumns.size()); }
    std::string FieldName(int field) const override { return FColumns.at(static_cast<std::size_t>(field)).Name; }
    int RecordCount() const override { return static_cast<int>(FRowCount); }
    TArray<double> ReadField(int field) override;

protected:
    void DoOpen() override;
    void DoClose() override;
    void DoRefresh() override;
    TFieldValue ValueOf(int row, int field) const override;
    int DoPost(int row, bool isNew, std::span<const std::optional<TFieldValue>> values) override;
    void DoDelete(int row) override;

private:
    struct TColumn
    {
        std::string Name;
        TArray<double> Values;           ///< NaN where there is no number
        std::vector<std::size_t> Empty;  ///< rows without a value
        std::vector<std::pair<std::size_t, std::string>> Texts;
    };
    struct TRows
    {
        std::vector<TColumn> Columns;
        std::size_t Count = 0;
    };
    TRows ReadRows();
    bool IsSame(const TRows& rows) const;
    void Take(TRows rows);
    void StartLooking();
    void Tick();
    void SetTrouble(const std::string& trouble);
    void Reopen();

    std::string FConnection, FQuery, FChannel, FTrouble, FVersion;
    int FInterval = 0;
    std::vector<TColumn> FColumns;
    std::size_t FRowCount = 0;
    std::unique_ptr<TKxSqlReader> FReader;
    std::unique_ptr<TTimer> FTimer;
    double FPause = 0;  ///< looks to be left out, in ms
};

}  // namespace plotkit
