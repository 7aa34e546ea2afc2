// The job of Control is a visible component: bounds, parent, look, invalidation and the mouse.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Canvas.h"
#include "host/Component.h"
#include "host/ControlTypes.h"

namespace plotkit {

class TWindowControl;

/// A control without a window of its own: it is painted on its parent's canvas. Bounds are device pixels of the tree's
/// resolution, relative to the parent; the streamed ones are 1/96 inches.
class TControl : public TComponent
{
public:
    explicit TControl(TComponent* owner);
    ~TControl() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TWindowControl* Parent() const { return FParent; }
    /// Takes the control out of its old parent's list.
    virtual void SetParent(TWindowControl* parent);
    /// The control at the top of the parent chain.
    TControl& Root();
    const TControl& Root() const { return const_cast<TControl*>(this)->Root(); }

    int GetLeft() const { return FBounds.Left; }
    int GetTop() const { return FBounds.Top; }
    int GetWidth() const { return FBounds.Width(); }
    int GetHeight() const { return FBounds.Height(); }
    void SetLeft(int left) { SetBounds(left, GetTop(), GetWidth(), GetHeight()); }
    void SetTop(int top) { SetBounds(GetLeft(), top, GetWidth(), GetHeight()); }
    void SetWidth(int width) { SetBounds(GetLeft(), GetTop(), width, GetHeight()); }
    void SetHeight(int height) { SetBounds(GetLeft(), GetTop(), GetWidth(), height); }
    const TRect& Bounds() const { return FBounds; }
    /// Negative extents are taken as 0. A change invalidates and realigns the parent's children.
    virtual void SetBounds(int left, int top, int width, int height);
    TRect ClientRect() const { return {0, 0, GetWidth(), GetHeight()}; }
    /// Position of the top left corner in pixels of the root.
    TPoint OriginInRoot() const;

    bool GetVisible() const { return FVisible; }
    void SetVisible(bool visible);
    /// Whether it and all that it stands in are visible.
    bool IsShowing() const;
    bool GetEnabled() const { return FEnabled; }
    void SetEnabled(bool enabled);
    TAlign GetAlign() const { return FAlign; }
    void SetAlign(TAlign align);
    TColor GetColor() const { return FColor; }
    /// Also clears `ParentColor`.
    virtual void SetColor(TColor color);
    bool GetParentColor() const { return FParentColor; }
    void SetParentColor(bool follow);
    /// A change of the font clears `ParentFont`.
    TFont& GetFont() { return FFont; }
    const TFont& GetFont() const { return FFont; }
    void SetFont(const TFont& font) { FFont.Assign(font); }
    bool GetParentFont() const { return FParentFont; }
    void SetParentFont(bool follow);
    const std::string& GetText() const { return FText; }
    /// Only a different text is stored and announced by `CMTextChanged`.
    void SetText(const std::string& text);
    TCursor GetCursor() const { return FCursor; }
    TCursor Cursor() const { return FCursor; }
    void SetCursor(TCursor cursor);
    const std::string& GetHint() const { return FHint; }
    void SetHint(const std::string& hint);
    bool GetShowHint() const { return FShowHint; }
    void SetShowHint(bool show) { FShowHint = show; }
    /// Whatever the host shows as the control's pop-up menu.
    TComponent* GetPopupMenu() const { return FPopupMenu; }
    void SetPopupMenu(TComponent* menu);

    void BringToFront();
    void SendToBack();

    /// Asks for a repaint of the whole tree at the next occasion.
    virtual void Invalidate();
    /// The same for when only a part of what this control paints looks different; `ChangedPart` will tell which.
    void InvalidatePart();
    /// Asked once after calls of `InvalidatePart`: a box around all that looks different, in own pixels; nothing when
    /// that is not known.
    virtual std::optional<TRect> ChangedPart() { return std::nullopt; }
    /// While the tree is painted the canvas of the paint, otherwise the tree's overlay; the origin is this control's
    /// top left corner, moved by `CanvasOrigin`.
    TCanvas& Canvas();
    /// The overlay, also while the tree is painted.
    TCanvas& OverlayCanvas();
    /// Point of this control that `Canvas` counts from; a paint that moves it moves it back.
    TPoint CanvasOrigin() const { return FCanvasOrigin; }
    void SetCanvasOrigin(TPoint origin) { FCanvasOrigin = origin; }

