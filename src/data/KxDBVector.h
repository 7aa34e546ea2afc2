// The job of KxDBVector is a vector that holds the values of one field over all records of a data set.
#pragma once

#include "data/KxVector.h"
#include "host/DataLink.h"

namespace plotkit {

/// Empty until data source and field are set and the data set is open. Editing a record updates its element; opening,
/// inserting, deleting and refreshing load all of them anew. The first empty field ends the vector, whatever stands in
/// later records. Without field or with a closed data set the vector keeps its values, and also when a field cannot be
/// read as a number, which raises EConvertError.
class TKxDBVector : public TKxCustomRealVector
{
public:
    explicit TKxDBVector(TComponent* owner);
    ~TKxDBVector() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TDataSource* GetDataSource() const { return FDataLink.GetDataSource(); }
    void SetDataSource(TDataSource* source);
    const std::string& GetDataField() const { return FDataLink.GetFieldName(); }
    void SetDataField(std::string_view name);
    /// The number of the first record at the last full load.
    int GetFirstRecNo() const { return FFirstRecNo; }

    /// Loads all records; subscribers hear (-1, true).
    void UpdateVector();
    /// Stores the current record's value at the place of record `recNo`, behind the last record for a negative one;
    /// subscribers hear (index, false).
    void SetRecord(int recNo);
    /// The element of a record; the number of records for one that is not there and not numbered in sequence.
    int FindIdx(int recNo);

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    void RecordChanged();
    /// What could not be loaded and still cannot is not said again: a live table would repeat it without end.
    void LoadAgain();
    void LoadRecords(TDataSet& dataSet, int field);

    TFieldDataLink FDataLink;
    int FFirstRecNo = 0;
    std::string FTrouble;  ///< why the last load failed; empty when it did not
};

}  // namespace plotkit
