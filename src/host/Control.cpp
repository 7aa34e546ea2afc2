#include "host/Control.h"

#include <cmath>

#include "host/CheckedMath.h"
#include "host/Errors.h"
#include "host/PixelMath.h"
#include "host/Restore.h"
#include "host/WindowControl.h"

namespace plotkit {

namespace {

constexpr std::array ControlProperties{
    Property<&TControl::GetLeft, &TControl::SetLeft>("Left").Pixels(),
    Property<&TControl::GetTop, &TControl::SetTop>("Top").Pixels(),
    Property<&TControl::GetWidth, &TControl::SetWidth>("Width").Pixels(),
    Property<&TControl::GetHeight, &TControl::SetHeight>("Height").Pixels(),
    Property<&TControl::GetAlign, &TControl::SetAlign>("Align"),
    Property<&TControl::GetCursor, &TControl::SetCursor>("Cursor"),
    Property<&TControl::GetHint, &TControl::SetHint>("Hint"),
    Property<&TControl::GetShowHint, &TControl::SetShowHint>("ShowHint"),
};

/// `ScalePixels` for positions that were given at another resolution and are no whole 1/96 inches.
int ScaleStored(double value, double scale)
{
    const int scaled = RoundToInt(value * scale);
    return scaled == 0 && value != 0 ? (value < 0 ? -1 : 1) : scaled;
}

}  // namespace

constinit const TClassInfo TControl::Class{"TControl", &TComponent::Class, ControlProperties};
constinit const TClassInfo TGraphicControl::Class{"TGraphicControl", &TControl::Class};

struct TControl::TScratch
{
    TOverlay Overlay;
    TCanvas Canvas{Overlay, Host().TextMeasurer()};
};

TControl::TControl(TComponent* owner) : TComponent(owner)
{
    FFont.OnChanged = TEvent<>::Bind<&TControl::FontChanged>(this);
}

TControl::~TControl()
{
    BeginDestroy();
    if (FParent)
        FParent->RemoveControl(this);
}

TControl& TControl::Root()
{
    TControl* top = this;
    while (top->FParent)
        top = top->FParent;
    return *top;
}

TWindowControl* TControl::RootWindow()
{
    // What others stand in is a window. Every change of live data comes here.
    return FParent ? static_cast<TWindowControl*>(&Root()) : dynamic_cast<TWindowControl*>(this);
}

void TControl::SetParent(TWindowControl* parent)
{
    if (FParent == parent)
        return;
    for (const TControl* outer = parent; outer; outer = outer->FParent)
        if (outer == this)
            throw EComponentError("A control cannot stand in itself");
    const double scale = PixelScale();
    Invalidate();
    if (FParent)
        FParent->RemoveControl(this);
    if (parent)
        parent->InsertControl(this);
    if (PixelScale() != scale)
        ScaleTo(PixelScale());
    FollowParent();
    if (parent)
        parent->AlignControls();
    Invalidate();
}

void TControl::SetBounds(int left, int top, int width, int height)
{
    const TRect bounds{left, top, AddPixels(left, std::max(width, 0)), AddPixels(top, std::max(height, 0))};
    if (bounds == FBounds)
        return;
    const TRect before = FBounds;
    FBounds = bounds;
    StoreBounds(before);
    if (FParent)
        FParent->AlignControls();
    Invalidate();
}

void TControl::StoreBounds(const TRect& before)
{
    if (Root().FScaling)
        return;
    // What did not move keeps its exact place, so that another resolution and back changes nothing.
    const double scale = PixelScale();
    if (before.Left != FBounds.Left)
        FStored.Left = FBounds.Left / scale;
    if (before.Top != FBounds.Top)
        FStored.Top = FBounds.Top / scale;
    if (before.Width() != FBounds.Width())
        FStored.Width = FBounds.Width() / scale;
    if (before.Height() != FBounds.Height())
        FStored.Height = FBounds.Height() / scale;
}

TPoint TControl::OriginInRoot() const
{
    TPoint origin;
    for (const TControl* control = this; control->FParent; control = control->FParent)
        origin = MovePoint(origin, control->FBounds.TopLeft());
    return origin;
}

void TControl::SetVisible(bool visible)
{
    if (FVisible == visible)
        return;
    FVisible = visible;
    if (TWindowControl* root = RootWindow(); root && !visible)
        root->Forget(this);
    CMVisibleChanged();
    AnnounceShowing();
    if (FParent)
        FParent->AlignControls();
}

bool TControl::IsShowing() const
{
    return FVisible && (!FParent || FParent->IsShowing());
}

void TControl::AnnounceShowing()
{
    CMShowingChanged();
    if (auto* window = dynamic_cast<TWindowControl*>(this))
        for (TControl* control : std::vector(window->Controls()))
            control->AnnounceShowing();
}

void TControl::SetEnabled(bool enabled)
{
    if (FEnabled == enabled)
        return;
    FEnabled = enabled;
    if (TWindowControl* root = RootWindow(); root && !enabled)
        root->Forget(this);
    Invalidate();
}

void TControl::SetAlign(TAlign align)
{
    if (FAlign == align)
        return;
    FAlign = align;
    if (FParent)
        FParent->AlignControls();
}

void TControl::SetColor(TColor color)
{
    if (FColor == color)
        return;
    FColor = color;
    FParentColor = false;
    CMColorChanged();
}

void TControl::SetParentColor(bool follow)
{
    FParentColor = follow;
    FollowParent();
}

void TControl::SetParentFont(bool follow)
{
    FParentFont = follow;
    FollowParent();
}

void TControl::FollowParent()
{
    // What is being loaded starts from its class' own look and follows at the end.
    if (!FParent || IsLoading() || FFollowingParent)
        return;
    if (FParentColor && FColor != FParent->FColor) {
        FColor = FParent->FColor;
        CMColorChanged();
    }
    if (!FParentFont)
        return;
    const TRestore following(FFollowingParent, true);
    FFont.SetState(FParent->FFont.State());
}

void TControl::FontChanged()
{
    if (FTakingScale)
        return;
    {
        const TRestore taking(FTakingScale, true);
        FFont.SetPixelsPerInch(96 * PixelScale());
    }
    if (!FFollowingParent)
        FParentFont = false;
    CMFontChanged();
}

void TControl::CMFontChanged()
{
    Invalidate();
}

void TControl::SetText(const std::string& text)
{
    if (FText == text)
        return;
    FText = text;
    CMTextChanged();
}

void TControl::SetCursor(TCursor cursor)
{
    if (FCursor == cursor)
        return;
    FCursor = cursor;
    if (TWindowControl* root = RootWindow())
        root->PointerLooksChanged(this);
}

void TControl::SetHint(const std::string& hint)
{
    if (FHint == hint)
        return;
    FHint = hint;
    if (TWindowControl* root = RootWindow())
        root->PointerLooksChanged(this);
}

void TControl::SetPopupMenu(TComponent* menu)
{
    if (FPopupMenu == menu)
        return;
    if (FPopupMenu)
        StopWatching(FPopupMenu);
    FPopupMenu = menu;
    WatchFor(menu);
}

void TControl::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FPopupMenu)
        FPopupMenu = nullptr;
}

