#include "series/KxDataSeries.h"

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/CommandBox.h"
#include "series/KxLineRuns.h"
#include "series/KxZoomedClip.h"

namespace plotkit {

namespace {

constexpr std::array LineSeriesProperties{
    Reference<&TKxSeries::GetXAxis, &TKxSeries::SetXAxis>("XAxis"),
    Reference<&TKxSeries::GetYAxis, &TKxSeries::SetYAxis>("YAxis"),
    Reference<&TKxSeries::GetXData, &TKxSeries::SetXData>("XData"),
    Reference<&TKxSeries::GetYData, &TKxSeries::SetYData>("YData"),
    Reference<&TKxSeries::GetWeight, &TKxSeries::SetWeight>("Weight"),
    Sub<&TKxSeries::GetAreaStyle>("AreaStyle"),
};

constexpr std::array DataSeriesProperties{
    Sub<&TKxDataSeries::GetPointStyle>("PointStyle"),
};

}  // namespace

constinit const TClassInfo TKxLineSeries::Class{"TKxLineSeries", &TKxNotCalculatedSeries::Class, LineSeriesProperties,
                                                &CreateComponent<TKxLineSeries>};
constinit const TClassInfo TKxDataSeries::Class{"TKxDataSeries", &TKxLineSeries::Class, DataSeriesProperties,
                                                &CreateComponent<TKxDataSeries>};

TKxLineSeries::TKxLineSeries(TComponent* owner) : TKxNotCalculatedSeries(owner)
{
    AttachToGraphOfOwner();
}

TKxLineSeries::~TKxLineSeries()
{
    BeginDestroy();
}

TKxDataSeries::TKxDataSeries(TComponent* owner) : TKxLineSeries(owner) {}

TKxDataSeries::~TKxDataSeries()
{
    BeginDestroy();
}

void TKxDataSeries::DrawPoints()
{
    if (GraphIsUpdating() || !FPointStyle.GetVisible())
        return;
    if (!BringPointsUpToDate() || !World())
        return;
    TCanvas& canvas = World()->Canvas();
    if (const TKx2DGraph* const graph = Graph()) {
        const TColor color = graph->GetDataColor();
        canvas.Brush.SetColor(graph->PaintingToMetafile() && color == clButtonFace ? clWhite : color);
    }
    const TKxZoomedClip clip(canvas, *GetXAxis(), *GetYAxis());
    DrawMarks(canvas);
}

void TKxDataSeries::DrawMarks(TCanvas& canvas)
{
    if (!World()->PaintsPart())
        return DrawSymbols(Points().Values(), canvas);
    const TRect near = WidenedBox(canvas.ClipRect(), SymbolReach());
    std::vector<TPoint> seen;
    for (const TPoint& point : PointsNear(near.Left, near.Right))
        if (near.Contains(point))
            seen.push_back(point);
    DrawSymbols(seen, canvas);
}

int TKxDataSeries::SymbolReach() const
{
    // A star is a little larger than its size.
    return 2 * World()->Px(FPointStyle.GetSize()) + LineReach(World()->Px(FPointStyle.GetWidth()));
}

TRect TKxDataSeries::GrownMarks(int first)
{
    if (!FPointStyle.GetVisible())
        return {};
    return WidenedBox(BoxAroundPresent(Points().Values().subspan(static_cast<std::size_t>(first))), SymbolReach());
}

void TKxDataSeries::DrawSymbols(std::span<const TPoint> points, TCanvas& canvas)
{
    canvas.Pen.Width = FPointStyle.GetWidth();
    canvas.Pen.Color = FPointStyle.GetColor();
    DrawPointSymbols(points, World()->Px(FPointStyle.GetSize()), FPointStyle.GetStyle(), canvas);
}

void TKxDataSeries::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxLineSeries::WriteToIni(list, section);
    list.WriteBool(section, "Point.Visible", FPointStyle.GetVisible());
    list.WriteInteger(section, "Point.Color", ColorToInt(FPointStyle.GetColor()));
    list.WriteInteger(section, "Point.Size", FPointStyle.GetSize());
    list.WriteInteger(section, "Point.With", FPointStyle.GetWidth());
    list.WriteInteger(section, "Point.Style", FPointStyle.GetStyle());
}

void TKxDataSeries::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxLineSeries::ReadFromIni(list, section);
    TKxPointStyle& style = FPointStyle;
    style.SetVisible(list.ReadBool(section, "Point.Visible", style.GetVisible()));
    style.SetColor(IntToColor(list.ReadInteger(section, "Point.Color", ColorToInt(style.GetColor()))));
    style.SetSize(list.ReadInteger(section, "Point.Size", style.GetSize()));
    style.SetWidth(list.ReadInteger(section, "Point.With", style.GetWidth()));
    style.SetStyle(list.ReadOrdinal(section, "Point.Style", style.GetStyle(), PointSymbolNames.size()));
}

}  // namespace plotkit
