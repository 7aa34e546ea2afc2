// The job of KxLegend is the control that lists the series of its graph, and hides and shows them at a click.
#pragma once

#include <optional>

#include "graph/KxAttached.h"
#include "graph/KxLegendEntry.h"
#include "graph/KxLegendLayout.h"

namespace plotkit {

class TKx2DGraph;

/// Lists the series of its parent graph, and what is calculated from them, that are to be included in legends: in
/// drawing order, with a sample of each one's styles and its caption. A click hides the series, which stays listed in
/// grey, and the next one shows it again; the axes keep the range of all series, so that nothing jumps.
///
/// All gaps and widths are in 1/96 inch, from 0 to 1000; values outside are clamped.
class TKxLegend : public TKxAttachedLegend
{
public:
    explicit TKxLegend(TComponent* owner);
    ~TKxLegend() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxAxisPos GetInGraphPosition() const override { return FInGraphPosition; }
    /// At the top and the bottom entries stand side by side, elsewhere below each other. A free floating legend stands
    /// where it is put and can be dragged with the mouse within the graph.
    void SetInGraphPosition(TKxAxisPos position) { Change(FInGraphPosition, position); }
    int GetOutsideGap() const override { return FOutsideGap; }
    void SetOutsideGap(int gap) { ChangeGap(FOutsideGap, gap); }
    int GetInsideGap() const { return FInsideGap; }
    /// Between the frame and the entries.
    void SetInsideGap(int gap) { ChangeGap(FInsideGap, gap); }
    int GetRowGap() const { return FRowGap; }
    void SetRowGap(int gap) { ChangeGap(FRowGap, gap); }
    int GetColumnGap() const { return FColumnGap; }
    void SetColumnGap(int gap) { ChangeGap(FColumnGap, gap); }
    int GetSampleWidth() const { return FSampleWidth; }
    void SetSampleWidth(int width) { ChangeGap(FSampleWidth, width); }
    int GetSampleCaptionGap() const { return FSampleCaptionGap; }
    void SetSampleCaptionGap(int gap) { ChangeGap(FSampleCaptionGap, gap); }
    TKxLineStyle& GetFrameLine() { return FFrameLine; }
    void SetFrameLine(const TKxLineStyle& style) { FFrameLine.Assign(style); }
    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool transparent);
    bool GetAutoSize() const { return FAutoSize; }
    bool IsNotAutoSize() const { return !FAutoSize; }
    /// Whether the legend is as large as its entries need. Otherwise they are arranged in the size that it has.
    void SetAutoSize(bool autoSize) { Change(FAutoSize, autoSize); }
    bool GetClickHides() const { return FClickHides; }
    void SetClickHides(bool hides) { FClickHides = hides; }

    /// After a click on an entry has had its effect.
    TEvent<TKxPlottable&> OnEntryClick;

    /// What is listed, and the box of each entry that there is room for; as of the last layout or paint.
    const std::vector<TKxLegendEntry>& Entries() const { return FEntries; }
    const TKxLegendPlan& Plan() const { return FPlan; }
    /// The series whose entry stands at a pixel of the legend; nullptr when there is none.
    TKxPlottable* SeriesAt(int x, int y) const;

    void ItemsModified() override;
    bool FitToGraph() override;

    /// Look, place and hidden series. The hidden ones are noted by their numbers, from 1, among all series of the graph
    /// in drawing order.
    void SaveOutfit(const std::string& section, TKxIniList& list) override;
    /// Missing keys keep what is set.
    void LoadOutfit(const std::string& section, TKxIniList& list) override;

    void SetParent(TWindowControl* parent) override;
    void SetBounds(int left, int top, int width, int height) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;

protected:
    void Paint() override;
    void CMFontChanged() override;
    void CMVisibleChanged() override;
    void CMScaleChanged() override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    struct TPlace
    {
        double X = 0, Y = 0;
    };

    template <class T>
    void Change(T& field, T value)
    {
        if (field == value)
            return;
        field = value;
        Relayout();
    }
    void ChangeGap(int& field, int value);
    void Relayout();
    bool ItemsAreCurrent() const;
    void RefreshItems();
    void MeasureItems(TCanvas& canvas);
    TRect RoomInGraph() const;
    TKxLegendRoom Room() const;
    int FrameWidth() const;
    /// False when the bounds stay as they are.
    bool AdjustBounds();
    TPoint KeptInside(TPoint at, int width, int height) const;
    void PlaceAt(TPoint at, TSize size);

    void PaintBackground(TCanvas& canvas);
    void PaintEntry(std::size_t i, TCanvas& canvas);
    void DragTo(TPoint at);
    void LoadHidden(const std::string& section, const TKxIniList& list);

    TKx2DGraph* FGraph = nullptr;
    std::vector<TKxLegendEntry> FEntries;
    std::vector<int> FWidths;  ///< of the entries
    TKxLegendPlan FPlan;
    TKxLineStyle FFrameLine{this};
    TPlace FWanted;  ///< where it was put, 1/96 inch; a graph that is too small for that may move it
    double FScale = 1;
    int FTextHeight = 0, FEntryHeight = 0;
    std::optional<TPoint> FPressed;  ///< pixel of the legend where the mouse button went down
    int FOutsideGap = 6, FInsideGap = 5, FRowGap = 3, FColumnGap = 16;
    int FSampleWidth = 28, FSampleCaptionGap = 6;
    TKxAxisPos FInGraphPosition = AxRightPos;
    bool FDragging = false, FPlacing = false, FMeasured = false;
    bool FTransparent = false, FAutoSize = true, FClickHides = true;
};

}  // namespace plotkit
