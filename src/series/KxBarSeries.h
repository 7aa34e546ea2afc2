// The job of KxBarSeries is a histogram: bars from edge to edge, standing or lying, side by side or on each other.
#pragma once

#include "series/KxDataSeries.h"
#include "series/KxExtents.h"

namespace plotkit {

/// The vector of the category axis (X; Y for horizontal bars) holds the n + 1 edges of n bars, the other one their
/// values. `Points` has a place for each edge. On a logarithmic axis, where there is no 0, bars start at its end.
class TKxBarSeries : public TKxLineSeries
{
public:
    explicit TKxBarSeries(TComponent* owner);
    ~TKxBarSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    bool GetShow3DBars() const { return FShow3DBars; }
    void SetShow3DBars(bool show) { Change(FShow3DBars, show); }
    bool GetBarHorizontal() const { return FBarHorizontal; }
    void SetBarHorizontal(bool horizontal);
    bool GetShiftOverlays() const { return FShiftOverlays; }
    /// Bars of series of one owner that share edges stand side by side. Ends `StackOverlays`.
    void SetShiftOverlays(bool shift);
    bool GetStackOverlays() const { return FStackOverlays; }
    /// Bars stand on those of earlier stacking series of the owner.
    void SetStackOverlays(bool stack);
    double GetDepthPercent() const { return FDepthPercent; }
    void SetDepthPercent(double percent) { Change(FDepthPercent, percent); }
    double GetBarsGapPercent() const { return FBarsGapPercent; }
    void SetBarsGapPercent(double percent) { Change(FBarsGapPercent, percent); }

    /// Edges as they are, values with those of the series below.
    double GetX(int i) const { return CoordinateOf(FX, i); }
    double GetY(int i) const { return CoordinateOf(FY, i); }
    /// What a block needs beyond its bar: a part of the width of the bar, in units of the edges for both axes.
    double GetDX(int i) const { return DepthOf(240, i); }
    double GetDY(int i) const { return DepthOf(400, i); }

    /// The last bar whose edges enclose the pixel and whose value stands within `tolerance` of it.
    int FindPoint(int x, int y, int tolerance) const override;
    void Modified() override;
    void CalculatePoints() override;
    void DrawLine() override;
    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;
    TKxSampleForm SampleForm() const override;

protected:
    void SetPointsCount() override;
    int XIdxNeeded() const override { return IdxNeeded(FX); }
    int YIdxNeeded() const override { return IdxNeeded(FY); }
    void GetNewXStartStop() override { Scan(FX); }
    void GetNewYStartStop() override { Scan(FY); }
    void CalcXValue(int index) override { FollowChange(FX, index); }
    void CalcYValue(int index) override { FollowChange(FY, index); }
    void CalculatePoint(int index) override;
    void CalculateAllPoints() override;
    bool HasOwnPointRule() const override { return true; }
    void Notification(TComponent* component, TOperation operation) override;

private:
    /// How the bars of this series share their categories with others.
    struct TSharing
    {
        int Count = 1, Place = 1;
        double Gap = 0, Depth = 0;  ///< percent
    };
    struct TBlock;

    template <class T>
    void Change(T& field, T value)
    {
        if (field == value)
            return;
        field = value;
        RangesModified();
    }
    TKxSeriesDirection& Edges() { return FBarHorizontal ? FY : FX; }
    const TKxSeriesDirection& Edges() const { return FBarHorizontal ? FY : FX; }
    const TKxSeriesDirection& Heights() const { return FBarHorizontal ? FX : FY; }
    double CoordinateOf(const TKxSeriesDirection& direction, int i) const;
    double TotalBelow(int i) const;
    double DepthOf(double parts, int i) const;
    int IdxNeeded(const TKxSeriesDirection& direction) const;
    TKxExtent ExtentOf(const TKxSeriesDirection& direction, int i) const;
    TKxExtents& ExtentsOf(const TKxSeriesDirection& direction) { return &direction == &FX ? FXExtents : FYExtents; }
    void Scan(TKxSeriesDirection& direction);
    void FollowChange(TKxSeriesDirection& direction, int index);
    void Follow(TKxSeriesDirection& direction, int index);
    bool StandsOn(const TKxBarSeries& other) const;
    void TellAbove();

    bool IsVisible() const { return SampleLine()->GetVisible() || SampleArea()->GetVisible(); }
    TSharing Sharing() const;
    /// The box of a bar, right and bottom exclusive; nothing for one that has no place or no width.
    std::optional<TRect> BoxOf(int i, const TSharing& sharing) const;
    std::optional<std::pair<int, int>> SpanOf(int i, const TSharing& sharing) const;
    void DrawFlat(TCanvas& canvas) const;
    void SetFlatStyle(TCanvas& canvas) const;
    std::vector<TKxBarSeries*> DrawnTogether();
    void DrawStacks(std::span<TKxBarSeries* const> group, TCanvas& canvas);
    void DrawBlocks(std::span<TKxBarSeries* const> group, TCanvas& canvas) const;
    void AddBlocks(std::vector<TBlock>& blocks) const;
    void DrawBlock(const TBlock& block, TCanvas& canvas) const;
    static void SortBlocks(std::vector<TBlock>& blocks, bool horizontal);

    std::vector<TKxBarSeries*> FStackedBelow;
    TKxExtents FXExtents, FYExtents;
    double FDepthPercent = 50, FBarsGapPercent = 0;
    bool FShow3DBars = false, FBarHorizontal = false, FShiftOverlays = false, FStackOverlays = false;
    std::array<bool, 2> FScannedAs{};  ///< whether X and Y were logarithmic
};

}  // namespace plotkit
