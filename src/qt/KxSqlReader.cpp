#include "qt/KxSqlReader.h"

#include <sys/stat.h>

#include <QDateTime>
#include <QSqlDriver>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTimer>
#include <QVariant>
#include <chrono>
#include <cmath>

namespace plotkit {

namespace {

constexpr std::size_t RowsPerProgress = 4096;
constexpr int TellingsPause = 20;  // ms
constexpr double PausePerWork = 4;
constexpr double MilliSecondsPerDay = 86'400'000;

bool IsSqlite(const QSqlDatabase& database)
{
    return database.driverName() == "QSQLITE";
}

TDateTime DateOf(const QDate& date, const QTime& time)
{
    return TryEncodeDateTime(
               {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second(), time.msec()})
        .value_or(NAN);
}

/// Digits on a clock; those that a change of the clock leaves out are no moment, but they were measured.
void TakeDate(const QDateTime& moment, bool isZoned, TSqlCell& cell)
{
    cell.Kind = moment.date().isValid() ? skDate : skEmpty;
    cell.IsUniversal = isZoned || moment.timeSpec() != Qt::LocalTime;
    const QDateTime own = cell.IsUniversal ? moment.toUTC() : moment;
    cell.Value = DateOf(own.date(), own.time());
}

/// The driver gives moments with a zone in the local time of this computer, which goes twice through an hour in autumn.
bool IsZoned(const QSqlField& field)
{
    constexpr int timestampWithZone = 1184;  // PostgreSQL, pg_type.oid
    return field.typeID() == timestampWithZone && field.metaType().id() == QMetaType::QDateTime;
}

TSqlCellKind KindOf(const QMetaType& type)
{
    switch (type.id()) {
        case QMetaType::Bool:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
            return skReal;
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            return skDate;
        case QMetaType::QTime:
            return skTime;
        default:
            return skText;
    }
}

/// On the clock or on chance.
bool DependsOnMore(const std::string& sql)
{
    const QString text = QString::fromStdString(sql);
    for (const char* word : {"now", "current_", "random", "changes"})
        if (text.contains(word, Qt::CaseInsensitive))
            return true;
    return false;
}

/// What tells a file from another that took its name.
std::pair<std::uint64_t, std::uint64_t> FileOf(const QSqlDatabase& database)
{
    struct stat about = {};
    if (stat(database.databaseName().toLocal8Bit().constData(), &about) != 0)
        return {};
    return {about.st_dev, about.st_ino};
}

}  // namespace

void TakeSqlValue(const QVariant& value, bool isZoned, TSqlCell& cell)
{
    cell.Kind = value.isNull() ? skEmpty : skReal;
    if (cell.Kind == skEmpty)
        return;
    switch (value.typeId()) {
        case QMetaType::QDate:
            cell.Kind = skDate;
            cell.IsUniversal = false;
            cell.Value = DateOf(value.toDate(), QTime(0, 0));
            return;
        case QMetaType::QDateTime:
            TakeDate(value.toDateTime(), isZoned, cell);
            return;
        case QMetaType::QTime:
            cell.Kind = skTime;
            cell.Value = value.toTime().msecsSinceStartOfDay() / MilliSecondsPerDay;
            return;
        case QMetaType::QString:
        case QMetaType::QByteArray:
            cell.Kind = skText;
            cell.Text = value.toString().toStdString();
            return;
        default:
            cell.Value = value.toDouble();
    }
}

std::string SqlErrorText(const QSqlError& error)
{
    QString text = error.databaseText().trimmed();
    if (text.isEmpty())
        text = error.driverText().trimmed();
    return text.section('\n', 0, 0).simplified().toStdString();
}

TKxSqlReader::TKxSqlReader(const std::string& connection) : FName(connection) {}

TKxSqlReader::~TKxSqlReader() = default;

QSqlDatabase TKxSqlReader::Connection() const
{
    return QSqlDatabase::database(
        FName.empty() ? QString(QSqlDatabase::defaultConnection) : QString::fromStdString(FName), false);
}

QSqlDatabase TKxSqlReader::Ready()
{
    QSqlDatabase database = Connection();
    if (!database.isValid())
        throw EFileError("there is no database connection \"" + FName + "\"");
    if (database.isOpen() && IsOtherFile(database))
        database.close();
    if (!database.isOpen()) {
        if (!database.open())
            throw EConnectionError(SqlErrorText(database.lastError()));
        FFile = FileOf(database);
        Subscribe(database);
    }
    return database;
}

bool TKxSqlReader::IsOtherFile(const QSqlDatabase& database) const
{
    return IsSqlite(database) && FFile.second != 0 && FileOf(database) != FFile;
}

bool TKxSqlReader::IsAlive(const QSqlDatabase& database) const
{
    QSqlQuery query(database);
    return query.exec("SELECT 1") && query.next();
}

std::size_t TKxSqlReader::ReadOnce(const QSqlDatabase& database, const std::string& sql, const TSqlReading& reading,
                                   QSqlError& error)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    if (!query.exec(QString::fromStdString(sql)) || !query.isSelect()) {
        error = query.lastError();
        if (!error.isValid())
            error = QSqlError("the query gives no rows", "", QSqlError::StatementError);
        return 0;
    }
    const QSqlRecord record = query.record();
    std::vector<TSqlColumn> columns;
    std::vector<bool> zoned;
    for (int i = 0; i < record.count(); ++i) {
        columns.push_back({record.fieldName(i).toStdString(), KindOf(record.field(i).metaType())});
        zoned.push_back(IsZoned(record.field(i)));
    }
    reading.OnColumns(columns);
    std::size_t row = 0;
    TSqlCell cell;
    for (; query.next(); ++row) {
        for (std::size_t column = 0; column < columns.size(); ++column) {
            TakeSqlValue(query.value(static_cast<int>(column)), zoned[column], cell);
            reading.OnCell(row, column, cell);
        }
        if (reading.OnProgress && (row + 1) % RowsPerProgress == 0 && !reading.OnProgress(row + 1))
            return row + 1;
    }
    error = query.lastError();
    return row;
}

