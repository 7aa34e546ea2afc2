#include "data/KxDBVector.h"

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::array DBVectorProperties{
    Reference<&TKxDBVector::GetDataSource, &TKxDBVector::SetDataSource>("DataSource"),
    Property<&TKxDBVector::GetDataField, &TKxDBVector::SetDataField>("DataField"),
};

/// Runs `work` while the cursor may move unseen.
template <class TWork>
void WithControlsDisabled(TDataSet& dataSet, TWork work)
{
    dataSet.DisableControls();
    try {
        work();
    } catch (...) {
        dataSet.EnableControls();
        throw;
    }
    dataSet.EnableControls();
}

}  // namespace

constinit const TClassInfo TKxDBVector::Class{"TKxDBVector", &TKxCustomRealVector::Class, DBVectorProperties,
                                              &CreateComponent<TKxDBVector>};

TKxDBVector::TKxDBVector(TComponent* owner) : TKxCustomRealVector(owner), FDataLink(*this)
{
    FDataLink.OnDataChange = TEvent<>::Bind<&TKxDBVector::RecordChanged>(this);
    FDataLink.OnUpdateData = TEvent<>::Bind<&TKxDBVector::LoadAgain>(this);
    FDataLink.OnActiveChange = TEvent<>::Bind<&TKxDBVector::UpdateVector>(this);
}

TKxDBVector::~TKxDBVector()
{
    BeginDestroy();
}

void TKxDBVector::SetDataSource(TDataSource* source)
{
    FDataLink.SetDataSource(source);
    if (source)
        UpdateVector();
}

void TKxDBVector::SetDataField(std::string_view name)
{
    FDataLink.SetFieldName(name);
    UpdateVector();
}

void TKxDBVector::Notification(TComponent* component, TOperation operation)
{
    TKxCustomRealVector::Notification(component, operation);
    if (operation == opRemove && component == GetDataSource())
        SetDataSource(nullptr);
}

void TKxDBVector::UpdateVector()
{
    const int field = FDataLink.Field();
    if (field < 0 || FDataLink.DataSet()->ControlsDisabled())
        return;
    TDataSet& dataSet = *FDataLink.DataSet();
    WithControlsDisabled(dataSet, [&] { LoadRecords(dataSet, field); });
}

void TKxDBVector::LoadRecords(TDataSet& dataSet, int field)
{
    const int current = dataSet.GetRecNo();
    dataSet.First();
    const int first = dataSet.GetRecNo();
    const auto back = [&] { current > first ? dataSet.SetRecNo(current) : dataSet.First(); };
    try {
        Store().Refill(dataSet.ReadField(field));
        FTrouble.clear();
    } catch (const std::exception& error) {
        FTrouble = error.what();
        back();
        throw;
    }
    FFirstRecNo = first;
    back();
    ChangedList().Call(-1, true);
}

void TKxDBVector::RecordChanged()
{
    if (FDataLink.Field() < 0)
        return;
    const TDataSet& dataSet = *FDataLink.DataSet();
    if (!dataSet.IsEditing() || !dataSet.IsModified())
        return;
    if (FTrouble.empty())
        SetRecord(dataSet.GetRecNo());
    else
        LoadAgain();
}

void TKxDBVector::LoadAgain()
{
    const std::string known = FTrouble;
    try {
        UpdateVector();
    } catch (const EError& error) {
        if (error.Message() != known)
            throw;
    }
}

void TKxDBVector::SetRecord(int recNo)
{
    const int field = FDataLink.Field();
    if (field < 0)
        return;
    TDataSet& dataSet = *FDataLink.DataSet();
    const double value = dataSet.FieldReal(field);
    const int index = recNo < 0 ? dataSet.RecordCount() : FindIdx(recNo);
    TKxCustomRealVector::SetValue(index, value);
    ChangedList().Call(index, false);
}

int TKxDBVector::FindIdx(int recNo)
{
    if (!FDataLink.IsActive() || FDataLink.DataSet()->IsSequenced())
        return recNo - FFirstRecNo;
    TDataSet& dataSet = *FDataLink.DataSet();
    int index = 0;
    WithControlsDisabled(dataSet, [&] {
        const int current = dataSet.GetRecNo();
        for (dataSet.First(); !dataSet.IsEnd() && dataSet.GetRecNo() != recNo; dataSet.Next())
            ++index;
        dataSet.SetRecNo(current);
    });
    return index;
}

}  // namespace plotkit
