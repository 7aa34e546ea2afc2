// The job of KxExtraVector is a vector that a series follows beside its two: errors, displacements.
#pragma once

#include <span>

#include "data/KxPointVector.h"
#include "data/KxVector.h"

namespace plotkit {

class TKxSeries;

struct TKxExtraVector
{
    bool IsX = true;  ///< whose changes are told like those of abscissae
    TKxCustomRealVector* Data = nullptr;
    TKxIntegerVector Pixels;  ///< what the series makes of the values, beside its points

    int Count() const { return Data ? Data->GetCount() : 0; }
};

/// Links a vector in place of the one that `extra`, one of `all` of the series, has; while designing an empty one gets
/// sample values.
void LinkExtraVector(TKxSeries& series, std::span<TKxExtraVector> all, TKxExtraVector& extra,
                     TKxCustomRealVector* vector);
/// One of the series' own two vectors is no longer `before`, which may still be one of the extra ones.
void KeepExtraVector(TKxSeries& series, std::span<TKxExtraVector> all, bool isX, const TKxCustomRealVector* before);
/// The series goes: it no longer listens to any of the vectors.
void LeaveExtraVectors(TKxSeries& series, std::span<TKxExtraVector> all);
/// A component goes; true when it was among the vectors.
bool ForgetExtraVector(std::span<TKxExtraVector> all, const TComponent* component);
/// Whether changes of all the vectors that are linked are told.
bool AreFollowed(std::span<const TKxExtraVector> all, bool areX);

}  // namespace plotkit
