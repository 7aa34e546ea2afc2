// The job of Application is the unnamed component at the root of all component paths.
#pragma once

#include "host/Component.h"

namespace plotkit {

class TApplication : public TComponent
{
public:
    using TComponent::TComponent;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The component with the given path of names joined by "."; nullptr when a part is not found.
    TComponent* FindByPath(std::string_view path) const;
};

/// The one application of the process. Forms that are to be found by path are owned by it.
TApplication& Application();

}  // namespace plotkit
