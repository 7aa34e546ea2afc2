// The job of Persistent is the base of everything that has published properties.
#pragma once

#include "host/Property.h"

namespace plotkit {

class TPersistent
{
public:
    TPersistent() = default;
    TPersistent(const TPersistent&) = delete;
    TPersistent& operator=(const TPersistent&) = delete;
    virtual ~TPersistent() = default;

    static const TClassInfo Class;
    virtual const TClassInfo& ClassInfo() const { return Class; }

    /// Takes over what `source` holds. This base knows no source: EConvertError "Cannot be assigned to " + class name.
    virtual void Assign(const TPersistent& source);
};

}  // namespace plotkit
