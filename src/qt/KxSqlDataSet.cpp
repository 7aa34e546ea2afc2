#include "qt/KxSqlDataSet.h"

#include <algorithm>
#include <chrono>
#include <cstring>

#include "host/NumberFormat.h"

namespace plotkit {

namespace {

constexpr double Missing = std::numeric_limits<double>::quiet_NaN();
constexpr int WatchInterval = 2000;  // ms, where only the server tells of changes
constexpr double PausePerWork = 4;

constexpr std::array SqlDataSetProperties{
    Property<&TKxSqlDataSet::GetConnection, &TKxSqlDataSet::SetConnection>("Connection"),
    Property<&TKxSqlDataSet::GetQuery, &TKxSqlDataSet::SetQuery>("Query"),
    Property<&TKxSqlDataSet::GetRefreshInterval, &TKxSqlDataSet::SetRefreshInterval>("RefreshInterval"),
    Property<&TKxSqlDataSet::GetChannel, &TKxSqlDataSet::SetChannel>("Channel"),
};

[[noreturn]] void RaiseReadOnly()
{
    throw EComponentError("The rows of a query cannot be edited");
}

bool HasSameBits(const TArray<double>& a, const TArray<double>& b)
{
    return a.Length() == b.Length() &&
           (a.IsEmpty() || std::memcmp(a.Read(), b.Read(), a.Length() * sizeof(double)) == 0);
}

}  // namespace

constinit const TClassInfo TKxSqlDataSet::Class{"TKxSqlDataSet", &TDataSet::Class, SqlDataSetProperties,
                                                &CreateComponent<TKxSqlDataSet>};

TKxSqlDataSet::~TKxSqlDataSet()
{
    BeginDestroy();
}

void TKxSqlDataSet::SetConnection(std::string_view name)
{
    if (FConnection == name)
        return;
    FConnection = name;
    Reopen();
}

void TKxSqlDataSet::SetQuery(std::string_view sql)
{
    if (FQuery == sql)
        return;
    FQuery = sql;
    Reopen();
}

void TKxSqlDataSet::SetRefreshInterval(int milliSeconds)
{
    FInterval = std::max(milliSeconds, 0);
    if (GetActive())
        StartLooking();
}

void TKxSqlDataSet::SetChannel(std::string_view channel)
{
    if (FChannel == channel)
        return;
    FChannel = channel;
    if (GetActive())
        StartLooking();
}

void TKxSqlDataSet::Reopen()
{
    if (!GetActive())
        return;
    Close();
    Open();
}

void TKxSqlDataSet::DoOpen()
{
    FReader = std::make_unique<TKxSqlReader>(FConnection);
    try {
        Take(ReadRows());
        StartLooking();
    } catch (...) {
        DoClose();
        throw;
    }
    SetTrouble("");
}

void TKxSqlDataSet::DoClose()
{
    FTimer.reset();
    FReader.reset();
    Take({});
}

void TKxSqlDataSet::DoRefresh()
{
    Take(ReadRows());
}

void TKxSqlDataSet::StartLooking()
{
    FTimer.reset();
    FReader->Listen(FChannel, [this] { Look(); });
    const int interval = FInterval > 0 ? FInterval : FChannel.empty() ? 0 : WatchInterval;
    if (interval == 0)
        return;
    FTimer = std::make_unique<TTimer>(interval, TEvent<>([this] { Tick(); }));
}

void TKxSqlDataSet::Tick()
{
    if (FInterval == 0 && FTrouble.empty()) {
        // The server tells, unless it is gone.
        try {
            FReader->Check();
        } catch (const EError& error) {
            SetTrouble(error.Message());
        }
        return;
    }
    FPause -= FTimer->Interval();
    if (FPause <= 0)
        Look();
}

void TKxSqlDataSet::Look()
{
    if (!GetActive() || ControlsDisabled())
        return;
    const auto start = std::chrono::steady_clock::now();
    bool isChanged = false;
    try {
        const std::string version = FReader->Version(FQuery);
        if (version.empty() || version != FVersion || !FTrouble.empty()) {
            TRows rows = ReadRows();
            FVersion = version;
            isChanged = !IsSame(rows);
            if (isChanged)
                Take(std::move(rows));
        }
    } catch (const EError& error) {
        SetTrouble(error.Message());
        return;
    }
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
    FPause = spent.count() * PausePerWork;
    const auto life = Lifeline().Watch();
    SetTrouble("");
    if (isChanged && !life.expired())
        RecordsChanged();
}

void TKxSqlDataSet::SetTrouble(const std::string& trouble)
{
    if (trouble == FTrouble)
        return;
    FTrouble = trouble;
    if (OnTrouble)
        OnTrouble(trouble);
}

TKxSqlDataSet::TRows TKxSqlDataSet::ReadRows()
{
    TRows rows;
    std::vector<std::vector<double>> values;
    TSqlReading reading;
    reading.OnColumns = [&](const std::vector<TSqlColumn>& columns) {
        rows.Columns.clear();
        for (const TSqlColumn& column : columns)
            rows.Columns.push_back({column.Name, {}, {}, {}});
        values.assign(columns.size(), {});
        for (auto& reals : values)
            reals.reserve(FRowCount);
    };
    reading.OnCell = [&](std::size_t row, std::size_t column, const TSqlCell& cell) {
        double value = cell.Value;
        if (cell.Kind == skText) {
            const auto number = ParseReal(cell.Text);
            value = number.value_or(Missing);
            if (!number && !cell.Text.empty())
                rows.Columns[column].Texts.emplace_back(row, cell.Text);
        }
        if (cell.Kind == skEmpty || (cell.Kind == skText && cell.Text.empty())) {
            value = Missing;
            rows.Columns[column].Empty.push_back(row);
        }
        values[column].push_back(value);
    };
    rows.Count = FReader->Read(FQuery, reading);
    for (std::size_t i = 0; i < values.size(); ++i)
        rows.Columns[i].Values = TArray<double>(std::move(values[i]));
    return rows;
}

bool TKxSqlDataSet::IsSame(const TRows& rows) const
{
    return rows.Count == FRowCount && std::equal(rows.Columns.begin(), rows.Columns.end(), FColumns.begin(),
                                                 FColumns.end(), [](const TColumn& a, const TColumn& b) {
                                                     return a.Name == b.Name && a.Empty == b.Empty &&
                                                            a.Texts == b.Texts && HasSameBits(a.Values, b.Values);
                                                 });
}

void TKxSqlDataSet::Take(TRows rows)
{
    FColumns = std::move(rows.Columns);
    FRowCount = rows.Count;
}

TArray<double> TKxSqlDataSet::ReadField(int field)
{
    const TColumn& column = FColumns.at(static_cast<std::size_t>(field));
    const std::size_t end = column.Empty.empty() ? FRowCount : column.Empty.front();
    if (!column.Texts.empty() && column.Texts.front().first < end) {
        SetCursor(static_cast<int>(column.Texts.front().first));
        FieldReal(field);  // raises
    }
    SetCursor(static_cast<int>(end));
    if (end == FRowCount)
        return column.Values;
    return TArray<double>(std::vector<double>(column.Values.Read(), column.Values.Read() + end));
}

TFieldValue TKxSqlDataSet::ValueOf(int row, int field) const
{
    const TColumn& column = FColumns.at(static_cast<std::size_t>(field));
    const auto index = static_cast<std::size_t>(row);
    if (std::binary_search(column.Empty.begin(), column.Empty.end(), index))
        return {};
    const auto text = std::lower_bound(column.Texts.begin(), column.Texts.end(), index,
                                       [](const auto& entry, std::size_t wanted) { return entry.first < wanted; });
    if (text != column.Texts.end() && text->first == index)
        return text->second;
    return column.Values[index];
}

int TKxSqlDataSet::DoPost(int, bool, std::span<const std::optional<TFieldValue>>)
{
    RaiseReadOnly();
}

void TKxSqlDataSet::DoDelete(int)
{
    RaiseReadOnly();
}

}  // namespace plotkit
