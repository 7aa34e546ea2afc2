#include "series/SeriesClasses.h"

#include <array>

#include "series/KxDataSeries.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 2> Classes{&TKxLineSeries::Class, &TKxDataSeries::Class};

}  // namespace

std::span<const TClassInfo* const> SeriesClasses()
{
    return Classes;
}

}  // namespace plotkit
