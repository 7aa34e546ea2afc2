#include "series/SeriesClasses.h"

#include <array>

#include "series/KxArrowSeries.h"
#include "series/KxBarSeries.h"
#include "series/KxDataWithErrorSeries.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 5> Classes{&TKxLineSeries::Class, &TKxDataSeries::Class,
                                                   &TKxDataWithErrorSeries::Class, &TKxBarSeries::Class,
                                                   &TKxArrowSeries::Class};

}  // namespace

std::span<const TClassInfo* const> SeriesClasses()
{
    return Classes;
}

}  // namespace plotkit
