#include "host/MemoryDataSet.h"

#include <algorithm>
#include <cmath>

namespace plotkit {

constinit const TClassInfo TMemoryDataSet::Class{
    "TMemoryDataSet", &TDataSet::Class, {}, &CreateComponent<TMemoryDataSet>};

void TMemoryDataSet::AddField(std::string_view name)
{
    FNames.emplace_back(name);
    if (GetActive())
        RecordsChanged();
}

void TMemoryDataSet::AddRecord(std::span<const TFieldValue> values)
{
    FRecords.emplace_back(values.begin(), values.end());
    if (GetActive())
        RecordsChanged();
}

void TMemoryDataSet::SetColumns(std::span<const std::vector<double>> columns)
{
    FRecords.clear();
    for (std::size_t field = 0; field < columns.size(); ++field) {
        FRecords.resize(std::max(FRecords.size(), columns[field].size()));
        for (std::size_t row = 0; row < columns[field].size(); ++row) {
            FRecords[row].resize(field + 1);
            if (!std::isnan(columns[field][row]))
                FRecords[row][field] = columns[field][row];
        }
    }
    if (GetActive())
        RecordsChanged();
}

TFieldValue TMemoryDataSet::ValueOf(int row, int field) const
{
    const auto& record = FRecords[static_cast<std::size_t>(row)];
    return static_cast<std::size_t>(field) < record.size() ? record[static_cast<std::size_t>(field)] : TFieldValue();
}

int TMemoryDataSet::DoPost(int row, bool isNew, std::span<const std::optional<TFieldValue>> values)
{
    if (isNew)
        FRecords.emplace(FRecords.begin() + row);
    auto& record = FRecords[static_cast<std::size_t>(row)];
    record.resize(std::max(record.size(), values.size()));
    for (std::size_t field = 0; field < values.size(); ++field)
        if (values[field])
            record[field] = *values[field];
    return row;
}

}  // namespace plotkit
