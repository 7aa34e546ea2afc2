#include "plotkit/GraphBuilder.h"

#include <algorithm>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "graph/KxLabel.h"
#include "graph/KxLegend.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/DateCaption.h"
#include "plotkit/LookFile.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

constexpr int Margin = 8;
constexpr std::size_t MostNamesInCaption = 3;
constexpr std::size_t MostNamesAbove = 6;
constexpr int CornerGap = 40;

/// A name as a caption that shows it unchanged.
std::string CaptionOf(const std::string& name)
{
    std::string caption;
    for (const char c : name)
        caption += c == '\\' ? std::string("\\\\") : std::string(1, c);
    return caption;
}

void SetFont(TFont& font, int size, TColor ink)
{
    TFontState state = font.State();
    state.Name = "Arial";
    state.Size = size;
    state.Color = ink;
    font.SetState(state);
}

void SetGrid(TKxLineStyle& line, bool visible, TColor color)
{
    line.SetStyle(psSolid);
    line.SetColor(color);
    line.SetWidth(1);
    line.SetVisible(visible);
}

void SetCaption(TKxAxis& axis, const std::string& caption)
{
    axis.SetDoUserCaption(true);
    axis.SetUserCaption(caption);
    axis.SetShowCaption(!caption.empty());
}

void SetLook(TKxAxis& axis, const std::string& caption, TColor ink)
{
    SetFont(axis.GetFont(), 10, ink);
    SetFont(axis.GetCaptionFont(), 11, ink);
    axis.SetAxisColor(ink);
    axis.SetTickColor(ink);
    axis.SetMajorTickColor(ink);
    axis.SetScalingsTicksGap(3);
    axis.SetCaptionScalingsGap(4);
    SetCaption(axis, caption);
}

bool HasLegend(const TColumnChoice& choice, const TOptions& options)
{
    return options.Legend != lcNone && (options.Legend != lcAuto || choice.Ys.size() > 1);
}

/// Several names stand in the legend where there is one.
std::string CaptionOfOrdinates(const TColumnChoice& choice, const TOptions& options)
{
    if (choice.Ys.size() > MostNamesInCaption || (choice.Ys.size() > 1 && HasLegend(choice, options)))
        return {};
    std::string caption;
    for (const TChosenColumn& column : choice.Ys)
        caption += (caption.empty() ? "" : ", ") + CaptionOf(column.Caption);
    return caption;
}

void SetLook(TKx2DGraph& graph, const TOptions& options, const TColourScheme& scheme)
{
    graph.SetColor(scheme.Paper);
    graph.SetDataColor(scheme.Paper);
    // A frame in the colour of the paper is the margin.
    graph.GetFrameLine().SetColor(scheme.Paper);
    graph.GetFrameLine().SetWidth(Margin);
    graph.GetFrameLine().SetVisible(true);
    SetGrid(graph.GetMajorGridX(), options.Grid, scheme.MajorGrid);
    SetGrid(graph.GetMajorGridY(), options.Grid, scheme.MajorGrid);
    SetGrid(graph.GetMinorGridX(), options.MinorGrid, scheme.MinorGrid);
    SetGrid(graph.GetMinorGridY(), options.MinorGrid, scheme.MinorGrid);
    SetFont(graph.GetTitleFont(), 14, scheme.Ink);
    if (options.Title && !options.Title->empty()) {
        graph.SetCaption(*options.Title);
        graph.SetShowTitle(true);
    }
}

TKxRealVector* NewVector(TForm& form, const TArray<double>& values, const TOptions& options)
{
    auto* vector = options.Follow ? new TKxLiveVector(&form) : new TKxRealVector(&form);
    vector->Assign(values);
    return vector;
}

