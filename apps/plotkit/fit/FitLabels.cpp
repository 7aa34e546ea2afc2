#include "plotkit/fit/FitLabels.h"

#include <algorithm>
#include <array>
#include <optional>

#include "graph/KxDraw.h"
#include "graph/KxResultLabel.h"
#include "plotkit/PlotParts.h"
#include "plotkit/fit/FitCurve.h"
#include "plotkit/fit/FitResults.h"
#include "series/KxNotCalculatedSeries.h"

namespace plotkit {

namespace {

constexpr int Characters = 9;
constexpr int FontSize = 10;
constexpr int Margin = 10, RowGap = 2, ColumnGap = 4;  // 1/96 inch

void DeleteLabel(const TFitLabel& label)
{
    delete label.Name;
    delete label.Value;
}

template <class TLabel>
TLabel* NewLabel(const TPlot& plot, TColor ink)
{
    auto* label = new TLabel(plot.Form.get());
    SetFont(label->GetFont(), FontSize, ink);
    label->SetTransparent(true);
    label->SetVisible(false);
    label->SetParent(plot.Graph);
    return label;
}

TFitLabel MakeLabel(const TPlot& plot, const TPlottedFit& fit, const std::string& result, TColor ink)
{
    TFitLabel label{result, NewLabel<TKxLabel>(plot, fit.Series->GetLineStyle().GetColor()),
                    NewLabel<TKxResultLabel>(plot, ink), false};
    label.Name->SetAlignment(taRightJustify);
    label.Value->SetDigits(Characters);
    label.Value->SetIdentifier(result);
    label.Value->SetSeries(fit.Series);
    return label;
}

std::vector<TFitLabel*> LabelsOf(TPlot& plot)
{
    std::vector<TFitLabel*> labels;
    for (TPlottedFit& fit : plot.Fits)
        for (TFitLabel& label : fit.Labels)
            labels.push_back(&label);
    return labels;
}

TRect United(const TRect& a, const TRect& b)
{
    return {std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right), std::max(a.Bottom, b.Bottom)};
}

/// Of all curves inside a box of the graph.
int PointsInside(const TPlot& plot, const TRect& box)
{
    const TRect area = plot.Graph->World().DataRect();
    int count = 0;
    const auto add = [&](const TKxSeries& series) {
        for (const TPoint& point : series.Points().Values())
            count += point != MissingPoint && box.Contains({point.X + area.Left, point.Y + area.Top});
    };
    for (const TKxNotCalculatedSeries* series : plot.Series)
        add(*series);
    for (const TPlottedFit& fit : plot.Fits)
        add(*fit.Series);
    return count;
}

TPoint FreestCorner(const TPlot& plot, int width, int height)
{
    const TRect area = plot.Graph->World().DataRect();
    const int margin = plot.Graph->Px(Margin);
    const int left = area.Left + margin, right = std::max(left, area.Right - margin - width);
    const int top = area.Top + margin, bottom = std::max(top, area.Bottom - margin - height);
    const std::array corners{TPoint{left, top}, TPoint{right, top}, TPoint{left, bottom}, TPoint{right, bottom}};
    const auto taken = [&](TPoint corner) {
        return PointsInside(plot, {corner.X, corner.Y, corner.X + width, corner.Y + height});
    };
    return *std::min_element(corners.begin(), corners.end(), [&](TPoint a, TPoint b) { return taken(a) < taken(b); });
}

}  // namespace

void DeleteLabels(TPlot& plot, TPlottedFit& fit)
{
    if (fit.Labels.empty())
        return;
    for (const TFitLabel& label : fit.Labels)
        DeleteLabel(label);
    fit.Labels.clear();
    // The rest moves up.
    for (TFitLabel* label : LabelsOf(plot))
        label->IsPlaced = false;
}

