#include "plotkit/GraphBuilder.h"

#include <algorithm>

#include "graph/KxAxis.h"
#include "graph/KxLabel.h"
#include "graph/KxLegend.h"
#include "graph/KxResultLabel.h"
#include "host/Errors.h"
#include "plotkit/DateCaption.h"
#include "plotkit/LookFile.h"
#include "plotkit/PlotParts.h"
#include "plotkit/PlotSeries.h"
#include "plotkit/fit/FitBuilder.h"
#include "plotkit/fit/FitLabels.h"
#include "plotkit/fit/FitWishes.h"
#include "series/KxBarSeries.h"

namespace plotkit {
namespace {

constexpr int Margin = 8;
constexpr std::size_t MostNamesInCaption = 3;

void SetGrid(TKxLineStyle& line, bool visible, TColor color)
{
    line.SetStyle(psSolid);
    line.SetColor(color);
    line.SetWidth(1);
    line.SetVisible(visible);
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

/// Between a curve and the zero that a logarithmic axis does not have there is no area.
void LeaveOutAreas(TPlot& plot)
{
    const TKxAxScaling scaling = plot.Graph->GetPrimaryYAxis()->GetScaling();
    if (scaling != AxLog && scaling != AxLogEE)
        return;
    bool isLost = false;
    for (TKxNotCalculatedSeries* series : plot.Series) {
        if (dynamic_cast<TKxBarSeries*>(series))
            continue;
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
    for (TKxNotCalculatedSeries* series : plot.Series) {
        series->GetAreaStyle().SetVisible(series->GetAreaStyle().GetVisible() || options.Area);
        series->GetLineStyle().SetVisible(series->GetLineStyle().GetVisible() && options.Line);
        auto* const data = dynamic_cast<TKxDataSeries*>(series);
        if (data && (options.Points != ooAuto || !options.Line || options.Kind.HasErrors))
            data->GetPointStyle().SetVisible(options.Points != ooOff);
    }
    if (options.Legend == lcAuto)
        return;
    for (TKxAttachedLegend* attached : plot.Graph->AttachedList())
        if (auto* legend = dynamic_cast<TKxLegend*>(attached))
            if (legend->GetInGraphPosition() != PositionOf(options.Legend, plot.Series.size()))
                PlaceLegend(*legend, *plot.Graph, plot.Series.size(), options.Legend);
}

void AddWeights(TPlot& plot, const TArray<double>& values, const TOptions& options)
{
    plot.Weights = NewVector(*plot.Form, values, options);
    for (TKxNotCalculatedSeries* series : plot.Series)
        series->SetWeight(plot.Weights);
}

/// The fits that a look keeps, as far as these data can have them.
TFitOptions FitsOfLook(TPlot& plot, const TColumnChoice& choice, const TOptions& options)
{
    const std::string& lookFile = options.LookFile;
    TFitOptions fits = LoadFits(lookFile, plot.Notes);
    std::erase_if(fits.Fits, [&](const TFitWish& wish) {
        try {
            CheckKind(options.Kind);
            CheckFit(wish, choice);
            return false;
        } catch (const EConvertError& error) {
            plot.Notes.push_back(lookFile + ": " + FitText(wish) + " is left out: " + error.Message());
            return true;
        }
    });
    return fits;
}

void TakeLook(TPlot& plot, const TColumnChoice& choice, const TOptions& options)
{
    TOptions ofLook = options;
    ofLook.Fit = FitsOfLook(plot, choice, options);
    SetFits(plot, choice, ofLook);
    for (std::string& problem : DressPlot(plot, options, options.LookFile))
        plot.Notes.push_back(std::move(problem));
    RestoreFits(plot);
    for (TPlottedFit& fit : plot.Fits)
        for (TFitLabel& label : fit.Labels)
            label.IsPlaced = label.Name->GetVisible();
}

void AddFits(TPlot& plot, const TColumnChoice& choice, const TOptions& options)
{
    TOptions wanted = options;
    if (options.Fit.Fits.empty() && options.Fit.TakeFromLook) {
        wanted.Fit.Fits = plot.Fit.Fits;
        if (choice.Weights && options.Fit.Weights.empty())
            wanted.Fit.Weights = plot.Fit.Weights;
    }
    SetFits(plot, choice, wanted);
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
    const TColourScheme& scheme = SchemeOf(options);
    TPlot plot;
    plot.News = std::make_shared<TFitNews>();
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
    // Categories of horizontal bars stand at the Y axis.
    std::string along = CaptionOf(choice.X.Caption), up = CaptionOfOrdinates(choice, options);
    if (options.Kind.Horizontal)
        along.swap(up);
    SetLook(x, options.XCaption.value_or(along), scheme.Ink);
    SetLook(y, options.YCaption.value_or(up), scheme.Ink);
    x.SetScaling(ScalingOf(options.XScale, choice.X.IsDateTime && !options.Kind.Horizontal));
    y.SetScaling(ScalingOf(options.YScale, choice.X.IsDateTime && options.Kind.Horizontal));
    AddSeries(plot, choice, options, scheme);
    if (choice.Weights)
        AddWeights(plot, choice.Weights->Values, options);
    KeepLegend(form, *plot.Graph, choice.Ys.size(), options);
    if (x.GetScaling() == AxDateTime && !options.XCaption && !choice.X.IsTimeOfDay && !options.Kind.Horizontal)
        plot.DateName = plot.DateCaption = x.GetUserCaption();
    if (!options.LookFile.empty())
        TakeLook(plot, choice, options);
    AddFits(plot, choice, options);
    LeaveOutAreas(plot);
    if (plot.DateName)
        RefreshDateCaption(*plot.Graph, *plot.DateName);
    if (!plot.Fits.empty()) {
        plot.Form->Picture();
        PlaceLabels(plot);
    }
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
