#include "host/WindowControl.h"

#include "host/Errors.h"
#include "host/PixelMath.h"
#include "host/Restore.h"

namespace plotkit {

constinit const TClassInfo TWindowControl::Class{"TWindowControl", &TControl::Class};

TWindowControl::TWindowControl(TComponent* owner) : TControl(owner) {}

TWindowControl::~TWindowControl()
{
    BeginDestroy();
    DestroyControls();
}

void TWindowControl::DestroyControls()
{
    while (!FControls.empty()) {
        TControl* control = FControls.back();
        if (control->Owner())
            delete control;
        else
            control->SetParent(nullptr);
    }
}

void TWindowControl::SetParent(TWindowControl* parent)
{
    TControl::SetParent(parent);
    if (!parent)
        return;
    // Only the top of a tree has to do with the pointer.
    ChangeFocus(nullptr);
    FCaptured = FClickTarget = FUnderPointer = nullptr;
    FButtons = 0;
    if (parent->HasWindow())
        WindowNeeded();
}

void TWindowControl::InsertControl(TControl* control)
{
    control->FParent = this;
    FControls.insert(FControls.begin(), control);
    MoveInOrder(control, true);
}

void TWindowControl::RemoveControl(TControl* control)
{
    RootOfThis().Forget(control);
    std::erase(FControls, control);
    control->FParent = nullptr;
    WantPaint();
    AlignControls();
}

void TWindowControl::MoveInOrder(TControl* control, bool toFront)
{
    const auto isWindow = [](const TControl* c) { return dynamic_cast<const TWindowControl*>(c) != nullptr; };
    const std::vector<TControl*> before = FControls;
    std::erase(FControls, control);
    const auto firstWindow = std::find_if(FControls.begin(), FControls.end(), isWindow);
    if (isWindow(control))
        FControls.insert(toFront ? FControls.end() : firstWindow, control);
    else
        FControls.insert(toFront ? firstWindow : FControls.begin(), control);
    if (FControls != before)
        WantPaint();
}

void TWindowControl::EnableAlign()
{
    if (FAlignSuspended > 0 && --FAlignSuspended == 0)
        AlignControls();
}

std::vector<TControl*> TWindowControl::AlignedControls(TAlign align) const
{
    std::vector<TControl*> found;
    for (TControl* control : FControls)
        if (control->FVisible && control->FAlign == align)
            found.push_back(control);
    // The one that stands nearest to its edge keeps the place next to it.
    std::stable_sort(found.begin(), found.end(), [align](const TControl* a, const TControl* b) {
        switch (align) {
            case alTop:
                return a->FBounds.Top < b->FBounds.Top;
            case alBottom:
                return a->FBounds.Bottom > b->FBounds.Bottom;
            case alLeft:
                return a->FBounds.Left < b->FBounds.Left;
            case alRight:
                return a->FBounds.Right > b->FBounds.Right;
            default:
                return false;
        }
    });
    return found;
}

namespace {

/// Gives the control its side of `free` and takes that away.
void PlaceAligned(TControl& control, TRect& free)
{
    const int width = std::max(SaturatePixel(std::int64_t{free.Right} - free.Left), 0);
    const int height = std::max(SaturatePixel(std::int64_t{free.Bottom} - free.Top), 0);
    switch (control.GetAlign()) {
        case alTop:
            control.SetBounds(free.Left, free.Top, width, control.GetHeight());
            free.Top = AddPixels(free.Top, control.GetHeight());
            break;
        case alBottom:
            free.Bottom = AddPixels(free.Bottom, -control.GetHeight());
            control.SetBounds(free.Left, free.Bottom, width, control.GetHeight());
            break;
        case alLeft:
            control.SetBounds(free.Left, free.Top, control.GetWidth(), height);
            free.Left = AddPixels(free.Left, control.GetWidth());
            break;
        case alRight:
            free.Right = AddPixels(free.Right, -control.GetWidth());
            control.SetBounds(free.Right, free.Top, control.GetWidth(), height);
            break;
        case alClient:
            control.SetBounds(free.Left, free.Top, width, height);
            break;
        case alNone:
            break;
    }
}

}  // namespace

void TWindowControl::AlignControls()
{
    // While the resolution changes, the controls are aligned together once all of them have it.
    if (!Root().FScaling)
        PlaceControls();
}

void TWindowControl::PlaceControls()
{
    if (FAlignSuspended > 0 || FAligning || IsLoading() || IsDestroying())
        return;
    const TRestore aligning(FAligning, true);
    TRect free = ClientRect();
    for (const TAlign align : {alTop, alBottom, alLeft, alRight, alClient})
        for (TControl* control : AlignedControls(align))
            PlaceAligned(*control, free);
}

void TWindowControl::AlignTree()
{
    PlaceControls();
    for (TControl* control : FControls)
        if (auto* window = dynamic_cast<TWindowControl*>(control))
            window->AlignTree();
}

void TWindowControl::SetBounds(int left, int top, int width, int height)
{
    TControl::SetBounds(left, top, width, height);
    AlignControls();
}

void TWindowControl::WindowNeeded()
{
    if (FHasWindow || FCreatingWindow || IsLoading() || IsDestroying())
        return;
    if (TWindowControl* parent = Parent()) {
        parent->WindowNeeded();
        if (!parent->FHasWindow || FHasWindow)
            return;
    } else if (!FIsRoot) {
        return;
    }
    const TRestore creating(FCreatingWindow, true);
    CreateWindow();
}

void TWindowControl::CreateWindow()
{
    FHasWindow = true;
    for (TControl* control : std::vector(FControls))
        if (auto* window = dynamic_cast<TWindowControl*>(control))
            window->WindowNeeded();
}

void TWindowControl::MakeRoot()
{
    FIsRoot = true;
}

void TWindowControl::SetSite(TControlSite* site)
{
    FSite = site;
    if (!site)
        return;
    MakeRoot();
    WindowNeeded();
}

void TWindowControl::SetPixelScale(double scale)
{
    if (!(scale > 0 && scale <= 1000))
        throw ERangeError("A resolution must be positive");
    TWindowControl& root = RootOfThis();
    if (root.FPixelScale == scale)
        return;
    root.FPixelScale = scale;
    root.FOverlay.Clear();  // its pixels are those of the former resolution
    root.ScaleTo(scale);
}

void TWindowControl::CMFontChanged()
{
    TControl::CMFontChanged();
    for (TControl* control : FControls)
        control->FollowParent();
}

void TWindowControl::CMColorChanged()
{
    TControl::CMColorChanged();
    for (TControl* control : FControls)
        control->FollowParent();
}

void TWindowControl::Loaded()
{
    TControl::Loaded();
    AlignControls();
    WindowNeeded();
}

std::vector<TComponent*> TWindowControl::StreamedChildren(const TComponent& root) const
{
    std::vector<TComponent*> children;
    for (TControl* control : FControls)
        if (control->Owner() == &root)
            children.push_back(control);
    if (&root != this)
        return children;
    for (TComponent* component : Components()) {
        const auto* control = dynamic_cast<const TControl*>(component);
        if (!control || !control->Parent())
            children.push_back(component);
    }
    return children;
}

}  // namespace plotkit
