// The job of ControlSite is what a control tree tells the place where it is shown.
#pragma once

namespace plotkit {

class TControl;

/// Where a control tree is shown. A host's widget implements it for the root.
class TControlSite
{
public:
    TControlSite() = default;
    TControlSite(const TControlSite&) = delete;
    TControlSite& operator=(const TControlSite&) = delete;
    virtual ~TControlSite() = default;

    /// Something in the tree wants to be painted again.
    virtual void TreeInvalidated() = 0;
    /// Only parts of the picture look different, which whoever keeps it can paint alone.
    virtual void TreePartsInvalidated() { TreeInvalidated(); }
    /// The overlay changed; the picture did not.
    virtual void OverlayChanged() = 0;
    /// The control under the pointer, or its cursor or hint, changed.
    virtual void PointerChanged(TControl* under) = 0;
};

}  // namespace plotkit
