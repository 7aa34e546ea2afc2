#include <cmath>
#include <optional>

#include "graph/KxAxis.h"
#include "series/KxGraphInput.h"

namespace plotkit {

namespace {

constexpr double PartOfView = 0.1;
/// What a step with Shift covers, 1/96 inch.
constexpr int FarStep = 10;

/// Right and down are positive.
std::optional<TPoint> DirectionOf(int key)
{
    switch (key) {
        case kyLeft:
            return TPoint{-1, 0};
        case kyRight:
            return TPoint{1, 0};
        case kyUp:
            return TPoint{0, -1};
        case kyDown:
            return TPoint{0, 1};
        default:
            return std::nullopt;
    }
}

}  // namespace

void TKxGraphInput::KeyDown(int key, TShiftState shift)
{
    if (!FGraph)
        return;
    if (key == kyEscape)
        return Escape();
    if (FNavigator.IsDragging() || FrameKey(key, shift))
        return;
    if (key == ' ' && FOptions.Pan && !FSpace) {
        FSpace = true;
        TakeZoomRectangle();
        if (FPointer)
            ShowPointer(*FPointer);
    } else if (shift.Ctrl && (key == 'C' || key == 'c')) {
        CopyValues();
    } else if (!HistoryKey(key, shift) && !ArrowKey(key, shift) && !shift.Alt && !shift.Ctrl) {
        if (!ZoomKey(key))
            ModeKey(key);
    }
}

void TKxGraphInput::KeyUp(int key, TShiftState)
{
    if (!FGraph || key != ' ' || !FSpace)
        return;
    FSpace = false;
    TakeZoomRectangle();
    if (FPointer)
        ShowPointer(*FPointer);
}

void TKxGraphInput::Escape()
{
    if (FNavigator.IsDragging())
        return FNavigator.CancelDrag();
    if (FFrame.GetShown())
        return FFrame.SetShown(false);
    if (FGraph->World().IsZooming())
        return FGraph->World().CancelDrags();
    if (FArrows != arView)
        FArrows = arView;
    else if (FCursor.GetShown())
        SetCursorShown(false);
    else if (FOptions.Markers)
        SetMarkersShown(false);
}

bool TKxGraphInput::FrameKey(int key, TShiftState shift)
{
    if (!FFrame.GetShown())
        return false;
    if (const auto direction = DirectionOf(key)) {
        if (shift.Shift)
            FFrame.GrowBy(direction->X, -direction->Y);
        else
            FFrame.MoveBy(direction->X, direction->Y);
    } else if (key == '+' || key == '=' || key == '-') {
        const int by = key == '-' ? -1 : 1;
        FFrame.GrowBy(by, by);
    } else if (key == kyEnter || key == 'z') {
        FFrame.Zoom();
        Changed();
    } else {
        return false;
    }
    return true;
}

bool TKxGraphInput::HistoryKey(int key, TShiftState shift)
{
    const bool isHome = key == kyHome && (shift.Ctrl || !FCursor.GetShown());
    const bool isHomeLetter = (key == 'h' || key == '0') && !shift.Ctrl && !shift.Alt;
    const bool isBack = key == kyBackspace || (key == kyLeft && shift.Alt);
    const bool isForward = (key == kyBackspace && shift.Shift) || (key == kyRight && shift.Alt);
    if (!FOptions.History || !(isHome || isHomeLetter || isBack || isForward))
        return false;
    if (isForward)
        FNavigator.Forward();
    else if (isBack)
        FNavigator.Back();
    else
        FNavigator.Home();
    return true;
}

bool TKxGraphInput::ArrowKey(int key, TShiftState shift)
{
    if (CursorEndKey(key, shift))
        return true;
    if (key == kyPageUp || key == kyPageDown) {
        PanKey({0, key == kyPageUp ? -1 : 1}, true);
        return true;
    }
    const auto direction = DirectionOf(key);
    if (!direction || shift.Alt)
        return false;
    if (shift.Ctrl)
        PanKey(*direction, shift.Shift);
    else if (FArrows != arView && FMarkers.GetShown())
        FMarkers.MoveBy(FArrows == arStart ? mkStart : mkStop, direction->X * FGraph->Px(shift.Shift ? FarStep : 1));
    else if (FCursor.GetShown())
        CursorKey(*direction, shift.Shift);
    else
        PanKey(*direction, shift.Shift);
    return true;
}

void TKxGraphInput::PanKey(TPoint direction, bool wholeView)
{
    const double part = wholeView ? 1 : PartOfView;
    if (FOptions.Pan)
        FNavigator.PanByViews(direction.X * part, -direction.Y * part);
}

void TKxGraphInput::CursorKey(TPoint direction, bool far)
{
    if (direction.Y != 0)
        FCursor.StepSeries(direction.Y);
    else if (far)
        FCursor.StepPixels(direction.X * FGraph->Px(FarStep));
    else
        FCursor.Step(direction.X);
    BringCursorIntoView();
}

bool TKxGraphInput::CursorEndKey(int key, TShiftState shift)
{
    if (!FCursor.GetShown() || shift.Ctrl || (key != kyHome && key != kyEnd))
        return false;
    FCursor.GoToEnd(key == kyEnd);
    BringCursorIntoView();
    return true;
}

void TKxGraphInput::BringCursorIntoView()
{
    const TKxReading* const reading = FCursor.Current();
    const TRect data = FGraph->World().DataRect();
    if (!reading || data.IsEmpty() || data.Contains(reading->Pixel) || !FOptions.Pan)
        return;
    const auto views = [](int at, int from, int to) {
        return at >= from && at < to ? 0 : (double{1} * at - (double{1} * from + to) / 2) / (to - from);
    };
    FNavigator.PanByViews(views(reading->Pixel.X, data.Left, data.Right),
                          -views(reading->Pixel.Y, data.Top, data.Bottom));
}

bool TKxGraphInput::ZoomKey(int key)
{
    if (!FOptions.Wheel && !FOptions.ZoomRectangle)
        return false;
    switch (key) {
        case '+':
        case '=':
            ZoomStep(true);
            return true;
        case '-':
            ZoomStep(false);
            return true;
        case 'x':
        case 'X':
            ZoomStep(key == 'x', acHorizontal);
            return true;
        case 'y':
        case 'Y':
            ZoomStep(key == 'y', acVertical);
            return true;
        default:
            return false;
    }
}

bool TKxGraphInput::ModeKey(int key)
{
    switch (key) {
        case 'p':
            SetPanMode(!FPanMode);
            return true;
        case 'z':
            FFrame.SetShown(FOptions.ZoomRectangle);
            return true;
        case 'c':
            SetCursorShown(!FCursor.GetShown());
            return true;
        case 'm':
            SetMarkersShown(!FMarkers.GetShown());
            return true;
        case '1':
        case '2':
            if (FMarkers.GetShown())
                FArrows = key == '1' ? arStart : arStop;
            return true;
        default:
            return false;
    }
}

}  // namespace plotkit
