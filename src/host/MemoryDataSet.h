// The job of MemoryDataSet is a data set whose records the program itself holds, for examples, tests and computed
// tables.
#pragma once

#include "host/DataSet.h"

namespace plotkit {

class TMemoryDataSet : public TDataSet
{
public:
    using TDataSet::TDataSet;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Empty in records that are there.
    void AddField(std::string_view name);
    /// Behind the last one, fields that are not given are empty; one note. Also while closed.
    void AddRecord(std::span<const TFieldValue> values);
    void AddRecord(std::initializer_list<TFieldValue> values) { AddRecord({values.begin(), values.size()}); }
    /// All records at once, a column per field, NaN for an empty field; one note.
    void SetColumns(std::span<const std::vector<double>> columns);

    int FieldCount() const override { return static_cast<int>(FNames.size()); }
    std::string FieldName(int field) const override { return FNames.at(static_cast<std::size_t>(field)); }
    int RecordCount() const override { return static_cast<int>(FRecords.size()); }

protected:
    TFieldValue ValueOf(int row, int field) const override;
    int DoPost(int row, bool isNew, std::span<const std::optional<TFieldValue>> values) override;
    void DoDelete(int row) override { FRecords.erase(FRecords.begin() + row); }

private:
    std::vector<std::string> FNames;
    std::vector<std::vector<TFieldValue>> FRecords;  ///< the last fields of a record may be left out
};

}  // namespace plotkit
