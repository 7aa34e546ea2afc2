#include <array>

#include "host/Form.h"
#include "host/Panel.h"
#include "host/Streaming.h"
#include "host/UpDown.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 3> Classes{
    &TForm::Class,
    &TPanel::Class,
    &TUpDown::Class,
};

}  // namespace

std::span<const TClassInfo* const> HostClasses()
{
    return Classes;
}

}  // namespace plotkit
