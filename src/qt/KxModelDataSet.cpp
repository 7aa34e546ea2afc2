#include "qt/KxModelDataSet.h"

#include <QSqlRecord>
#include <QSqlTableModel>

#include "host/Host.h"
#include "host/Restore.h"
#include "qt/KxSqlReader.h"

namespace plotkit {

namespace {

constexpr int MostSingleRows = 16;

QVariant VariantOf(const TFieldValue& value)
{
    if (const double* const real = std::get_if<double>(&value))
        return *real;
    if (const std::string* const text = std::get_if<std::string>(&value))
        return QString::fromStdString(*text);
    return {};
}

}  // namespace

constinit const TClassInfo TKxModelDataSet::Class{
    "TKxModelDataSet", &TDataSet::Class, {}, &CreateComponent<TKxModelDataSet>};

TKxModelDataSet::~TKxModelDataSet()
{
    BeginDestroy();
}

void TKxModelDataSet::SetModel(QAbstractItemModel* model)
{
    if (model == FModel)
        return;
    Close();
    FModel = model;
}

std::string TKxModelDataSet::FieldName(int field) const
{
    // The header may have been given other words for the reader.
    if (const auto* query = qobject_cast<QSqlQueryModel*>(FModel))
        return query->record().fieldName(field).toStdString();
    return FModel->headerData(field, Qt::Horizontal).toString().toStdString();
}

void TKxModelDataSet::DoOpen()
{
    if (!FModel)
        throw EComponentError(GetName() + (GetName().empty() ? "The" : ": the") + " data set has no model");
    if (HasFailed())
        Fail();
    FetchAll();
    const auto follow = [this](auto signal, auto told) { QObject::connect(FModel, signal, &FContext, told); };
    follow(&QAbstractItemModel::dataChanged,
           [this](const QModelIndex& first, const QModelIndex& last) { DataChanged(first.row(), last.row()); });
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        QObject::connect(FModel, signal, &FContext, [this] { RowsChanged(); });
    follow(&QAbstractItemModel::modelReset, [this] { RowsChanged(); });
    follow(&QAbstractItemModel::layoutChanged, [this] { RowsChanged(); });
    follow(&QObject::destroyed, [this] { Close(); });
}

void TKxModelDataSet::DoClose()
{
    if (FModel)
        QObject::disconnect(FModel, nullptr, &FContext, nullptr);
}

void TKxModelDataSet::FetchAll()
{
    const TRestore busy(FIsBusy, true);
    while (FModel->canFetchMore({}))
        FModel->fetchMore({});
}

bool TKxModelDataSet::HasFailed() const
{
    const auto* query = qobject_cast<QSqlQueryModel*>(FModel);
    return query && query->lastError().isValid();
}

void TKxModelDataSet::Fail() const
{
    const auto* query = qobject_cast<QSqlQueryModel*>(FModel);
    throw EFileError(query && query->lastError().isValid() ? SqlErrorText(query->lastError())
                                                           : "The model refused the change");
}

void TKxModelDataSet::RowsChanged()
{
    if (FIsBusy || HasFailed())
        return;
    // An error must not pass through the model.
    try {
        FetchAll();
        RecordsChanged();
    } catch (const std::exception& error) {
        Host().HandleError(error);
    }
}

void TKxModelDataSet::DataChanged(int firstRow, int lastRow)
{
    if (FIsBusy)
        return;
    try {
        if (lastRow - firstRow >= MostSingleRows)
            RecordsChanged();
        else
            for (int row = std::max(firstRow, 0); row <= lastRow; ++row)
                RecordEdited(row);
    } catch (const std::exception& error) {
        Host().HandleError(error);
    }
}

TFieldValue TKxModelDataSet::ValueOf(int row, int field) const
{
    TSqlCell cell;
    TakeSqlValue(FModel->index(row, field).data(Qt::EditRole), false, cell);
    if (cell.Kind == skEmpty)
        return {};
    return cell.Kind == skText ? TFieldValue(cell.Text) : TFieldValue(cell.Value);
}

void TKxModelDataSet::Select()
{
    auto* const table = qobject_cast<QSqlTableModel*>(FModel);
    if (table && !table->select())
        Fail();
    FetchAll();
}

void TKxModelDataSet::DoRefresh()
{
    const TRestore busy(FIsBusy, true);
    Select();
}

void TKxModelDataSet::Submit()
{
    if (FModel->submit())
        return;
    FModel->revert();
    Fail();
}

int TKxModelDataSet::DoPost(int row, bool isNew, std::span<const std::optional<TFieldValue>> values)
{
    const TRestore busy(FIsBusy, true);
    // A row that a view has not left yet would be in the way.
    if (!FModel->submit() || (isNew && !FModel->insertRow(row)))
        Fail();
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] && !FModel->setData(FModel->index(row, static_cast<int>(i)), VariantOf(*values[i]))) {
            FModel->revert();
            Fail();
        }
    Submit();
    return row;
}

void TKxModelDataSet::DoDelete(int row)
{
    const TRestore busy(FIsBusy, true);
    if (!FModel->submit() || !FModel->removeRow(row))
        Fail();
    Submit();
    const auto* table = qobject_cast<QSqlTableModel*>(FModel);
    if (table && table->editStrategy() != QSqlTableModel::OnManualSubmit)
        Select();
}

}  // namespace plotkit
