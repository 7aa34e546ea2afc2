// The job of KxAxis is the axis of a graph: ticks, scale labels, its place beside the plotting area, and its painting.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "graph/KxAxisZoom.h"

namespace plotkit {

class TKx2DGraph;
class TKxIniList;
struct TKxDateTimeStep;

class TKxAxis : public TKxAxisZoom
{
public:
    explicit TKxAxis(TComponent* owner);
    ~TKxAxis() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Places ticks, scale labels and caption along the line; the ends are chosen.
    void CalculateTicks();
    /// Lays out all axes, the legends and the plotting area of the graph that this axis stands in.
    void Calculate();

    /// As painted, in device pixels from the left or from the top; empty when there is no room for ticks.
    const std::vector<std::int32_t>& TickPositions() const { return FTickPositions; }
    const std::vector<bool>& TickIsMajor() const { return FTickIsMajor; }
    const std::vector<double>& TickValues() const { return FTickValues; }
    int TickCount() const { return static_cast<int>(FTickPositions.size()); }
    const std::vector<TKxCaptionRec>& ScaleLabels() const { return FScaleLabels; }
    int MaxLabelWidth() const { return FMaxLabelWidth; }
    int MaxLabelHeight() const { return FMaxLabelHeight; }
    /// Whether the first and the last tick are drawn, and their grid lines.
    bool DrawFirstGridLine() const { return FDrawFirstGridLine; }
    bool DrawLastGridLine() const { return FDrawLastGridLine; }
    /// First pixel of the axis line in the control.
    int AxisX() const { return FAxisX; }
    int AxisY() const { return FAxisY; }
    /// What the labels of a date-time axis show, and every how many of it.
    TKxDTRegion DTRegion() const { return FDTRegion; }
    int DTLabelStep() const { return FDTLabelStep; }

    /// The look of the axis, to and from one section. What is missing stays.
    void SaveOutfit(const std::string& section, TKxIniList& list);
    void LoadOutfit(const std::string& section, TKxIniList& list);

protected:
    void Paint() override;
    void CMVisibleChanged() override;
    void CMScaleChanged() override;
    void DateTimeEnds() override;

private:
    friend class TKxAxisLayout;

    /// Where the text of a label stands with respect to its reference point.
    struct TLabelBase
    {
        TPoint At;
        int HalvesLeft = 0;  ///< halves of the width that stand left of the point
    };

    /// `Multiple` times 10^`Decade`.
    struct TLogLabel
    {
        int Decade = 0;
        int Multiple = 1;
    };

    void BringUpToDate();
    bool RefreshAutoCaption();
    void TakeAutoCaption(const std::string& caption);
    std::string SeriesCaptions() const;
    void PaintTicks(TCanvas& canvas, bool major) const;
    void PaintLine(TCanvas& canvas) const;
    void PaintLabels(TCanvas& canvas);

    bool CrossesAtZero() const;
    void PlaceCaption();
    void PlaceCaptionLabel(TKxCustomLabel& label, bool atEnd);
    void PlaceLabelBase();

    void LinearTicks();
    bool LinearStepsAreUsable() const;
    double LinearTickCount() const;
    bool TicksAtMultiples(int majorPeriod, int labelPeriod);
    void TicksFromTheEnd(int majorPeriod, int labelPeriod);
    int Phase(double part, int period) const;
    void AddLinearTick(double value, bool major, bool labelled);
    std::string NumberText(double value) const;
    void AddExponentLabel();

    void LogTicks();
    void AddDecades(int perDecade);
    void AddStepsInsideDecade();
    std::string LogStepText(double value, int decimals) const;
    std::string LogText(TLogLabel label, double value) const;
    void ThinOutLabels(std::size_t count, const std::function<bool(std::size_t, int)>& isShown);
    void ThinOutStepLabels(double labelPart, int exponent);
    void ThinOutLogLabels(const std::vector<TLogLabel>& labels);

    void DateTimeTicks();
    bool DateTimeLabelsFit(const TKxDateTimeStep& step) const;
    void ApplyDateTimeStep(const TKxDateTimeStep& step, double start, double stop);
    const TKxDateTimeStep& DateTimeStep() const;

    int MostTicks() const;
    void AddTick(double value, bool major);
    void SortTicks();
    void AddLabelAt(const std::string& text, double value);
    void AppendLabel(const std::string& text, TPoint at);
    TKxCaptionRec Measured(const std::string& text, int* height) const;

    int FAxisX = 30, FAxisY = 30;
    bool FDrawFirstGridLine = false, FDrawLastGridLine = false;
    int FCaptionWidth = 0, FCaptionHeight = 0;
    int FLabelHeight = 0;  ///< of a number
    int FExponentLabelWidth = 0;
    TLabelBase FLabelBase;
    std::vector<double> FTickValues;
    std::vector<std::int32_t> FTickPositions;
    std::vector<bool> FTickIsMajor;
    int FMaxLabelHeight = 0, FMaxLabelWidth = 0;
    std::vector<TKxCaptionRec> FScaleLabels;
    std::vector<double> FLabelValues;  ///< of the labels at ticks
    std::vector<TPoint> FLabelPoints;  ///< their reference points
    TKxDTRegion FDTRegion = rgDay;
    int FDTLabelStep = 1;
};

}  // namespace plotkit
