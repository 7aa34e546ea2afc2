// The job of KxGraphInput is to let mouse and keys work the navigator, the cursor and the markers of a graph.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "graph/KxGraphNavigator.h"
#include "graph/KxZoomFrame.h"
#include "host/EventChain.h"
#include "series/KxGraphCursor.h"
#include "series/KxGraphMarkers.h"

namespace plotkit {

/// What the reader of a graph may do.
struct TInteractionOptions
{
    bool ZoomRectangle = true;
    bool Wheel = true;
    bool Pan = true;
    bool History = true;  ///< back, forward, the whole view
    bool Markers = true;
    bool Cursor = true;
    bool Keys = true;
    bool ContextMenu = true;
};

/// Hears the graph through its plotting area, behind those who are bound there already; keys reach it while the graph
/// has the focus of its tree, which it gets here and with each press.
///
/// Mouse: the left button drags a zoom rectangle, the middle one, or the left one while Space is held or in pan mode,
/// drags the picture; the wheel zooms about the pointer, with Shift, or below and above the plotting area, the
/// horizontal axes only, with Ctrl, or beside it, the vertical ones. The cursor follows the pointer, markers are
/// dragged.
///
/// Keys: + - zoom, x X and y Y one direction in and out; arrows pan by a tenth, with Shift, and Page keys, by a view;
/// Home, h or 0 the whole view; Backspace and Alt+Left back, Shift+Backspace and Alt+Right forward; p pan mode; z a
/// zoom rectangle for arrows (Shift, + and - size it), Enter and Escape; c cursor, whose arrows step through points and
/// series (Shift: ten pixels) and whose Home and End are the ends of the series; m markers, 1 and 2 pick one up for the
/// arrows; Ctrl+arrows pan and Ctrl+Home shows the whole view in any case; Ctrl+C copies; Escape ends what is going on,
/// then puts down a marker, then hides cursor and markers.
class TKxGraphInput : public TComponent
{
public:
    explicit TKxGraphInput(TKx2DGraph& graph, const TInteractionOptions& options = {});
    ~TKxGraphInput() override;

    /// nullptr once it is gone.
    TKx2DGraph* Graph() const { return FGraph; }
    const TInteractionOptions& Options() const { return FOptions; }
    TKxGraphNavigator& Navigator() { return FNavigator; }
    TKxGraphCursor& Cursor() { return FCursor; }
    TKxGraphMarkers& Markers() { return FMarkers; }

    /// Whether the left button drags the picture.
    bool GetPanMode() const { return FPanMode; }
    void SetPanMode(bool panMode);
    void ZoomStep(bool in, TKxAxesChoice axes = acAll);
    void SetCursorShown(bool shown);
    void SetMarkersShown(bool shown);

    /// For a status bar: what the cursor and the markers read, else where the pointer stands.
    std::vector<std::string> StatusLines();
    /// Tables of what the cursor and the markers read; empty when they read nothing.
    std::string ValuesText();
    bool HasValues();
    void CopyValues();

    /// Something that status lines or the state of commands depend on changed.
    TEvent<> OnChanged;
    /// A menu is wanted at a pixel of the graph.
    TEvent<TPoint> OnMenu;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    /// What the arrow keys move.
    enum TArrows : std::uint8_t
    {
        arView,
        arStart,
        arStop,
    };

    void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
    void MouseMove(TShiftState shift, int x, int y);
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y);
    void Wheel(TShiftState shift, int delta, int x, int y);
    void ContextPopup(TPoint at);
    void KeyDown(int key, TShiftState shift);
    void KeyUp(int key, TShiftState shift);

    bool FrameKey(int key, TShiftState shift);
    bool ArrowKey(int key, TShiftState shift);
    void PanKey(TPoint direction, bool wholeView);
    void CursorKey(TPoint direction, bool far);
    bool CursorEndKey(int key, TShiftState shift);
    bool HistoryKey(int key, TShiftState shift);
    bool ZoomKey(int key);
    bool ModeKey(int key);
    void Escape();
    void BringCursorIntoView();

    bool Drags(TMouseButton button, TPoint at) const;
    void ShowPointer(TPoint at);
    void TakeZoomRectangle();
    void Changed() { OnChanged(); }
    void Painted(TCanvas&);

    TKx2DGraph* FGraph;
    TInteractionOptions FOptions;
    TKxGraphNavigator FNavigator;
    TKxGraphMarkers FMarkers;
    TKxGraphCursor FCursor;
    TKxZoomFrame FFrame;
    std::unique_ptr<TEventChain<TMouseButton, TShiftState, int, int>> FMouseDown, FMouseUp;
    std::unique_ptr<TEventChain<TShiftState, int, int>> FMouseMove;
    std::unique_ptr<TEventChain<TShiftState, int, int, int>> FWheel;
    std::unique_ptr<TEventChain<TPoint>> FPopup;
    std::unique_ptr<TEventChain<int, TShiftState>> FKeyDown, FKeyUp;
    std::unique_ptr<TEventChain<TCanvas&>> FPainted;
    std::unique_ptr<TEventChain<>> FNavigated, FCursorMoved, FMarkerMoved;
    std::optional<TPoint> FPointer;     ///< where it was seen last
    std::optional<TMouseButton> FHeld;  ///< pressed for something else than a zoom rectangle
    TKxAxisMapping FAcross, FUp;        ///< of the primary axes, as last painted
    TArrows FArrows = arView;
    bool FPanMode = false;
    bool FSpace = false;
    bool FZoomedBefore = false;
};

}  // namespace plotkit