TKxDataSeries* AddSeries(TForm& form, TKx2DGraph& graph, const TColumnChoice& choice, std::size_t i,
                         const TOptions& options, const TColourScheme& scheme)
{
    const TChosenColumn& column = choice.Ys[i];
    const TColor color = scheme.Curves[i % SchemeColours];
    const std::size_t count = std::min(choice.X.ValueCount, column.ValueCount);
    auto* series = new TKxDataSeries(&form);
    series->SetName("Series" + std::to_string(i + 1));
    series->SetCaption(CaptionOf(column.Caption));
    series->GetLineStyle().SetColor(color);
    series->GetLineStyle().SetWidth(count > MostPointsWithSymbols ? 1 : 2);
    series->GetLineStyle().SetVisible(options.Line);
    series->GetAreaStyle().SetColor(scheme.Areas[i % SchemeColours]);
    // Of several areas none is to hide another.
    series->GetAreaStyle().SetDrawXOred(choice.Ys.size() > 1);
    series->GetAreaStyle().SetVisible(options.Area);
    series->GetPointStyle().SetColor(color);
    series->GetPointStyle().SetStyle(SyCircleFilled);
    series->GetPointStyle().SetSize(count > MostPointsWithSymbols ? 1 : 3);
    series->GetPointStyle().SetVisible(options.Points == ooOn || !options.Line ||
                                       (options.Points == ooAuto && count <= MostPointsWithSymbols));
    // The ranges of plain vectors are registered only with an axis that is there before them.
    series->SetXAxis(graph.GetPrimaryXAxis());
    series->SetYAxis(graph.GetPrimaryYAxis());
    series->SetXData(NewVector(form, choice.X.Values, options));
    series->SetYData(NewVector(form, column.Values, options));
    return series;
}

TKxAxisPos PositionOf(TLegendChoice choice, std::size_t count)
{
    switch (choice) {
        case lcTop:
            return AxTopPos;
        case lcBottom:
            return AxBottomPos;
        case lcLeft:
            return AxLeftPos;
        case lcRight:
            return AxRightPos;
        case lcFree:
            return AxFreeFloating;
        case lcAuto:
        case lcNone:
            break;
    }
    return count <= MostNamesAbove ? AxTopPos : AxRightPos;
}

void PlaceLegend(TKxLegend& legend, const TKx2DGraph& graph, std::size_t count, TLegendChoice choice)
{
    legend.SetInGraphPosition(PositionOf(choice, count));
    legend.GetFrameLine().SetVisible(choice == lcFree);
    if (choice != lcFree)
        return;
    // The corner that the axes leave free, clear of the labels that overhang there.
    legend.FitToGraph();
    const int title = graph.GetShowTitle() ? graph.TitleLabel().GetHeight() : 0;
    legend.SetLeft(graph.GetWidth() - legend.GetWidth() - CornerGap);
    legend.SetTop(title + CornerGap);
}

void AddLegend(TForm& form, TKx2DGraph& graph, std::size_t count, TLegendChoice choice, const TColourScheme& scheme)
{
    auto* legend = new TKxLegend(&form);
    legend->SetName("Legend");
    SetFont(legend->GetFont(), 10, scheme.Ink);
    legend->GetFrameLine().SetColor(scheme.MajorGrid);
    legend->SetParent(&graph);
    PlaceLegend(*legend, graph, count, choice);
}

/// Between a curve and the zero that a logarithmic axis does not have there is no area.
void LeaveOutAreas(TPlot& plot)
{
    const TKxAxScaling scaling = plot.Graph->GetPrimaryYAxis()->GetScaling();
    if (scaling != AxLog && scaling != AxLogEE)
        return;
    bool isLost = false;
    for (TKxDataSeries* series : plot.Series) {
        isLost = isLost || series->GetAreaStyle().GetVisible();
        series->GetAreaStyle().SetVisible(false);
    }
    if (isLost)
        plot.Notes.push_back("a logarithmic Y axis has no zero; areas are left out");
}

/// What was wished for in so many words goes before a look.
void KeepWishes(const TPlot& plot, const TOptions& options)
{
    for (TKxLineStyle* grid : {&plot.Graph->GetMajorGridX(), &plot.Graph->GetMajorGridY()})
        grid->SetVisible(grid->GetVisible() && options.Grid);
    for (TKxLineStyle* grid : {&plot.Graph->GetMinorGridX(), &plot.Graph->GetMinorGridY()})
        grid->SetVisible((grid->GetVisible() && options.Grid) || options.MinorGrid);
    for (TKxDataSeries* series : plot.Series) {
        series->GetAreaStyle().SetVisible(series->GetAreaStyle().GetVisible() || options.Area);
        series->GetLineStyle().SetVisible(series->GetLineStyle().GetVisible() && options.Line);
        if (options.Points != ooAuto || !options.Line)
            series->GetPointStyle().SetVisible(options.Points != ooOff);
    }
    if (options.Legend == lcAuto)
        return;
    for (TKxAttachedLegend* attached : plot.Graph->AttachedList())
        if (auto* legend = dynamic_cast<TKxLegend*>(attached))
            if (legend->GetInGraphPosition() != PositionOf(options.Legend, plot.Series.size()))
                PlaceLegend(*legend, *plot.Graph, plot.Series.size(), options.Legend);
}

}  // namespace

