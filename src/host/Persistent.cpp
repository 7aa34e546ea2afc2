#include "host/Persistent.h"

#include "host/Errors.h"

namespace plotkit {

constinit const TClassInfo TPersistent::Class{"TPersistent"};

void TPersistent::Assign(const TPersistent&)
{
    throw EConvertError("Cannot be assigned to " + std::string(ClassInfo().Name));
}

}  // namespace plotkit
