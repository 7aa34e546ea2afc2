#include <array>

#include "host/Form.h"
#include "host/Panel.h"
#include "host/Streaming.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 2> Classes{
    &TForm::Class,
    &TPanel::Class,
};

}  // namespace

std::span<const TClassInfo* const> HostClasses()
{
    return Classes;
}

}  // namespace plotkit
