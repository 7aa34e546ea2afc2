// The job of KxDataSeries is the plain series of a graph: a line through the points of two vectors, and symbols on
// them.
#pragma once

#include "series/KxNotCalculatedSeries.h"

namespace plotkit {

/// A new line series attaches itself to the last graph among its owner's components.
class TKxLineSeries : public TKxNotCalculatedSeries
{
public:
    explicit TKxLineSeries(TComponent* owner);
    ~TKxLineSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

class TKxDataSeries : public TKxLineSeries
{
public:
    explicit TKxDataSeries(TComponent* owner);
    ~TKxDataSeries() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxPointStyle& GetPointStyle() { return FPointStyle; }
    void SetPointStyle(const TKxPointStyle& style) { FPointStyle.Assign(style); }

    bool HasPointSymbols() const override { return true; }
    /// While both axes are zoomed symbols are clipped like the line, otherwise they may reach out of the plotting area.
    void DrawPoints() override;
    const TKxPointStyle* SamplePoints() const override { return &FPointStyle; }

    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;

protected:
    /// What stands at the points, symbols last; the brush has the colour inside open symbols.
    virtual void DrawMarks(TCanvas& canvas);
    void DrawSymbols(std::span<const TPoint> points, TCanvas& canvas);
    TRect GrownMarks(int first) override;

private:
    int SymbolReach() const;

    TKxPointStyle FPointStyle{this};
};

}  // namespace plotkit