    /// Device pixels per 1/96 inch of the tree.
    double PixelScale() const;
    /// Device pixels of `value` 1/96 inches.
    int Px(int value) const { return ScalePixels(value, PixelScale()); }
    /// The reverse.
    int StoredPx(int pixels) const { return ScalePixels(pixels, 1 / PixelScale()); }

    TEvent<> OnClick, OnDblClick;
    TMouseEvent OnMouseDown, OnMouseUp;
    TMouseMoveEvent OnMouseMove;
    TWheelEvent OnMouseWheel;
    TEvent<TPoint> OnContextPopup;

    /// Mouse entries, in own pixels. The inherited operations fire the events; a wheel that nobody listens to and a
    /// context pop-up that the control has nothing for go on to the parent.
    virtual void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
    virtual void MouseMove(TShiftState shift, int x, int y);
    virtual void MouseUp(TMouseButton button, TShiftState shift, int x, int y);
    virtual void MouseWheel(TShiftState shift, int delta, int x, int y);
    virtual void Click();
    virtual void DblClick();
    virtual void ContextPopup(TPoint at);

    /// A colour or font that follows the parent's is not written.
    bool IsColorStored() const;
    bool IsFontStored() const { return !FParentFont; }
    void SetStreamedInside(TComponent* outer) override;
    double StreamScale() const override { return PixelScale(); }
    void Loaded() override;

protected:
    /// Draws the control on `Canvas()`.
    virtual void Paint() {}
    /// The same where the clip leaves a small part to be seen: all that cannot reach into it may be left out.
    virtual void PaintPart() { Paint(); }
    virtual void CMTextChanged() {}
    virtual void CMFontChanged();
    virtual void CMVisibleChanged() { Invalidate(); }
    /// This control, or one that it stands in, was shown or hidden.
    virtual void CMShowingChanged() {}
    virtual void CMColorChanged() { Invalidate(); }
    /// The tree's resolution has changed; fonts and bounds already follow.
    virtual void CMScaleChanged() {}
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TWindowControl;
    struct TScratch;
    /// Bounds in 1/96 inches, whole pixels of whatever resolution they were given at.
    struct TStoredBounds
    {
        double Left = 0, Top = 0, Width = 0, Height = 0;
    };

    TWindowControl* RootWindow();
    void FontChanged();
    /// Colour and font from the parent, where the control follows it.
    void FollowParent();
    void StoreBounds(const TRect& before);
    void ScaleTo(double scale);
    void TakeScale(double scale);
    void AnnounceScale();
    void AnnounceShowing();

    TWindowControl* FParent = nullptr;
    TRect FBounds;
    TStoredBounds FStored;
    TFont FFont;
    std::string FText, FHint;
    TComponent* FPopupMenu = nullptr;
    std::unique_ptr<TScratch> FScratch;  ///< what a control without any window draws on
    TPoint FCanvasOrigin;
    TColor FColor = clWindow;
    TCursor FCursor = crDefault;
    TAlign FAlign = alNone;
    bool FVisible = true;
    bool FEnabled = true;
    bool FParentColor = true;
    bool FParentFont = true;
    bool FShowHint = false;
    bool FFollowingParent = false;
    bool FTakingScale = false;
    bool FScaling = false;      ///< of the top of a tree: a change of the resolution is going on
    bool FPaintFailed = false;  ///< the last paint raised an error, which has been reported
};

/// A window-less control that paints itself.
class TGraphicControl : public TControl
{
public:
    using TControl::TControl;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

}  // namespace plotkit
