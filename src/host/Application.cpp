#include "host/Application.h"

#include "host/ComponentPath.h"

namespace plotkit {

constinit const TClassInfo TApplication::Class{"TApplication", &TComponent::Class};

TComponent* TApplication::FindByPath(std::string_view path) const
{
    return FindInside(*this, path);
}

TApplication& Application()
{
    // Never destroyed: what it owns may need other globals that the end of the process takes down first.
    static TApplication& application = *new TApplication(nullptr);
    return application;
}

}  // namespace plotkit
