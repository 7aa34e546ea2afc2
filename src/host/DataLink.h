// The job of DataLink is to connect components with a field of a data set, through a data source that they share.
#pragma once

#include "host/DataSet.h"

namespace plotkit {

class TFieldDataLink;

/// Where components look for their data set, so that it can be exchanged in one place.
class TDataSource : public TComponent
{
public:
    explicit TDataSource(TComponent* owner) : TComponent(owner) {}
    ~TDataSource() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TDataSet* GetDataSet() const { return FDataSet; }
    void SetDataSet(TDataSet* dataSet);

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TDataSet;
    friend class TFieldDataLink;

    /// Every link hears it; the first error of one is raised when all have.
    void Tell(TDataNote note);

    TDataSet* FDataSet = nullptr;
    std::vector<TFieldDataLink*> FLinks;
};

/// Part of the component that shows the field. That component, the control, is notified of the removal of the data
/// source and clears it then.
class TFieldDataLink
{
public:
    explicit TFieldDataLink(TComponent& control) : FControl(control) {}
    TFieldDataLink(const TFieldDataLink&) = delete;
    TFieldDataLink& operator=(const TFieldDataLink&) = delete;
    ~TFieldDataLink();

    TComponent& Control() const { return FControl; }
    TDataSource* GetDataSource() const { return FSource; }
    void SetDataSource(TDataSource* source);
    const std::string& GetFieldName() const { return FFieldName; }
    void SetFieldName(std::string_view name) { FFieldName = name; }

    /// nullptr when there is none.
    TDataSet* DataSet() const { return FSource ? FSource->GetDataSet() : nullptr; }
    /// Whether the data set is there and open.
    bool IsActive() const { return DataSet() && DataSet()->GetActive(); }
    /// The field's number in an open data set; -1 when it does not exist.
    int Field() const { return IsActive() && !FFieldName.empty() ? DataSet()->FindField(FFieldName) : -1; }

    TEvent<> OnDataChange;    ///< the current record is another one or changed
    TEvent<> OnUpdateData;    ///< there may be other records
    TEvent<> OnActiveChange;  ///< the data set was opened, closed or exchanged

private:
    friend class TDataSource;

    TComponent& FControl;
    TDataSource* FSource = nullptr;
    std::string FFieldName;
};

}  // namespace plotkit
