// The job of KxSqlReader is to read the rows of SQL queries over a connection that is opened again when it was lost.
#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QSqlError>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/DateTime.h"
#include "host/Errors.h"

namespace plotkit {

/// The database cannot be reached, for now perhaps.
class EConnectionError : public EFileError
{
    using EFileError::EFileError;
};

enum TSqlCellKind : std::uint8_t
{
    skEmpty,
    skReal,
    skDate,  ///< a TDateTime
    skTime,  ///< the fraction of a day
    skText
};

struct TSqlCell
{
    TSqlCellKind Kind = skEmpty;
    double Value = 0;
    std::string Text;          ///< of a text
    bool IsUniversal = false;  ///< a date that was brought to universal time
};

struct TSqlColumn
{
    std::string Name;
    TSqlCellKind Kind = skText;  ///< as it is declared; where it is not, or cells may be anything, a guess
};

struct TSqlReading
{
    std::function<void(const std::vector<TSqlColumn>& columns)> OnColumns;
    /// Rows and columns from 0, row by row.
    std::function<void(std::size_t row, std::size_t column, const TSqlCell& cell)> OnCell;
    /// Asked every few thousand rows; false ends the reading. May be empty.
    std::function<bool(std::size_t rows)> OnProgress;
};

class TKxSqlReader
{
public:
    /// `connection` names a connection of QSqlDatabase, open or not, which must be there when something is read; empty
    /// is the default one.
    explicit TKxSqlReader(const std::string& connection);
    TKxSqlReader(const TKxSqlReader&) = delete;
    TKxSqlReader& operator=(const TKxSqlReader&) = delete;
    ~TKxSqlReader();

    /// The rows of a query, read forward only; returns their number. When the connection turns out to be lost it is
    /// opened again, once, and the query repeated from its start, `OnColumns` first. EConnectionError: the database
    /// cannot be reached; EFileError with the database's own words: anything else.
    std::size_t Read(const std::string& sql, const TSqlReading& reading);

    /// A text that stays the same while the query cannot have another result; empty when that is not known.
    std::string Version(const std::string& sql);

    /// Calls `onNews` soon after the server told of the channel, several tellings at once, as long as the connection
    /// lives; where the last reading took long it waits four times as long. A connection that is opened again listens
    /// again. EFileError when the database tells of nothing.
    void Listen(const std::string& channel, std::function<void()> onNews);
    /// Whether somebody else has to find out that the connection is lost while nothing is read.
    bool IsListening() const { return !FChannel.empty(); }
    /// EConnectionError when the connection is lost and cannot be opened again.
    void Check();

    QSqlDatabase Connection() const;

private:
    QSqlDatabase Ready();
    bool IsAlive(const QSqlDatabase& database) const;
    bool IsOtherFile(const QSqlDatabase& database) const;
    std::size_t ReadOnce(const QSqlDatabase& database, const std::string& sql, const TSqlReading& reading,
                         QSqlError& error);
    void Subscribe(const QSqlDatabase& database);

    std::string FName;
    std::string FChannel;
    std::function<void()> FOnNews;
    std::unique_ptr<QObject> FContext;  ///< ends the server's tellings with this object
    std::pair<std::uint64_t, std::uint64_t> FFile{};
    bool FIsTold = false;
    int FPause = 0;  ///< ms that tellings wait
};

/// What a value of a query or a model is; `isZoned`: a date-time stands for a moment, not for digits on a clock.
void TakeSqlValue(const QVariant& value, bool isZoned, TSqlCell& cell);

/// The first line of what a database says, without the driver's remarks.
std::string SqlErrorText(const QSqlError& error);

}  // namespace plotkit
