#include "plotkit/sql/DatabaseTable.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlIndex>
#include <QSqlRecord>
#include <chrono>
#include <fstream>
#include <limits>

#include "host/StringList.h"
#include "plotkit/sql/DatabaseFollower.h"
#include "plotkit/table/CsvColumnBuilder.h"

namespace plotkit {
namespace {

constexpr auto ProgressPause = std::chrono::milliseconds(50);
constexpr std::size_t MostTablesListed = 30;

std::unique_ptr<TTableOrigin> OpenDatabase(const TOptions& options)
{
    return std::make_unique<TDatabaseOrigin>(options);
}

/// Runs `work`; what it raises gets the database's name in front.
template <class TWork>
auto Naming(const TDatabaseOrigin& origin, TWork work)
{
    try {
        return work();
    } catch (const ECancelled&) {
        throw;
    } catch (EError& error) {
        error.SetMessage(origin.Label() + ": " + origin.Said(error.Message()));
        throw;
    }
}

void AddCell(TCsvColumnBuilder& column, std::size_t row, const TSqlCell& cell)
{
    switch (cell.Kind) {
        case skEmpty:
            break;
        case skReal:
            column.AddNumber(row, row + 1, cell.Value);
            break;
        case skDate:
            column.AddDate(row, row + 1, cell.Value, cell.IsUniversal);
            break;
        case skTime:
            column.AddTime(row, row + 1, cell.Value);
            break;
        case skText:
            column.Add(row, row + 1, cell.Text);
            break;
    }
}

/// A column without any value yet is what it was declared to be.
void TakeDeclaredType(TCsvColumn& column, TSqlCellKind kind, std::size_t rows)
{
    if (column.Type != ctText || column.BadCount > 0 || kind == skText)
        return;
    column.Type = kind == skReal ? ctNumber : ctDateTime;
    column.IsTimeOfDay = kind == skTime;
    column.Values = TArray<double>(std::vector<double>(rows, std::numeric_limits<double>::quiet_NaN()));
}

}  // namespace

void UseDatabases()
{
    SetDatabases(&OpenDatabase);
}

TDatabaseOrigin::TDatabaseOrigin(const TOptions& options)
    : FWish(*options.Database), FLabel(options.File), FNamesOrdinates(!options.Ys.empty())
{
    static int number = 0;
    FConnection = "plotkit-" + std::to_string(++number);
    const QString driver = FWish.IsServer ? "QPSQL" : "QSQLITE";
    if (!QSqlDatabase::isDriverAvailable(driver))
        throw EFileError(FLabel + ": Qt's driver " + driver.toStdString() + " is not installed (on Debian " +
                         (FWish.IsServer ? "libqt6sql6-psql)" : "libqt6sql6-sqlite)"));
    Naming(*this, [this] { CheckFile(); });
    Configure(QSqlDatabase::addDatabase(driver, QString::fromStdString(FConnection)));
    FReader = std::make_unique<TKxSqlReader>(FConnection);
}

TDatabaseOrigin::~TDatabaseOrigin()
{
    FReader.reset();
    QSqlDatabase::removeDatabase(QString::fromStdString(FConnection));
}

void TDatabaseOrigin::CheckFile() const
{
    if (FWish.IsServer)
        return;
    const QFileInfo file(QString::fromStdString(FWish.Name));
    if (!file.exists())
        throw EFileError("there is no such file");
    if (file.isDir())
        throw EFileError("this is a directory");
}

std::string TDatabaseOrigin::Password() const
{
    const std::string& name = FWish.PasswordFile;
    if (name.empty())
        return {};
    const QFileInfo file(QString::fromStdString(name));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    if (file.isFile() && (file.permissions() & others))
        throw EFileError("--password-file: " + name + " may be read by others; chmod 600 makes it yours");
    std::ifstream stream(name);
    std::string line;
    if (!std::getline(stream, line) && line.empty())
        throw EFileError("--password-file: " + name + " cannot be read or is empty");
    if (line.ends_with('\r'))
        line.pop_back();
    return line;
}

void TDatabaseOrigin::Configure(QSqlDatabase database) const
{
    database.setDatabaseName(QString::fromStdString(FWish.Name));
    if (!FWish.IsServer) {
        database.setConnectOptions("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=1000");
        return;
    }
    database.setHostName(QString::fromStdString(FWish.Host));
    if (FWish.Port)
        database.setPort(FWish.Port);
    database.setUserName(QString::fromStdString(FWish.User));
    database.setPassword(QString::fromStdString(Password()));
    // The window waits while a connection is made, for a table that another holds, and until a lost server is missed.
    QString options =
        "connect_timeout=3;tcp_user_timeout=5000;keepalives_idle=5;keepalives_interval=2;keepalives_count=2;"
        "application_name=plotkit;options='-c default_transaction_read_only=on -c lock_timeout=3000'";
    if (!FWish.SslMode.empty())
        options += ";sslmode='" + QString::fromStdString(FWish.SslMode).remove('\'').remove(';') + "'";
    database.setConnectOptions(options);
}

std::string TDatabaseOrigin::Said(const std::string& text) const
{
    QString shown = QString::fromStdString(text);
    // Also the one that was not given, but is the default.
    shown.replace(QRegularExpression("\\b(user|role) \"[^\"]*\""), "the \\1");
    // Where it is the label says.
    shown.remove(QRegularExpression("^connection to server (at|on) .*? failed: "));
    if (shown.contains("no password supplied"))
        shown += " (PGPASSWORD, ~/.pgpass or --password-file)";
    return shown.toStdString();
}

void TDatabaseOrigin::FindStatement()
{
    FStatement = FWish.Query;
    if (!FStatement.empty())
        return;
    FReader->Check();
    // Listing the tables of what is no database says nothing.
    if (!FWish.IsServer)
        FReader->Read("SELECT name FROM sqlite_master", {[](const auto&) {}, [](auto, auto, const auto&) {}, {}});
    const QSqlDatabase database = FReader->Connection();
    QStringList tables = database.tables(QSql::Tables) + database.tables(QSql::Views);
    tables.removeIf([](const QString& name) { return name.startsWith("sqlite_"); });
    tables.sort();
    QString list = QStringList(tables.mid(0, MostTablesListed)).join(", ");
    if (static_cast<std::size_t>(tables.size()) > MostTablesListed)
        list += QString(", ... %1 in all").arg(tables.size());
    const QString wanted = QString::fromStdString(FWish.Table);
    const QStringList found = wanted.isEmpty() ? tables
                              : tables.contains(wanted)
                                  ? QStringList(wanted)
                                  : tables.filter(QRegularExpression("^" + QRegularExpression::escape(wanted) + "$",
                                                                     QRegularExpression::CaseInsensitiveOption));
    if (tables.isEmpty())
        throw EConvertError("there are no tables");
    if (found.size() != 1)
        throw EConvertError(
            "--table: " +
            (wanted.isEmpty() ? "there are several tables" : "there is no table \"" + FWish.Table + "\"") +
            "; the tables are " + list.toStdString());
    const QSqlDriver& driver = *database.driver();
    QString sql = "SELECT * FROM " + driver.escapeIdentifier(found.front(), QSqlDriver::TableName);
    const QSqlIndex key = database.primaryIndex(found.front());
    for (int i = 0; i < key.count(); ++i)
        sql += (i ? ", " : " ORDER BY ") + driver.escapeIdentifier(key.fieldName(i), QSqlDriver::FieldName);
    FStatement = sql.toStdString();
}

TCsvTable TDatabaseOrigin::ReadAgain(const TReadOptions& options)
{
    std::vector<TCsvColumnBuilder> builders;
    std::vector<TSqlColumn> declared;
    bool isCancelled = false;
    auto reported = std::chrono::steady_clock::now();
    TSqlReading reading;
    reading.OnColumns = [&](const std::vector<TSqlColumn>& columns) {
        declared = columns;
        builders.clear();
        for (const TSqlColumn& column : columns)
            builders.emplace_back(column.Name, builders.size() + 1, '.');
    };
    reading.OnCell = [&](std::size_t row, std::size_t column, const TSqlCell& cell) {
        AddCell(builders[column], row, cell);
    };
    reading.OnProgress = [&](std::size_t rows) {
        const auto now = std::chrono::steady_clock::now();
        if (!options.Progress || now - reported < ProgressPause)
            return true;
        reported = now;
        isCancelled = !options.Progress(rows * builders.size() * sizeof(double), 0);
        return !isCancelled;
    };
    TCsvTable table;
    table.File = FLabel;
    table.RowWord = "row ";
    table.IsQuery = true;
    table.LineSteps = {{0, 1}};
    table.RowCount = FReader->Read(FStatement, reading);
    if (isCancelled)
        throw ECancelled(FLabel + ": cancelled");
    const TDialectWish& wish = options.Wish;
    for (std::size_t i = 0; i < builders.size(); ++i) {
        table.Columns.push_back(
            builders[i].Finish(table.RowCount, wish.DayFirst.value_or(wish.LocaleDayFirst), wish.DayFirst.has_value()));
        TakeDeclaredType(table.Columns.back(), declared[i].Kind, table.RowCount);
    }
    return table;
}

TCsvTable TDatabaseOrigin::Read(const TReadOptions& options)
{
    return Naming(*this, [&] {
        if (FStatement.empty())
            FindStatement();
        TCsvTable table = ReadAgain(options);
        // With rows to come the columns that were named are known.
        if (table.RowCount == 0 && !(options.IsGrowing && FNamesOrdinates))
            throw EConvertError(options.IsGrowing ? "there are no rows yet; name the columns with --x and --y"
                                                  : "there are no rows");
        return table;
    });
}

std::unique_ptr<TRowFollower> TDatabaseOrigin::Follow(const TCsvTable& table, std::vector<TFollowedColumn> columns,
                                                      const TDialectWish& wish)
{
    return Naming(*this, [&] { return std::make_unique<TDatabaseFollower>(*this, table, std::move(columns), wish); });
}

}  // namespace plotkit
