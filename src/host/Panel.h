// The job of Panel is a windowed container that fills itself with its colour.
#pragma once

#include "host/WindowControl.h"

namespace plotkit {

class TPanel : public TWindowControl
{
public:
    explicit TPanel(TComponent* owner);

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

protected:
    void Paint() override;
};

}  // namespace plotkit
