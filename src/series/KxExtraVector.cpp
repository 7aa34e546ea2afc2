#include "series/KxExtraVector.h"

#include <algorithm>

#include "host/Host.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

constexpr int SampleCount = 10;

TKxValueIChangedEvent EventOf(TKxSeries& series, const TKxExtraVector& extra)
{
    return extra.IsX ? TKxValueIChangedEvent::Bind<&TKxSeries::FOnXIChanged>(&series)
                     : TKxValueIChangedEvent::Bind<&TKxSeries::FOnYIChanged>(&series);
}

}  // namespace

void LinkExtraVector(TKxSeries& series, std::span<TKxExtraVector> all, TKxExtraVector& extra,
                     TKxCustomRealVector* vector)
{
    if (vector == extra.Data)
        return;
    TKxCustomRealVector* const before = extra.Data;
    extra.Data = vector;
    extra.Pixels.Clear();
    // One vector may serve in several places, where one entry in its list does for all.
    const bool isUsed = before == (extra.IsX ? series.GetXData() : series.GetYData()) ||
                        std::any_of(all.begin(), all.end(), [&](const TKxExtraVector& other) {
                            return other.IsX == extra.IsX && other.Data == before;
                        });
    if (before && !isUsed)
        before->ChangedList().Remove(EventOf(series, extra));
    series.WatchFor(vector);
    if (vector)
        vector->ChangedList().Add(EventOf(series, extra));
    if (!series.IsDesigning())
        return series.RangesModified();
    if (vector && vector->GetCount() == 0)
        for (int i = 0; i < SampleCount; ++i)
            vector->SetValue(i, Host().Random() * 5 + 5);
    series.DsgnUpdate();
}

void KeepExtraVector(TKxSeries& series, std::span<TKxExtraVector> all, bool isX, const TKxCustomRealVector* before)
{
    if (before == (isX ? series.GetXData() : series.GetYData()))
        return;
    for (TKxExtraVector& extra : all)
        if (extra.Data && extra.Data == before && extra.IsX == isX)
            extra.Data->ChangedList().Add(EventOf(series, extra));
}

void LeaveExtraVectors(TKxSeries& series, std::span<TKxExtraVector> all)
{
    for (TKxExtraVector& extra : all)
        if (extra.Data)
            extra.Data->ChangedList().Remove(EventOf(series, extra));
}

bool ForgetExtraVector(std::span<TKxExtraVector> all, const TComponent* component)
{
    bool isGone = false;
    for (TKxExtraVector& extra : all)
        if (extra.Data && extra.Data == component) {
            extra.Data = nullptr;
            extra.Pixels.Clear();
            isGone = true;
        }
    return isGone;
}

bool AreFollowed(std::span<const TKxExtraVector> all, bool areX)
{
    return std::all_of(all.begin(), all.end(), [areX](const TKxExtraVector& extra) {
        return extra.IsX != areX || !extra.Data || dynamic_cast<const TKxLiveVector*>(extra.Data);
    });
}

}  // namespace plotkit