TKxAxScaling ScalingOf(TScaleChoice scale, bool isDateTime)
{
    switch (scale) {
        case scLinear:
            return AxNormal;
        case scLog:
            return AxLog;
        case scLogEE:
            return AxLogEE;
        case scTime:
            return AxDateTime;
        case scAuto:
            break;
    }
    return isDateTime ? AxDateTime : AxNormal;
}

TPlot BuildPlot(const TColumnChoice& choice, const TOptions& options)
{
    const TColourScheme& scheme = options.Scheme == ccDark ? DarkScheme() : LightScheme();
    TPlot plot;
    plot.Form = std::make_unique<TForm>(nullptr);
    TForm& form = *plot.Form;
    form.SetName("PlotForm");
    form.SetColor(scheme.Paper);
    form.SetBounds(0, 0, options.Width, options.Height);
    plot.Graph = new TKx2DGraph(&form);
    plot.Graph->SetName("Graph");
    plot.Graph->SetParent(&form);
    plot.Graph->SetAlign(alClient);
    SetLook(*plot.Graph, options, scheme);
    TKxAxis& x = *plot.Graph->GetPrimaryXAxis();
    TKxAxis& y = *plot.Graph->GetPrimaryYAxis();
    SetLook(x, options.XCaption.value_or(CaptionOf(choice.X.Caption)), scheme.Ink);
    SetLook(y, options.YCaption.value_or(CaptionOfOrdinates(choice, options)), scheme.Ink);
    x.SetScaling(ScalingOf(options.XScale, choice.X.IsDateTime));
    y.SetScaling(ScalingOf(options.YScale, false));
    for (std::size_t i = 0; i < choice.Ys.size(); ++i)
        plot.Series.push_back(AddSeries(form, *plot.Graph, choice, i, options, scheme));
    if (HasLegend(choice, options))
        AddLegend(form, *plot.Graph, choice.Ys.size(), options.Legend, scheme);
    if (x.GetScaling() == AxDateTime && !options.XCaption && !choice.X.IsTimeOfDay)
        plot.DateName = plot.DateCaption = x.GetUserCaption();
    if (!options.LookFile.empty())
        plot.Notes = DressPlot(plot, options, options.LookFile);
    LeaveOutAreas(plot);
    if (plot.DateName)
        RefreshDateCaption(*plot.Graph, *plot.DateName);
    plot.DateCaption = x.GetUserCaption();
    return plot;
}

std::vector<std::string> DressPlot(TPlot& plot, const TOptions& options, const std::string& lookFile)
{
    const std::vector<std::string> problems = LoadLook(*plot.Graph, lookFile);
    KeepWishes(plot, options);
    // Looks are kept in the colours for light desktops.
    if (options.Scheme == ccDark)
        Recolour(*plot.Form, LightScheme(), DarkScheme());
    TKxAxis& x = *plot.Graph->GetPrimaryXAxis();
    TKxAxis& y = *plot.Graph->GetPrimaryYAxis();
    if (options.Title) {
        plot.Graph->SetCaption(*options.Title);
        plot.Graph->SetShowTitle(!options.Title->empty());
    }
    if (options.XCaption)
        SetCaption(x, *options.XCaption);
    if (options.YCaption)
        SetCaption(y, *options.YCaption);
    if (options.XScale != scAuto)
        x.SetScaling(ScalingOf(options.XScale, false));
    if (options.YScale != scAuto)
        y.SetScaling(ScalingOf(options.YScale, false));
    // A caption of the user's own is not to be overwritten by the dates.
    if (plot.DateName && x.GetUserCaption() != *plot.DateName && x.GetUserCaption() != plot.DateCaption)
        plot.DateName.reset();
    return problems;
}

}  // namespace plotkit
