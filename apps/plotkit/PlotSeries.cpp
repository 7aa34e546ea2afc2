#include "plotkit/PlotSeries.h"

#include <algorithm>

#include "graph/KxAxis.h"
#include "host/Errors.h"
#include "plotkit/BarRows.h"
#include "plotkit/PlotParts.h"
#include "series/KxArrowSeries.h"
#include "series/KxBarSeries.h"
#include "series/KxDataWithErrorSeries.h"

namespace plotkit {
namespace {

/// The top of a block is 1.3 times as bright as its front, byte by byte.
constexpr std::uint8_t BrightestFront = 195;

TColor NoBrighter(TColor color)
{
    return RgbColor(std::min(RedOf(color), BrightestFront), std::min(GreenOf(color), BrightestFront),
                    std::min(BlueOf(color), BrightestFront));
}

class TSeriesMaker
{
public:
    TSeriesMaker(TPlot& plot, const TColumnChoice& choice, const TOptions& options, const TColourScheme& scheme)
        : FPlot(plot), FForm(*plot.Form), FChoice(choice), FOptions(options), FKind(options.Kind), FScheme(scheme)
    {}

    void Make()
    {
        for (std::size_t i = 0; i < FChoice.Ys.size(); ++i) {
            TKxNotCalculatedSeries* const series = New(i);
            series->SetName("Series" + std::to_string(i + 1));
            series->SetCaption(CaptionOf(FChoice.Ys[i].Caption));
            FPlot.Series.push_back(series);
        }
        LinkExtras();
    }

private:
    std::size_t CountOf(std::size_t i) const { return std::min(FChoice.X.ValueCount, FChoice.Ys[i].ValueCount); }
    TColor ColorOf(std::size_t i) const { return FScheme.Curves[i % SchemeColours]; }

    TKxNotCalculatedSeries* New(std::size_t i)
    {
        if (FKind.HasBars)
            return NewBars(i);
        if (FKind.HasArrows)
            return NewArrows(i);
        return NewCurve(i, FKind.HasErrors ? new TKxDataWithErrorSeries(&FForm) : new TKxDataSeries(&FForm));
    }

    /// The ranges of plain vectors are registered only with an axis that is there before them.
    void Link(TKxSeries& series, TKxCustomRealVector* x, TKxCustomRealVector* y)
    {
        series.SetXAxis(FPlot.Graph->GetPrimaryXAxis());
        series.SetYAxis(FPlot.Graph->GetPrimaryYAxis());
        series.SetXData(x);
        series.SetYData(y);
    }
    void LinkColumns(TKxSeries& series, std::size_t i)
    {
        Link(series, NewVector(FForm, FChoice.X.Values, FOptions), NewVector(FForm, FChoice.Ys[i].Values, FOptions));
    }

    TKxDataSeries* NewCurve(std::size_t i, TKxDataSeries* series)
    {
        const std::size_t count = CountOf(i);
        const bool isErrors = FKind.HasErrors;
        series->GetLineStyle().SetColor(ColorOf(i));
        series->GetLineStyle().SetWidth(count > MostPointsWithSymbols ? 1 : 2);
        series->GetLineStyle().SetVisible(FOptions.Line);
        series->GetAreaStyle().SetColor(FScheme.Areas[i % SchemeColours]);
        // Of several areas none is to hide another.
        series->GetAreaStyle().SetDrawXOred(FChoice.Ys.size() > 1);
        series->GetAreaStyle().SetVisible(FOptions.Area);
        series->GetPointStyle().SetColor(ColorOf(i));
        series->GetPointStyle().SetStyle(SyCircleFilled);
        series->GetPointStyle().SetSize(count > MostPointsWithSymbols ? 1 : 3);
        series->GetPointStyle().SetVisible(FOptions.Points == ooOn || !FOptions.Line || isErrors ||
                                           (FOptions.Points == ooAuto && count <= MostPointsWithSymbols));
        LinkColumns(*series, i);
        return series;
    }

    TKxArrowSeries* NewArrows(std::size_t i)
    {
        auto* const series = new TKxArrowSeries(&FForm);
        series->GetLineStyle().SetColor(ColorOf(i));
        // Heads of many arrows would be all that is seen.
        if (CountOf(i) > MostPointsWithSymbols)
            series->SetTipLength(5), series->SetTipWidth(2);
        LinkColumns(*series, i);
        return series;
    }