void KeepLabels(TPlot& plot, const TColourScheme& scheme)
{
    for (TPlottedFit& fit : plot.Fits) {
        const TFitWish& wish = plot.Fit.Fits[fit.Wish];
        std::vector<TFitLabel> kept;
        for (const std::string& result : wish.Results) {
            const auto found = std::find_if(fit.Labels.begin(), fit.Labels.end(),
                                            [&](const TFitLabel& label) { return label.Result == result; });
            const bool isNew = found == fit.Labels.end();
            kept.push_back(isNew ? MakeLabel(plot, fit, result, scheme.Ink) : *found);
            const std::string front = kept.size() == 1 ? fit.Series->GetCaption() + ":  " : std::string();
            const std::string name = ResultMarkup(wish, result);
            // A code at the end swallows one blank.
            kept.back().Name->SetCaption(front + name + (name[name.size() - 2] == '\\' ? "  =" : " ="));
            if (!isNew)
                fit.Labels.erase(found);
        }
        std::swap(fit.Labels, kept);
        TPlottedFit gone;
        gone.Labels = std::move(kept);
        DeleteLabels(plot, gone);
    }
}

void NameLabels(TPlot& plot)
{
    for (TPlottedFit& fit : plot.Fits)
        for (TFitLabel& label : fit.Labels) {
            std::string name = fit.Series->GetName() + "_";
            for (const char c : label.Result)
                name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
            label.Value->SetName(name);
            label.Name->SetName(name + "_Name");
        }
}

void PlaceLabels(TPlot& plot)
{
    const auto px = [&](int n) { return plot.Graph->Px(n); };
    const std::vector<TFitLabel*> labels = LabelsOf(plot);
    if (std::all_of(labels.begin(), labels.end(), [](const TFitLabel* label) { return label->IsPlaced; }))
        return;
    int names = 0, values = 0, height = 0;
    std::optional<TPoint> top;
    for (const TFitLabel* label : labels) {
        names = std::max(names, label->Name->GetWidth());
        values = std::max(values, label->Value->GetWidth());
        height += label->Name->GetHeight() + px(RowGap);
        if (label->Name->GetVisible() && (!top || label->Name->GetTop() < top->Y))
            top = {label->Value->GetLeft() - px(ColumnGap) - names, label->Name->GetTop()};
    }
    TPoint at = FreestCorner(plot, names + px(ColumnGap) + values, height);
    if (top)
        at = {std::max(top->X, plot.Graph->World().DataRect().Left + px(Margin)), top->Y};
    for (TFitLabel* label : labels) {
        label->Name->SetTop(at.Y);
        label->Name->SetXPosition(at.X + names);
        label->Value->SetTop(at.Y);
        label->Value->SetXPosition(at.X + names + px(ColumnGap));
        at.Y += label->Name->GetHeight() + px(RowGap);
        label->Name->SetVisible(true);
        label->Value->SetVisible(true);
        label->IsPlaced = true;
    }
}

void KeepLabelsInside(TPlot& plot)
{
    const TRect area = plot.Graph->World().DataRect();
    const int margin = plot.Graph->Px(Margin);
    std::optional<TRect> all;
    for (const TFitLabel* label : LabelsOf(plot))
        for (const TControl* part : {static_cast<TControl*>(label->Name), static_cast<TControl*>(label->Value)})
            all = all ? United(*all, part->Bounds()) : part->Bounds();
    if (!all || area.Intersected(*all) == *all)
        return;
    // Where there is too little room the upper left is in view.
    const int x = std::max(std::min(all->Left, area.Right - margin - all->Width()), area.Left + margin) - all->Left;
    const int y = std::max(std::min(all->Top, area.Bottom - margin - all->Height()), area.Top + margin) - all->Top;
    for (TFitLabel* label : LabelsOf(plot))
        for (TControl* part : {static_cast<TControl*>(label->Name), static_cast<TControl*>(label->Value)})
            part->SetBounds(part->GetLeft() + x, part->GetTop() + y, part->GetWidth(), part->GetHeight());
}

}  // namespace plotkit
