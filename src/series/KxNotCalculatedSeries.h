// The job of KxNotCalculatedSeries is to tell the series that plot vectors as they are from those that are computed.
#pragma once

#include "series/KxSeries.h"

namespace plotkit {

/// Calculated series take only such as parents.
class TKxNotCalculatedSeries : public TKxSeries
{
public:
    using TKxSeries::TKxSeries;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

protected:
    /// Takes the primary axes of the last graph among the owner's components.
    void AttachToGraphOfOwner();
};

}  // namespace plotkit
