// The job of KxModelDataSet is to make the rows of a Qt model the records of a data set, so that a graph shows what a
// table view beside it edits.
#pragma once

#include <QAbstractItemModel>
#include <QPointer>

#include "host/DataSet.h"

namespace plotkit {

/// Meant for QSqlTableModel and QSqlQueryModel, which have been selected or given a query; any table model will do. All
/// rows are fetched. A row that a view edits is one edited record; rows that come and go, and a model that is reset,
/// are other records. A model that is reset because its query failed tells of nothing. Rows that were removed from a
/// QSqlTableModel by others stay as empty ones until it is selected again.
class TKxModelDataSet : public TDataSet
{
public:
    explicit TKxModelDataSet(TComponent* owner) : TDataSet(owner) {}
    ~TKxModelDataSet() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    QAbstractItemModel* GetModel() const { return FModel; }
    /// Not owned; the data set is closed when it goes.
    void SetModel(QAbstractItemModel* model);

    int FieldCount() const override { return FModel ? FModel->columnCount() : 0; }
    std::string FieldName(int field) const override;
    int RecordCount() const override { return FModel ? FModel->rowCount() : 0; }

protected:
    void DoOpen() override;
    void DoClose() override;
    /// Of a QSqlTableModel: selects it again. EFileError with the database's words.
    void DoRefresh() override;
    TFieldValue ValueOf(int row, int field) const override;
    /// Submits what was set, unless the model waits for the program to do that; EFileError, and nothing is changed,
    /// when the model refuses.
    int DoPost(int row, bool isNew, std::span<const std::optional<TFieldValue>> values) override;
    void DoDelete(int row) override;

private:
    void FetchAll();
    void RowsChanged();
    void DataChanged(int firstRow, int lastRow);
    bool HasFailed() const;
    void Submit();
    void Select();
    [[noreturn]] void Fail() const;

    QPointer<QAbstractItemModel> FModel;
    QObject FContext;  ///< ends the connections
    bool FIsBusy = false;
};

}  // namespace plotkit
