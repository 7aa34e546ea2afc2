// The job of WindowControl is a control that holds other controls: it paints, aligns and serves them with mouse and
// keys.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/Control.h"
#include "host/ControlSite.h"
#include "host/Recording.h"

namespace plotkit {

class TKeptPicture;
struct TPaintLog;

class TWindowControl : public TControl
{
public:
    explicit TWindowControl(TComponent* owner);
    ~TWindowControl() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Back to front; controls with a window of their own stand in front of all others. A control that goes destroys
    /// the controls in it that have an owner, and lets the others go.
    const std::vector<TControl*>& Controls() const { return FControls; }

    /// While suspended, `Align` moves nothing; the last `EnableAlign` aligns once.
    void DisableAlign() { ++FAlignSuspended; }
    void EnableAlign();

    /// Whether `CreateWindow` has run, which it does once.
    bool HasWindow() const { return FHasWindow; }
    /// Makes the window if the parent chain reaches a root and nothing is being loaded; parents come before children.
    /// Called when a window is first needed: by a paint, a site, an event, after loading, and for what is put into a
    /// control that has one.
    void WindowNeeded();
    /// A root has a window without standing in anything: forms, and what a site shows or somebody paints.
    bool IsRoot() const { return FIsRoot; }
    void MakeRoot();

    TControlSite* Site() const { return FSite; }
    void SetSite(TControlSite* site);

    /// Paints this control and, back to front, what stands in it, into `canvas` at its origin.
    void PaintTo(TCanvas& canvas);
    /// Paints this control and what stands in it until nothing in the tree asks for another paint (a handful of times
    /// at most) and returns the last picture, from this control's top left corner on and without the overlay. An error
    /// raised by a paint goes to the host's error handler, once until that control has been painted without.
    TRecording Picture();
    /// Of a root: what was drawn outside a paint.
    TOverlay& Overlay() { return FOverlay; }
    /// Of a root: whether something asked to be painted since the last picture.
    bool NeedsPaint() const { return FNeedsPaint; }

    /// Of a root: device pixels per 1/96 inch. Bounds and fonts of the whole tree follow.
    void SetPixelScale(double scale);
    double OwnPixelScale() const { return FPixelScale; }

    /// Of a root: the mouse, in pixels of the root. A pressed button captures the mouse for the control under it until
    /// all buttons are up; a press and a release on the same control make a click, `shift.Double` a double click.
    void DispatchMouseDown(TMouseButton button, TShiftState shift, int x, int y);
    void DispatchMouseMove(TShiftState shift, int x, int y);
    void DispatchMouseUp(TMouseButton button, TShiftState shift, int x, int y);
    void DispatchMouseWheel(TShiftState shift, int delta, int x, int y);
    void DispatchContextPopup(int x, int y);
    /// The visible, enabled control in front at a pixel of this control; this control itself when none stands there.
    TControl& ControlAt(int x, int y);

    /// Of a root: keys go to the focused control. `key` is a host-independent code: a Unicode code point, or a code
    /// from TKey.
    void DispatchKeyDown(int key, TShiftState shift);
    void DispatchKeyUp(int key, TShiftState shift);
    /// Of a root: text that no single key typed (an input method, a composed character), for the focused control.
    void DispatchText(std::string_view text);
    TWindowControl* Focused() const { return FFocused; }
    bool HasFocus() const { return static_cast<const TWindowControl&>(Root()).FFocused == this; }
    void SetFocus();
    /// Nobody in the tree has the focus any more.
    void KillFocus() { RootOfThis().ChangeFocus(nullptr); }
    virtual void KeyDown(int key, TShiftState shift) { OnKeyDown(key, shift); }
    virtual void KeyUp(int key, TShiftState shift) { OnKeyUp(key, shift); }
    virtual void TextInput(std::string_view) {}
    /// Whether the control has a use of its own for the key, which then is no shortcut of the program around it.
    virtual bool WantsKey(int, TShiftState) const { return false; }
    TKeyEvent OnKeyDown, OnKeyUp;
    TEvent<> OnEnter, OnExit;

    void SetParent(TWindowControl* parent) override;
    void SetBounds(int left, int top, int width, int height) override;
    void Loaded() override;
    std::vector<TComponent*> StreamedChildren(const TComponent& root) const override;

protected:
    /// The moment the window is created; overrides call the inherited operation last.
    virtual void CreateWindow();
    /// The control has got, or has lost, the focus of its tree.
    virtual void CMEnter() { OnEnter(); }
    virtual void CMExit() { OnExit(); }
    void AlignControls();
    /// For destructors of classes whose parts must still live while the controls inside go.
    void DestroyControls();
    void CMFontChanged() override;
    void CMColorChanged() override;

private:
    friend class TControl;
    friend class TKeptPicture;
    struct TPaintScope;
    /// Tells the site that the picture has something drawn over it.
    class TTreeOverlay : public TOverlay
    {
    public:
        explicit TTreeOverlay(TWindowControl& root) : FRoot(root) {}

    protected:
        void Add(TDrawCommand command) override;

    private:
        TWindowControl& FRoot;
    };

    void InsertControl(TControl* control);
    void RemoveControl(TControl* control);
    void MoveInOrder(TControl* control, bool toFront);
    std::vector<TControl*> AlignedControls(TAlign align) const;
    void PlaceControls();
    void AlignTree();
    TWindowControl& RootOfThis() { return static_cast<TWindowControl&>(Root()); }

    void WantPaint();
    void WantPartPaint(TControl& control);
    TRecording SettledPicture(TPaintLog* log);
    void PaintAlone(TControl& control, TRecording& picture, const TRect& clip);
    TCanvas& CanvasOfOverlay();
    TRect ClipInRoot() const;
    void PaintTree(TControl& control, TCanvas& canvas, const TRect& clip);
    void PaintOne(TControl& control, TCanvas& canvas, const TRect& clip, bool isPart = false);

    void Forget(const TControl* control);
    void ChangeFocus(TWindowControl* to);
    void PointerMovedTo(TControl* control);
    void PointerLooksChanged(const TControl* control);
    TPoint PointIn(const TControl& control, int x, int y) const;

    std::vector<TControl*> FControls;
    TControlSite* FSite = nullptr;
    TTreeOverlay FOverlay{*this};
    std::unique_ptr<TCanvas> FOverlayCanvas;
    TCanvas* FPaintCanvas = nullptr;  ///< of a root: the canvas of the paint that is going on
    TPoint FPaintBase;                ///< pixel of that canvas where the root's top left corner stands
    TControl* FCaptured = nullptr;    ///< of a root, like the next three
    TControl* FClickTarget = nullptr;
    TControl* FUnderPointer = nullptr;
    TWindowControl* FFocused = nullptr;
    std::vector<TControl*> FChangedParts;   ///< of a root, like the next four: who asked for a part
    TPaintLog* FPaintLog = nullptr;         ///< of the picture that is being made
    const TKeptPicture* FKeeper = nullptr;  ///< has the last picture, which parts can be painted into
    bool FPartsWanted = false;              ///< once somebody asked for a part pictures are worth keeping
    double FPixelScale = 1;
    int FAlignSuspended = 0;
    unsigned FButtons = 0;  ///< a bit for each pressed button
    bool FAligning = false;
    bool FHasWindow = false;
    bool FCreatingWindow = false;
    bool FIsRoot = false;
    bool FNeedsPaint = true;
    bool FSettling = false;  ///< a picture is being made, which paints again by itself
};

}  // namespace plotkit
