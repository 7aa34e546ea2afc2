// The job of KxGraph2D is the panel that carries a graph: plotting area, primary axes, title, frame and grid lines.
#pragma once

#include "graph/KxDrawingWorld.h"
#include "graph/KxGraphUpdate.h"
#include "graph/KxStyles.h"
#include "host/List.h"
#include "host/Metafile.h"
#include "host/Panel.h"

namespace plotkit {

class TKxAttachedLegend;
class TKxAxis;
class TKxCustomLabel;

/// A new graph is 600 by 400. A graph without owner owns the axes it creates.
class TKx2DGraph : public TPanel
{
public:
    explicit TKx2DGraph(TComponent* owner);
    ~TKx2DGraph() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxDrawingWorld& World() const { return *FWorld; }
    TKxSeriesList& GetSeriesList() const { return FWorld->SeriesList(); }
    TKxCustomLabel& TitleLabel() const { return *FTitleLabel; }
    /// Legends that show the graph's items.
    const TList<TKxAttachedLegend>& AttachedList() const { return FAttachedList; }
    void Attach(TKxAttachedLegend& legend);
    void Detach(TKxAttachedLegend& legend);

    /// The axes that grid lines stand on. They are found or created when the window is created, and the first question
    /// for them creates it once the parent chain reaches a root; never while loading. nullptr when there is none.
    TKxAxis* GetPrimaryXAxis();
    TKxAxis* GetPrimaryYAxis();
    /// The same as they stand, without creating any.
    TKxAxis* PrimaryXAxis() const { return FPrimaryXAxis; }
    TKxAxis* PrimaryYAxis() const { return FPrimaryYAxis; }
    /// Moves the axis to the bottom, or to the left.
    void SetPrimaryXAxis(TKxAxis* axis);
    void SetPrimaryYAxis(TKxAxis* axis);

    TKxLineStyle& GetFrameLine() { return FFrameLine; }
    void SetFrameLine(const TKxLineStyle& style);
    TKxLineStyle& GetMajorGridX() { return FMajorGridX; }
    void SetMajorGridX(const TKxLineStyle& style) { SetGrid(FMajorGridX, style); }
    TKxLineStyle& GetMajorGridY() { return FMajorGridY; }
    void SetMajorGridY(const TKxLineStyle& style) { SetGrid(FMajorGridY, style); }
    TKxLineStyle& GetMinorGridX() { return FMinorGridX; }
    void SetMinorGridX(const TKxLineStyle& style) { SetGrid(FMinorGridX, style); }
    TKxLineStyle& GetMinorGridY() { return FMinorGridY; }
    void SetMinorGridY(const TKxLineStyle& style) { SetGrid(FMinorGridY, style); }
    TColor GetDataColor() const { return FDataColor; }
    /// Fill of the data rectangle, and the colour of the plotting area.
    void SetDataColor(TColor color);
    bool GetZeroOrigin() const { return FZeroOrigin; }
    /// Whether the axes cross at zero.
    void SetZeroOrigin(bool zeroOrigin);
    /// Whether derivatives and integrals are drawn on the Y axis of what they are computed from, not on one of their
    /// own.
    bool GetShareYAxes() const { return FShareYAxes; }
    void SetShareYAxes(bool share) { FShareYAxes = share; }
    bool GetShowTitle() const { return FShowTitle; }
    void SetShowTitle(bool show);
    /// The panel's text; also the title's while that is shown.
    const std::string& GetCaption() const { return GetText(); }
    void SetCaption(const std::string& caption) { SetText(caption); }
    TFont& GetTitleFont();
    void SetTitleFont(const TFont& font);
    bool IsTitleFontStored() const;
    bool GetAutoZoom() const { return FWorld->GetAutoZoom(); }
    void SetAutoZoom(bool autoZoom) { FWorld->SetAutoZoom(autoZoom); }

    /// Between the two nothing is calculated and no series is drawn; the last `EndUpdate` brings a due repaint.
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate();
    bool NotUpdating() const { return FUpdateCount == 0; }
    /// Something that calls for a new calculation changed.
    void Modified();
    bool NeedsCalculate() const { return FNeedsCalculate; }
    /// Orders the series, lays out the axes and turns all values into points.
    void Calculate();
    /// Zooms every axis of the form to the values of a box, pixels of the plotting area.
    void ZoomTo(const TRect& box);
    /// `ZoomTo` of this graph, or of another one on the form, is about to zoom axes of this graph, and has done so.
    TEvent<> OnZooming, OnZoomed;

    void PaintToMetafile();
    bool PaintingToMetafile() const { return FPaintingToMetafile; }
    /// Paints, then returns the picture.
    const TMetafile& GetMetafile();
    void CopyToClipboard();

    /// Own keys, then axes, series, and whatever legends, labels and result labels of the form stand in the graph and
    /// have a name.
    void SaveOutfit(const std::string& section, TKxIniList& list);
    /// Missing keys keep what is set. Series beyond the saved ones reuse the saved sections in turn.
    void LoadOutfit(const std::string& section, TKxIniList& list);

    void SetParent(TWindowControl* parent) override;
    void SetBounds(int left, int top, int width, int height) override;
    std::vector<TComponent*> StreamedChildren(const TComponent& root) const override;

protected:
    void CreateWindow() override;
    void Paint() override;
    void CMShowingChanged() override;
    void CMTextChanged() override;
    void CMFontChanged() override;
    void CMScaleChanged() override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    TComponent& AxesOwner();
    std::vector<TKxAxis*> AxesInside();
    template <class TPart>
    std::vector<TPart*> PartsInside();
    template <class TAction>
    void ForEachAnnotation(const std::string& section, TAction action);
    void FindPrimaryAxes();
    void SetGrid(TKxLineStyle& grid, const TKxLineStyle& style);
    void CalculateIfDue();
    void PaintBackground(TCanvas& canvas);
    void PaintGrid(TCanvas& canvas);
    void PaintGridLines(TCanvas& canvas, const TKxAxis& axis, const TKxLineStyle& grid, bool major);

    TKxDrawingWorld* FWorld = nullptr;
    TKxCustomLabel* FTitleLabel = nullptr;
    TKxAxis* FPrimaryXAxis = nullptr;
    TKxAxis* FPrimaryYAxis = nullptr;
    TList<TKxAttachedLegend> FAttachedList;
    TKxLineStyle FFrameLine{this}, FMajorGridX{this}, FMajorGridY{this}, FMinorGridX{this}, FMinorGridY{this};
    TMetafile FMetafile;
    TColor FDataColor = clButtonFace;
    int FUpdateCount = 0;
    bool FNeedsCalculate = true;
    bool FPaintingToMetafile = false;
    bool FZeroOrigin = false;
    bool FShowTitle = false;
    bool FShareYAxes = false;
};

/// The graph that a part stands in: its parent, else its owner, whichever is a graph; nullptr when neither is.
TKx2DGraph* GraphOf(const TComponent& part);

}  // namespace plotkit
