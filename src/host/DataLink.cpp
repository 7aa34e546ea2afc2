#include "host/DataLink.h"

#include <algorithm>
#include <exception>

namespace plotkit {

namespace {

constexpr std::array DataSourceProperties{
    Reference<&TDataSource::GetDataSet, &TDataSource::SetDataSet>("DataSet"),
};

}  // namespace

constinit const TClassInfo TDataSource::Class{"TDataSource", &TComponent::Class, DataSourceProperties,
                                              &CreateComponent<TDataSource>};

TDataSource::~TDataSource()
{
    BeginDestroy();
    SetDataSet(nullptr);
    for (TFieldDataLink* const link : FLinks)
        link->FSource = nullptr;
}

void TDataSource::SetDataSet(TDataSet* dataSet)
{
    if (dataSet == FDataSet)
        return;
    if (FDataSet) {
        std::erase(FDataSet->FSources, this);
        StopWatching(FDataSet);
    }
    FDataSet = dataSet;
    if (FDataSet) {
        FDataSet->FSources.push_back(this);
        WatchFor(FDataSet);
    }
    if (!IsDestroying())
        Tell(dnActive);
}

void TDataSource::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FDataSet)
        SetDataSet(nullptr);
}

void TDataSource::Tell(TDataNote note)
{
    const auto life = Lifeline().Watch();
    std::exception_ptr failure;
    for (TFieldDataLink* const link : std::vector(FLinks)) {
        if (life.expired())
            break;
        if (std::ranges::find(FLinks, link) == FLinks.end())
            continue;
        const TEvent<> told = note == dnActive   ? link->OnActiveChange
                              : note == dnUpdate ? link->OnUpdateData
                                                 : link->OnDataChange;
        try {
            told();
        } catch (...) {
            failure = failure ? failure : std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

TFieldDataLink::~TFieldDataLink()
{
    SetDataSource(nullptr);
}

void TFieldDataLink::SetDataSource(TDataSource* source)
{
    if (source == FSource)
        return;
    if (FSource) {
        std::erase(FSource->FLinks, this);
        FControl.StopWatching(FSource);
    }
    FSource = source;
    if (FSource) {
        FSource->FLinks.push_back(this);
        FControl.WatchFor(FSource);
    }
}

}  // namespace plotkit
