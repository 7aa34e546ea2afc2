#include "plotkit/sql/DatabaseFollower.h"

#include <QTime>
#include <cstring>

namespace plotkit {
namespace {

constexpr int PausePerWork = 4;

bool StartsWith(const TArray<double>& values, const TArray<double>& known)
{
    return values.Length() >= known.Length() &&
           (known.IsEmpty() || std::memcmp(values.Read(), known.Read(), known.Length() * sizeof(double)) == 0);
}

std::string Time()
{
    return QTime::currentTime().toString("HH:mm:ss").toStdString();
}

}  // namespace

TDatabaseFollower::TDatabaseFollower(TDatabaseOrigin& origin, const TCsvTable& table,
                                     std::vector<TFollowedColumn> columns, const TDialectWish& wish)
    : FOrigin(origin), FFollowed(std::move(columns)), FColumns(table.Columns)
{
    FReading.Wish = wish;
    for (const TFollowedColumn& column : FFollowed)
        FKnown.push_back(ValuesOf(column, table));
    for (TCsvColumn& column : FColumns) {
        FIsNoted.push_back(column.BadCount > 0);
        column.Values = {};
        // Later rows are read in the order of day and month that was found.
        if (column.Type == ctDateTime && !column.IsOrderOpen && !FReading.Wish.DayFirst)
            FReading.Wish.LocaleDayFirst = column.IsDayFirst;
    }
    if (!FOrigin.Wish().Channel.empty())
        FOrigin.Reader().Listen(FOrigin.Wish().Channel, [this] {
            FIsTold = true;
            if (OnNews)
                OnNews();
        });
}

TDatabaseFollower::~TDatabaseFollower()
{
    FOrigin.Reader().Listen("", {});
}

TFollowedRows TDatabaseFollower::Poll()
{
    TFollowedRows rows;
    rows.Values.resize(FFollowed.size());
    const auto start = TClock::now();
    if (start < FNextLook && !FIsTold)
        return rows;
    try {
        if (IsWorthWhile())
            Look(rows);
        NoteRecovery(rows);
    } catch (const EError& error) {
        NoteTrouble(error, rows);
    }
    FNextLook = TClock::now() + PausePerWork * (TClock::now() - start);
    return rows;
}

bool TDatabaseFollower::IsWorthWhile()
{
    const bool isTold = std::exchange(FIsTold, false);
    if (FOrigin.Wish().IsOnlyTold && !isTold && FTrouble.empty()) {
        FOrigin.Reader().Check();
        return false;
    }
    const std::string version = FOrigin.Reader().Version(FOrigin.Statement());
    return version.empty() || version != FVersion || !FTrouble.empty();
}

void TDatabaseFollower::Look(TFollowedRows& rows)
{
    // What is written while the rows are read is found by the next look.
    const std::string version = FOrigin.Reader().Version(FOrigin.Statement());
    const TCsvTable table = FOrigin.ReadAgain(FReading);
    CheckColumns(table);
    FVersion = version;
    std::vector<TArray<double>> values;
    for (const TFollowedColumn& column : FFollowed)
        values.push_back(ValuesOf(column, table));
    const std::size_t before = FKnown.front().Length();
    for (std::size_t i = 0; i < values.size(); ++i)
        rows.IsRestart = rows.IsRestart || !StartsWith(values[i], FKnown[i]);
    const std::size_t first = rows.IsRestart ? 0 : before;
    rows.IsSameTable = true;
    rows.RowCount = table.RowCount - first;
    for (std::size_t i = 0; i < values.size(); ++i)
        rows.Values[i].assign(values[i].Read() + first, values[i].Read() + values[i].Length());
    FKnown = std::move(values);
    NoteBadCells(table, rows);
}

void TDatabaseFollower::CheckColumns(const TCsvTable& table) const
{
    for (const TFollowedColumn& column : FFollowed)
        for (const std::size_t source : column.Sources) {
            const bool isThere = source < table.Columns.size() && table.Columns[source].Name == FColumns[source].Name;
            // A column without any value left is of no type.
            const bool isEmpty = isThere && table.Columns[source].ValueCount + table.Columns[source].BadCount == 0;
            if (!isThere || (!isEmpty && table.Columns[source].Type != FColumns[source].Type))
                throw EConvertError("column \"" + FColumns[source].Name +
                                    "\" is gone or holds something else; it is waited for");
        }
}

void TDatabaseFollower::NoteBadCells(const TCsvTable& table, TFollowedRows& rows)
{
    for (const TFollowedColumn& followed : FFollowed)
        for (const std::size_t source : followed.Sources) {
            const TCsvColumn& column = table.Columns[source];
            if (column.BadCount == 0 || FIsNoted[source])
                continue;
            FIsNoted[source] = true;
            rows.Notes.push_back(FOrigin.Label() + ": row " + std::to_string(column.FirstBad.Line) + ", column \"" +
                                 column.Name + "\": \"" + column.FirstBad.Text + "\" is no " +
                                 (column.Type == ctDateTime ? "date" : "number"));
        }
}

void TDatabaseFollower::NoteTrouble(const EError& error, TFollowedRows& rows)
{
    const bool isLost = dynamic_cast<const EConnectionError*>(&error) != nullptr;
    const bool isNews = isLost ? !FIsLost : FIsLost || error.Message() != FTrouble;
    FTrouble = error.Message();
    FIsLost = isLost;
    if (!isNews)
        return;
    const std::string said = FOrigin.Said(FTrouble);
    rows.Notes.push_back(FOrigin.Label() + ": " +
                         (isLost ? "connection lost at " + Time() + " (" + said + ")" : said + " (" + Time() + ")") +
                         "; the last values stay");
}

void TDatabaseFollower::NoteRecovery(TFollowedRows& rows)
{
    if (!FTrouble.empty())
        rows.Notes.push_back(FOrigin.Label() + (FIsLost ? ": connected again at " : ": can be read again at ") +
                             Time());
    FTrouble.clear();
    FIsLost = false;
}

}  // namespace plotkit
