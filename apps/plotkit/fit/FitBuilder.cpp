#include "plotkit/fit/FitBuilder.h"

#include <algorithm>
#include <set>

#include "graph/KxAxis.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "plotkit/PlotParts.h"
#include "plotkit/fit/FitCurve.h"
#include "plotkit/fit/FitLabels.h"
#include "plotkit/fit/FitWishes.h"
#include "series/KxNotCalculatedSeries.h"

namespace plotkit {

namespace {

constexpr int CurveWidth = 2;
constexpr int AxisGap = 8;
constexpr const char* OwnAxis = "SecondaryAxis";

std::string CaptionIn(const TFitWish& wish, const TChosenColumn& column, bool several)
{
    return CaptionOf(wish) + (several ? " (" + CaptionOf(column.Name) + ")" : "");
}

/// The first that no fit has, behind those of the ordinates.
TColor NextColour(const TPlot& plot, const TColourScheme& scheme)
{
    std::set<TColor> taken;
    for (const TPlottedFit& fit : plot.Fits)
        taken.insert(fit.Series->GetLineStyle().GetColor());
    for (std::size_t i = 0; i < SchemeColours; ++i)
        if (const TColor colour = scheme.Curves[(plot.Series.size() + i) % SchemeColours]; !taken.contains(colour))
            return colour;
    return scheme.Curves[(plot.Series.size() + plot.Fits.size()) % SchemeColours];
}

std::string CaptionOfAxis(const TFitWish& wish, const TColumnChoice& choice, const std::vector<std::size_t>& ordinates)
{
    std::string caption = CaptionOf(wish);
    if (ordinates.size() == 1)
        caption += " of " + CaptionOf(choice.Ys[ordinates.front()].Name);
    if (choice.X.IsDateTime)
        caption += wish.Kind == fkDerivative ? " (per day)" : " (times days)";
    return caption;
}

TKxCalculatedSeries* AddCurve(TPlot& plot, const TFitWish& wish, std::size_t ordinate, const std::string& caption,
                              const TColourScheme& scheme)
{
    TKxCalculatedSeries* const curve = NewCurve(plot.Form.get(), wish);
    curve->SetCaption(caption);
    curve->GetLineStyle().SetColor(NextColour(plot, scheme));
    curve->GetLineStyle().SetWidth(CurveWidth);
    const auto news = plot.News;
    curve->OnError = [news, curve](EError& error) { news->Failed(*curve, GetStrippedString(error.Message())); };
    curve->OnCalculated = [news](TKxCalculatedSeries& series) { news->Succeeded(series); };
    plot.Fits.push_back({curve, 0, ordinate, {}});
    return curve;
}

void AddFit(TPlot& plot, const TColumnChoice& choice, std::size_t number, const TColourScheme& scheme)
{
    const TFitWish& wish = plot.Fit.Fits[number];
    const std::vector<std::size_t> ordinates = OrdinatesOf(wish, choice);
    TKxAxis* axis = nullptr;
    for (const std::size_t ordinate : ordinates) {
        TKxNotCalculatedSeries& parent = *plot.Series[ordinate];
        TKxCalculatedSeries* const curve =
            AddCurve(plot, wish, ordinate, CaptionIn(wish, choice.Ys[ordinate], choice.Ys.size() > 1), scheme);
        plot.Fits.back().Wish = number;
        if (axis)
            curve->SetYAxis(axis);
        curve->SetParentSeries(&parent);
        if (!HasOwnAxis(wish) || axis || curve->GetYAxis() == parent.GetYAxis())
            continue;
        axis = curve->GetYAxis();
        SetLook(*axis, CaptionOfAxis(wish, choice, ordinates), scheme.Ink);
        axis->SetBorderCaptionGap(AxisGap);
        if (ordinates.size() == 1)
            axis->GetCaptionFont().SetColor(curve->GetLineStyle().GetColor());
    }
}

void RemoveFit(TPlot& plot, TPlottedFit& fit)
{
    DeleteLabels(plot, fit);
    plot.News->Forget(*fit.Series);
    delete fit.Series;
}

/// Secondary axes stay when their curve goes.
void RemoveSpareAxes(TPlot& plot)
{
    std::vector<TKxAxis*> spare;
    for (TComponent* component : plot.Form->Components())
        if (auto* axis = dynamic_cast<TKxAxis*>(component); axis && axis->GetName().starts_with(OwnAxis))
            if (std::none_of(plot.Fits.begin(), plot.Fits.end(),
                             [&](const TPlottedFit& fit) { return fit.Series->UsesAxis(*axis); }))
                spare.push_back(axis);
    for (TKxAxis* axis : spare)
        delete axis;
}

/// Takes from `wanted` the wish for which this curve was made.
std::optional<TFitWish> TakeWish(std::vector<TFitWish>& wanted, const TFitWish& present)
{
    auto found = std::find(wanted.begin(), wanted.end(), present);
    if (found == wanted.end())
        found = std::find_if(wanted.begin(), wanted.end(),
                             [&](const TFitWish& wish) { return FitText(wish) == FitText(present); });
    if (found == wanted.end())
        return std::nullopt;
    TFitWish wish = *found;
    wanted.erase(found);
    return wish;
}

/// Curves whose wish is not among `wanted` go; what is wanted of the others is taken from it.
void KeepWanted(TPlot& plot, std::vector<TFitWish>& wanted)
{
    std::vector<TFitWish> wishes;
    std::vector<TPlottedFit> fits;
    for (std::size_t i = 0; i < plot.Fit.Fits.size(); ++i) {
        const auto wish = TakeWish(wanted, plot.Fit.Fits[i]);
        for (TPlottedFit& fit : plot.Fits) {
            if (fit.Wish != i)
                continue;
            if (!wish) {
                RemoveFit(plot, fit);
                continue;
            }
            SetUpCurve(*fit.Series, *wish);
            if (wish->Start != plot.Fit.Fits[i].Start)
                StartAnew(*fit.Series, *wish);
            fits.push_back(std::move(fit));
            fits.back().Wish = wishes.size();
        }
        if (wish)
            wishes.push_back(*wish);
    }
    plot.Fits = std::move(fits);
    plot.Fit.Fits = std::move(wishes);
}

void NameCurves(TPlot& plot)
{
    std::vector<int> numbers(plot.Series.size(), 0);
    for (const TPlottedFit& fit : plot.Fits)
        fit.Series->SetName(plot.Series[fit.Ordinate]->GetName() + "Fit" + std::to_string(++numbers[fit.Ordinate]));
}

}  // namespace

void SetFits(TPlot& plot, const TColumnChoice& choice, const TOptions& options)
{
    std::vector<TFitWish> wanted = WishesOf(options.Fit, choice);
    if (wanted.empty() && plot.Fit.Fits.empty())
        return;
    CheckKind(options.Kind);
    const TColourScheme& scheme = SchemeOf(options);
    KeepWanted(plot, wanted);
    plot.Fit.Weights = options.Fit.Weights;
    plot.Fit.TakeFromLook = false;
    for (TFitWish& wish : wanted) {
        plot.Fit.Fits.push_back(std::move(wish));
        AddFit(plot, choice, plot.Fit.Fits.size() - 1, scheme);
    }
    NameCurves(plot);
    RemoveSpareAxes(plot);
    KeepLabels(plot, scheme);
    NameLabels(plot);
    KeepLegend(*plot.Form, *plot.Graph, plot.Series.size() + plot.Fits.size(), options);
}

void RestoreFits(TPlot& plot)
{
    for (const TPlottedFit& fit : plot.Fits) {
        const TFitWish& wish = plot.Fit.Fits[fit.Wish];
        SetUpCurve(*fit.Series, wish);
        StartAnew(*fit.Series, wish);
    }
}

}  // namespace plotkit
