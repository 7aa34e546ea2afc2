// The job of TextLabel is the base of window-less controls that show a text.
#pragma once

#include "host/Control.h"

namespace plotkit {

class TTextLabel : public TGraphicControl
{
public:
    explicit TTextLabel(TComponent* owner);

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool transparent);
    bool GetAutoSize() const { return FAutoSize; }
    bool IsNotAutoSize() const { return !FAutoSize; }
    virtual void SetAutoSize(bool autoSize);
    /// Sizes the control to its text while `AutoSize` is on.
    virtual void AdjustBounds();
    void Loaded() override;

protected:
    void Paint() override;
    void CMTextChanged() override;
    void CMFontChanged() override;
    void CMScaleChanged() override { AdjustBounds(); }

private:
    bool FTransparent = false;
    bool FAutoSize = true;
};

}  // namespace plotkit
