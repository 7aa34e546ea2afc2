#include <array>

#include "host/DataLink.h"
#include "host/Form.h"
#include "host/MemoryDataSet.h"
#include "host/Panel.h"
#include "host/Streaming.h"
#include "host/UpDown.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 5> Classes{
    &TForm::Class, &TPanel::Class, &TUpDown::Class, &TDataSource::Class, &TMemoryDataSet::Class,
};

}  // namespace

std::span<const TClassInfo* const> HostClasses()
{
    return Classes;
}

}  // namespace plotkit
