#include "plotkit/GraphBuilder.h"

#include <algorithm>
#include <array>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "plotkit/DateCaption.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

// Told apart with every kind of colour vision (M. Okabe, K. Ito, "Color Universal Design", 2008); without the yellow,
// which is too pale on white.
constexpr std::array Palette{RgbColor(0, 114, 178),   RgbColor(213, 94, 0),   RgbColor(0, 158, 115),
                             RgbColor(204, 121, 167), RgbColor(86, 180, 233), RgbColor(230, 159, 0),
                             RgbColor(0, 0, 0)};
constexpr TColor MajorGridColor = RgbColor(216, 216, 216);
constexpr TColor MinorGridColor = RgbColor(238, 238, 238);
constexpr int Margin = 8;
constexpr std::size_t MostNamesInCaption = 3;

/// A name as a caption that shows it unchanged.
std::string CaptionOf(const std::string& name)
{
    std::string caption;
    for (const char c : name)
        caption += c == '\\' ? std::string("\\\\") : std::string(1, c);
    return caption;
}

void SetFont(TFont& font, int size)
{
    TFontState state = font.State();
    state.Name = "Arial";
    state.Size = size;
    state.Color = clBlack;
    font.SetState(state);
}

void SetGrid(TKxLineStyle& line, bool visible, TColor color)
{
    line.SetStyle(psSolid);
    line.SetColor(color);
    line.SetWidth(1);
    line.SetVisible(visible);
}

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

void SetLook(TKxAxis& axis, const std::string& caption)
{
    SetFont(axis.GetFont(), 10);
    SetFont(axis.GetCaptionFont(), 11);
    axis.SetScalingsTicksGap(3);
    axis.SetCaptionScalingsGap(4);
    axis.SetDoUserCaption(true);
    axis.SetUserCaption(caption);
    axis.SetShowCaption(!caption.empty());
}

std::string CaptionOfOrdinates(const TColumnChoice& choice)
{
    if (choice.Ys.size() > MostNamesInCaption)
        return {};
    std::string caption;
    for (const TChosenColumn& column : choice.Ys)
        caption += (caption.empty() ? "" : ", ") + CaptionOf(column.Caption);
    return caption;
}

void SetLook(TKx2DGraph& graph, const TOptions& options)
{
    graph.SetColor(clWhite);
    graph.SetDataColor(clWhite);
    // A frame in the colour of the paper is the margin.
    graph.GetFrameLine().SetColor(clWhite);
    graph.GetFrameLine().SetWidth(Margin);
    graph.GetFrameLine().SetVisible(true);
    SetGrid(graph.GetMajorGridX(), options.Grid, MajorGridColor);
    SetGrid(graph.GetMajorGridY(), options.Grid, MajorGridColor);
    SetGrid(graph.GetMinorGridX(), options.MinorGrid, MinorGridColor);
    SetGrid(graph.GetMinorGridY(), options.MinorGrid, MinorGridColor);
    SetFont(graph.GetTitleFont(), 14);
    if (options.Title && !options.Title->empty()) {
        graph.SetCaption(*options.Title);
        graph.SetShowTitle(true);
    }
}

TKxRealVector* NewVector(TForm& form, const TArray<double>& values)
{
    auto* vector = new TKxRealVector(&form);
    vector->Assign(values);
    return vector;
}

void AddSeries(TForm& form, TKx2DGraph& graph, const TColumnChoice& choice, std::size_t i, const TOptions& options)
{
    const TChosenColumn& column = choice.Ys[i];
    const TColor color = Palette[i % Palette.size()];
    const std::size_t count = std::min(choice.X.ValueCount, column.ValueCount);
    auto* series = new TKxDataSeries(&form);
    series->SetName("Series" + std::to_string(i + 1));
    series->SetCaption(CaptionOf(column.Caption));
    series->GetLineStyle().SetColor(color);
    series->GetLineStyle().SetWidth(count > MostPointsWithSymbols ? 1 : 2);
    series->GetLineStyle().SetVisible(options.Line);
    series->GetPointStyle().SetColor(color);
    series->GetPointStyle().SetStyle(SyCircleFilled);
    series->GetPointStyle().SetSize(count > MostPointsWithSymbols ? 1 : 3);
    series->GetPointStyle().SetVisible(options.Points == ooOn || !options.Line ||
                                       (options.Points == ooAuto && count <= MostPointsWithSymbols));
    // The ranges of plain vectors are registered only with an axis that is there before them.
    series->SetXAxis(graph.GetPrimaryXAxis());
    series->SetYAxis(graph.GetPrimaryYAxis());
    series->SetXData(NewVector(form, choice.X.Values));
    series->SetYData(NewVector(form, column.Values));
}

}  // namespace

TPlot BuildPlot(const TColumnChoice& choice, const TOptions& options)
{
    TPlot plot;
    plot.Form = std::make_unique<TForm>(nullptr);
    TForm& form = *plot.Form;
    form.SetName("PlotForm");
    form.SetColor(clWhite);
    form.SetBounds(0, 0, options.Width, options.Height);
    plot.Graph = new TKx2DGraph(&form);
    plot.Graph->SetName("Graph");
    plot.Graph->SetParent(&form);
    plot.Graph->SetAlign(alClient);
    SetLook(*plot.Graph, options);
    TKxAxis& x = *plot.Graph->GetPrimaryXAxis();
    TKxAxis& y = *plot.Graph->GetPrimaryYAxis();
    SetLook(x, options.XCaption.value_or(CaptionOf(choice.X.Caption)));
    SetLook(y, options.YCaption.value_or(CaptionOfOrdinates(choice)));
    x.SetScaling(ScalingOf(options.XScale, choice.X.IsDateTime));
    y.SetScaling(ScalingOf(options.YScale, false));
    for (std::size_t i = 0; i < choice.Ys.size(); ++i)
        AddSeries(form, *plot.Graph, choice, i, options);
    if (x.GetScaling() == AxDateTime && !options.XCaption) {
        plot.DateName = x.GetUserCaption();
        RefreshDateCaption(*plot.Graph, *plot.DateName);
    }
    return plot;
}

}  // namespace plotkit