void TControl::BringToFront()
{
    if (FParent)
        FParent->MoveInOrder(this, true);
}

void TControl::SendToBack()
{
    if (FParent)
        FParent->MoveInOrder(this, false);
}

void TControl::Invalidate()
{
    if (TWindowControl* root = RootWindow())
        root->WantPaint();
}

void TControl::InvalidatePart()
{
    if (TWindowControl* root = RootWindow())
        root->WantPartPaint(*this);
}

TCanvas& TControl::Canvas()
{
    TWindowControl* root = RootWindow();
    if (!root || !root->FPaintCanvas)
        return OverlayCanvas();
    root->FPaintCanvas->SetOrigin(MovePoint(root->FPaintBase, MovePoint(OriginInRoot(), FCanvasOrigin)));
    return *root->FPaintCanvas;
}

TCanvas& TControl::OverlayCanvas()
{
    TWindowControl* root = RootWindow();
    if (!root) {
        if (!FScratch || &FScratch->Canvas.Measurer() != &Host().TextMeasurer())
            FScratch = std::make_unique<TScratch>();
        FScratch->Canvas.SetOrigin(FCanvasOrigin);
        return FScratch->Canvas;
    }
    TCanvas& canvas = root->CanvasOfOverlay();
    const auto* self = dynamic_cast<const TWindowControl*>(this);
    canvas.SetWindowClip((self ? self : FParent)->ClipInRoot());
    canvas.SetOrigin(MovePoint(OriginInRoot(), FCanvasOrigin));
    return canvas;
}

double TControl::PixelScale() const
{
    const auto* root = dynamic_cast<const TWindowControl*>(&Root());
    return root ? root->OwnPixelScale() : 1;
}

void TControl::ScaleTo(double scale)
{
    TControl& top = Root();
    {
        const TRestore scaling(top.FScaling, true);
        TakeScale(scale);
        if (auto* window = dynamic_cast<TWindowControl*>(this))
            window->AlignTree();
        AnnounceScale();
    }
    Invalidate();
}

void TControl::TakeScale(double scale)
{
    {
        const TRestore taking(FTakingScale, true);
        FFont.SetPixelsPerInch(96 * scale);
    }
    SetBounds(ScaleStored(FStored.Left, scale), ScaleStored(FStored.Top, scale), ScaleStored(FStored.Width, scale),
              ScaleStored(FStored.Height, scale));
    if (auto* window = dynamic_cast<TWindowControl*>(this))
        for (TControl* control : window->Controls())
            control->TakeScale(scale);
}

void TControl::AnnounceScale()
{
    CMScaleChanged();
    if (auto* window = dynamic_cast<TWindowControl*>(this))
        for (TControl* control : std::vector(window->Controls()))
            control->AnnounceScale();
}

bool TControl::IsColorStored() const
{
    if (FParentColor || !ClassInfo().Create)
        return !FParentColor;
    return FColor != static_cast<const TControl&>(Prototype(ClassInfo())).FColor;
}

void TControl::SetStreamedInside(TComponent* outer)
{
    // Inside of what can hold no control it would lose its place when the tree is written again.
    auto* parent = dynamic_cast<TWindowControl*>(outer);
    if (const auto* beside = dynamic_cast<TControl*>(outer); beside && !parent)
        parent = beside->Parent();
    if (!parent)
        parent = dynamic_cast<TWindowControl*>(Owner());
    if (parent)
        SetParent(parent);
}

void TControl::Loaded()
{
    TComponent::Loaded();
    FollowParent();
}

}  // namespace plotkit
