#include "plotkit/PlotParts.h"

#include "graph/KxLabel.h"

namespace plotkit {

namespace {

constexpr std::size_t MostNamesAbove = 6;
constexpr int CornerGap = 40;

TKxLegend* LegendOf(const TKx2DGraph& graph)
{
    for (TKxAttachedLegend* attached : graph.AttachedList())
        if (auto* legend = dynamic_cast<TKxLegend*>(attached))
            return legend;
    return nullptr;
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

}  // namespace

const TColourScheme& SchemeOf(const TOptions& options)
{
    return options.Scheme == ccDark ? DarkScheme() : LightScheme();
}

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

void KeepLegend(TForm& form, TKx2DGraph& graph, std::size_t count, const TOptions& options)
{
    const bool wanted = options.Legend != lcNone && (options.Legend != lcAuto || count > 1);
    TKxLegend* const legend = LegendOf(graph);
    if (wanted && !legend)
        AddLegend(form, graph, count, options.Legend, SchemeOf(options));
    if (!wanted)
        delete legend;
}

}  // namespace plotkit