std::size_t TKxSqlReader::Read(const std::string& sql, const TSqlReading& reading)
{
    const auto start = std::chrono::steady_clock::now();
    for (bool isSecond : {false, true}) {
        QSqlDatabase database = Ready();
        QSqlError error;
        const std::size_t rows = ReadOnce(database, sql, reading, error);
        if (!error.isValid()) {
            const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
            FPause = static_cast<int>(spent.count() * PausePerWork);
            return rows;
        }
        if (IsAlive(database))
            throw EFileError(SqlErrorText(error));
        database.close();
        if (isSecond)
            throw EConnectionError(SqlErrorText(error));
    }
    return 0;
}

void TKxSqlReader::Check()
{
    QSqlDatabase database = Ready();
    if (IsAlive(database))
        return;
    database.close();
    Ready();
}

std::string TKxSqlReader::Version(const std::string& sql)
{
    if (!IsSqlite(Connection()) || DependsOnMore(sql))
        return {};
    const QSqlDatabase database = Ready();
    std::string version;
    // The one counts what others wrote, the other what this connection did.
    for (const char* counter : {"PRAGMA data_version", "SELECT total_changes()", "PRAGMA schema_version"}) {
        QSqlQuery query(database);
        if (!query.exec(counter) || !query.next())
            return {};
        version += query.value(0).toString().toStdString() + ' ';
    }
    return version + std::to_string(FFile.second);
}

void TKxSqlReader::Listen(const std::string& channel, std::function<void()> onNews)
{
    FContext.reset();
    FIsTold = false;
    FChannel = channel;
    FOnNews = std::move(onNews);
    if (FChannel.empty())
        return;
    QSqlDatabase database = Ready();
    if (!database.driver()->hasFeature(QSqlDriver::EventNotifications) || IsSqlite(database)) {
        FChannel.clear();
        throw EFileError("this database tells of no changes");
    }
    if (!FContext)
        Subscribe(database);
}

void TKxSqlReader::Subscribe(const QSqlDatabase& database)
{
    if (FChannel.empty())
        return;
    const QString channel = QString::fromStdString(FChannel);
    FContext = std::make_unique<QObject>();
    FIsTold = false;
    QSqlDriver* const driver = database.driver();
    QObject::connect(driver, &QSqlDriver::notification, FContext.get(), [this, channel](const QString& name) {
        if (name != channel || FIsTold)
            return;
        FIsTold = true;
        QTimer::singleShot(std::max(TellingsPause, FPause), FContext.get(), [this] {
            FIsTold = false;
            const auto onNews = FOnNews;
            onNews();
        });
    });
    if (!driver->subscribedToNotifications().contains(channel) && !driver->subscribeToNotification(channel))
        throw EFileError("cannot listen to \"" + FChannel + "\": " + SqlErrorText(driver->lastError()));
}

}  // namespace plotkit