    TKxBarSeries* NewBars(std::size_t i)
    {
        auto* const series = new TKxBarSeries(&FForm);
        const bool isAlone = FChoice.Ys.size() == 1;
        const TColor color = FKind.Solid ? NoBrighter(ColorOf(i)) : FScheme.Areas[i % SchemeColours];
        // Frames of many blocks would be all that is seen.
        const bool isNarrow = CountOf(i) * (FKind.Shifted ? FChoice.Ys.size() : 1) > MostPointsWithSymbols;
        const TColor frame = isNarrow ? color : FScheme.Ink;
        series->GetLineStyle().SetColor(FKind.Solid ? frame : ColorOf(i));
        series->GetLineStyle().SetVisible(FOptions.Line);
        series->GetAreaStyle().SetColor(color);
        series->GetAreaStyle().SetDrawXOred(!isAlone && !FKind.Stacked && !FKind.Shifted && !FKind.Solid);
        series->SetBarHorizontal(FKind.Horizontal);
        series->SetStackOverlays(FKind.Stacked);
        series->SetShiftOverlays(FKind.Shifted);
        series->SetShow3DBars(FKind.Solid);
        series->SetBarsGapPercent(FKind.Gap);
        series->SetDepthPercent(FKind.Depth);
        TKxCustomRealVector* const edges = Edges();
        TKxRealVector* const heights = NewVector(FForm, FBars.Heights(FChoice.Ys[i].Values), FOptions);
        Link(*series, FKind.Horizontal ? heights : edges, FKind.Horizontal ? edges : heights);
        return series;
    }

    /// One vector for all: series with the same edges share their categories.
    TKxCustomRealVector* Edges()
    {
        if (!FEdges) {
            const TScaleChoice scale = FKind.Horizontal ? FOptions.YScale : FOptions.XScale;
            FEdges = new TKxRealVector(&FForm);
            FBars = RowsOfBars(FChoice.X.Values.Span(), scale == scLog || scale == scLogEE, FChoice.X.Name);
            FEdges->Take(std::move(FBars.Edges));
            FPlot.Notes.insert(FPlot.Notes.end(), FBars.Notes.begin(), FBars.Notes.end());
        }
        return FEdges;
    }

    void LinkExtras()
    {
        for (const TExtraColumn& extra : FChoice.Extras) {
            if (extra.Ordinate >= FPlot.Series.size())
                throw EConvertError("--errors: given " + std::to_string(extra.Ordinate + 1) + " times, for " +
                                    std::to_string(FPlot.Series.size()) + " ordinates");
            TKxRealVector* const vector = NewVector(FForm, extra.Column.Values, FOptions);
            FPlot.Extras.push_back(vector);
            if (auto* const errors = dynamic_cast<TKxDataWithErrorSeries*>(FPlot.Series[extra.Ordinate])) {
                constexpr std::array setters{&TKxDataWithErrorSeries::SetdXPlus, &TKxDataWithErrorSeries::SetdXMinus,
                                             &TKxDataWithErrorSeries::SetdYPlus, &TKxDataWithErrorSeries::SetdYMinus};
                errors->SetErrorColor(FScheme.Ink);
                (errors->*setters[static_cast<std::size_t>(extra.Place)])(vector);
            }
            // All series of arrows have the same displacements.
            for (TKxNotCalculatedSeries* const series : FPlot.Series)
                if (auto* const arrows = dynamic_cast<TKxArrowSeries*>(series))
                    extra.Place == 0 ? arrows->SetDX(vector) : arrows->SetDY(vector);
        }
    }

    TPlot& FPlot;
    TForm& FForm;
    const TColumnChoice& FChoice;
    const TOptions& FOptions;
    const TSeriesKind& FKind;
    const TColourScheme& FScheme;
    TKxRealVector* FEdges = nullptr;
    TBarRows FBars;
};

}  // namespace

TKxRealVector* NewVector(TForm& form, const TArray<double>& values, const TOptions& options)
{
    auto* vector = options.Follow ? new TKxLiveVector(&form) : new TKxRealVector(&form);
    vector->Assign(values);
    return vector;
}

void AddSeries(TPlot& plot, const TColumnChoice& choice, const TOptions& options, const TColourScheme& scheme)
{
    TSeriesMaker(plot, choice, options, scheme).Make();
}

}  // namespace plotkit
