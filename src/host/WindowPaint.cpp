#include "host/KeptPicture.h"
#include "host/PixelMath.h"
#include "host/Restore.h"
#include "host/VectorState.h"
#include "host/WindowControl.h"

namespace plotkit {

namespace {

constexpr int MaxPasses = 8;

}  // namespace

void TWindowControl::TTreeOverlay::Add(TDrawCommand command)
{
    TOverlay::Add(std::move(command));
    if (FRoot.FSite && !FRoot.IsDestroying())
        FRoot.FSite->OverlayChanged();
}

/// Makes `canvas` the one that a tree is painted on, and puts everything back at the end, whatever happened.
struct TWindowControl::TPaintScope
{
    TPaintScope(TWindowControl& root, TCanvas& canvas, TPoint base)
        : Root(root),
          Canvas(canvas),
          OuterCanvas(root.FPaintCanvas),
          OuterBase(root.FPaintBase),
          Origin(canvas.Origin()),
          WindowClip(canvas.WindowClip())
    {
        Root.FPaintCanvas = &canvas;
        Root.FPaintBase = base;
    }
    TPaintScope(const TPaintScope&) = delete;
    TPaintScope& operator=(const TPaintScope&) = delete;
    ~TPaintScope()
    {
        Root.FPaintCanvas = OuterCanvas;
        Root.FPaintBase = OuterBase;
        Canvas.SetOrigin(Origin);
        Canvas.RemoveClip();
        Canvas.SetWindowClip(WindowClip);
    }

    TWindowControl& Root;
    TCanvas& Canvas;
    TCanvas* OuterCanvas;
    TPoint OuterBase, Origin;
    TRect WindowClip;
};

void TWindowControl::WantPaint()
{
    if (Parent())
        return RootOfThis().WantPaint();
    FNeedsPaint = true;
    if (FSite && !FSettling && !IsDestroying())
        FSite->TreeInvalidated();
}

void TWindowControl::WantPartPaint(TControl& control)
{
    if (Parent())
        return RootOfThis().WantPartPaint(control);
    FPartsWanted = true;
    if (FNeedsPaint || !FKeeper || !FSite)
        return WantPaint();
    if (std::find(FChangedParts.begin(), FChangedParts.end(), &control) == FChangedParts.end())
        FChangedParts.push_back(&control);
    if (!IsDestroying())
        FSite->TreePartsInvalidated();
}

TCanvas& TWindowControl::CanvasOfOverlay()
{
    const TTextMeasurer& measurer = Host().TextMeasurer();
    if (!FOverlayCanvas || &FOverlayCanvas->Measurer() != &measurer || FOverlayCanvas->Scale() != FPixelScale)
        FOverlayCanvas = std::make_unique<TCanvas>(FOverlay, measurer, FPixelScale);
    return *FOverlayCanvas;
}

TRect TWindowControl::ClipInRoot() const
{
    TRect clip = MoveBox(ClientRect(), OriginInRoot());
    for (const TWindowControl* outer = Parent(); outer; outer = outer->Parent())
        clip = clip.Intersected(MoveBox(outer->ClientRect(), outer->OriginInRoot()));
    return clip;
}

void TWindowControl::PaintTo(TCanvas& canvas)
{
    RootOfThis().MakeRoot();
    WindowNeeded();
    const TPoint own = OriginInRoot();
    const TPoint base =
        MovePoint(canvas.Origin(), {SaturatePixel(-std::int64_t{own.X}), SaturatePixel(-std::int64_t{own.Y})});
    // What is painted elsewhere is no longer what the keeper of a picture has.
    RootOfThis().FKeeper = nullptr;
    RootOfThis().FChangedParts.clear();
    const TPaintScope scope(RootOfThis(), canvas, base);
    PaintTree(*this, canvas, canvas.WindowClip().Intersected(MoveBox(ClientRect(), canvas.Origin())));
}

void TWindowControl::PaintTree(TControl& control, TCanvas& canvas, const TRect& clip)
{
    const auto alive = control.Lifeline().Watch();
    PaintOne(control, canvas, clip);
    auto* window = alive.expired() ? nullptr : dynamic_cast<TWindowControl*>(&control);
    if (!window)
        return;
    // A paint may move its siblings in the order, or make and destroy some.
    for (TControl* child : std::vector(window->FControls)) {
        if (std::find(window->FControls.begin(), window->FControls.end(), child) == window->FControls.end())
            continue;
        if (!child->FVisible)
            continue;
        const bool hasWindow = dynamic_cast<TWindowControl*>(child) != nullptr;
        const TPoint at = MovePoint(RootOfThis().FPaintBase, child->OriginInRoot());
        PaintTree(*child, canvas, hasWindow ? clip.Intersected(MoveBox(child->ClientRect(), at)) : clip);
        if (alive.expired())
            return;
    }
}

void TWindowControl::PaintOne(TControl& control, TCanvas& canvas, const TRect& clip, bool isPart)
{
    const auto alive = control.Lifeline().Watch();
    if (TPaintLog* const log = RootOfThis().FPaintLog; log && &canvas.Device() == &log->Picture)
        log->Controls.push_back({&control, clip, log->Picture.Commands.size()});
    canvas.RemoveClip();
    canvas.SetWindowClip(clip);
    canvas.Pen = TPen();
    canvas.Brush = TBrush();
    canvas.Font = control.FFont.State();
    control.FCanvasOrigin = {};
    control.Canvas();
    try {
        isPart ? control.PaintPart() : control.Paint();
        if (!alive.expired())
            control.FPaintFailed = false;
    } catch (const std::exception& error) {
        // Reported once, or a message box over the picture would bring the next paint and the next message.
        const bool reported = alive.expired() || std::exchange(control.FPaintFailed, true);
        if (!alive.expired())
            control.FCanvasOrigin = {};
        if (!reported)
            Host().HandleError(error);
    }
}

void TWindowControl::PaintAlone(TControl& control, TRecording& picture, const TRect& clip)
{
    TCanvas canvas(picture, Host().TextMeasurer(), FPixelScale);
    const TPaintScope scope(*this, canvas, {});
    PaintOne(control, canvas, clip, true);
}

TRecording TWindowControl::Picture()
{
    return SettledPicture(nullptr);
}

TRecording TWindowControl::SettledPicture(TPaintLog* log)
{
    EndSlowVectorState();
    RootOfThis().MakeRoot();
    WindowNeeded();
    TWindowControl& root = RootOfThis();
    const bool isPart = &root != this;
    const bool wasWanted = root.FNeedsPaint;
    bool asked = false;
    TRecording own;
    TRecording& picture = log ? log->Picture : own;
    {
        const TRestore settling(root.FSettling, true);
        const TRestore logging(root.FPaintLog, log);
        for (int pass = 0; pass < MaxPasses; ++pass) {
            root.FNeedsPaint = false;
            picture.Clear();
            if (log)
                log->Controls.clear();
            TCanvas canvas(picture, Host().TextMeasurer(), PixelScale());
            PaintTo(canvas);
            if (!root.FNeedsPaint)
                break;
            asked = true;
        }
    }
    // What a part asked for while it settled may show elsewhere in the tree, too.
    if (isPart && (wasWanted || asked)) {
        root.FNeedsPaint = wasWanted;
        if (!wasWanted)
            root.WantPaint();
    }
    return own;
}

}  // namespace plotkit
