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
};

}  // namespace plotkit
