#include <algorithm>
#include <iterator>
#include <vector>

#include "graph/KxAxis.h"
#include "graph/KxDateTimeTicks.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"

namespace plotkit {

namespace {

constexpr int MostCaptions = 3;

}  // namespace

std::string TKxAxis::SeriesCaptions() const
{
    const TKx2DGraph* graph = GraphOf(*this);
    if (!graph)
        return {};
    std::vector<const TKxPlottable*> users, derived;
    for (TKxPlottable* series : graph->World().SeriesList()) {
        if (series->UsesAxis(*this))
            users.push_back(series);
        std::copy_if(series->Childs().begin(), series->Childs().end(), std::back_inserter(derived),
                     [this](const TKxPlottable* child) { return child->UsesAxis(*this); });
    }
    std::string joined;
    int count = 0;
    for (const TKxPlottable* series : users.empty() ? derived : users) {
        if (series->GetCaption().empty())
            continue;
        if (++count > MostCaptions)
            return {};
        joined += (joined.empty() ? "" : ", ") + series->GetCaption();
    }
    return joined;
}

bool TKxAxis::RefreshAutoCaption()
{
    std::string caption = SeriesCaptions();
    if (FScaling == AxDateTime) {
        const std::string dates = DatesBeside(FDTRegion, {GetStart(), GetStop()});
        if (caption.empty())
            caption = dates;
        else if (!dates.empty())
            caption += " (" + dates + ")";
    }
    if (caption == GetAutoCaption())
        return false;
    const TKxCaption before = GetCaption();
    TakeAutoCaption(caption);
    return GetCaption() != before;
}

/// A caption that somebody has set stays.
void TKxAxis::TakeAutoCaption(const std::string& caption)
{
    if (GetDoUserCaption() || GetCaption() == GetAutoCaption() || GetCaption() == GetUserCaption() ||
        GetCaption().empty())
        SetAutoCaption(caption);
}

void TKxAxis::PlaceCaption()
{
    FCaptionWidth = 0;
    FCaptionHeight = 0;
    TKxCustomLabel& label = CaptionLabel();
    if (!GetShowCaption()) {
        label.SetVisible(false);
        return;
    }
    ShowCaptionText();
    label.SetFont(GetCaptionFont());
    label.SetAngle(Orientation() == AxVertical ? 900 : 0);
    label.SetTransparent(true);
    label.SetVisible(true);
    FCaptionWidth = label.GetWidth();
    FCaptionHeight = label.GetHeight();
    label.SetAlignment(CrossesAtZero() ? taRightJustify : taCenter);
    PlaceCaptionLabel(label, CrossesAtZero());
}

void TKxAxis::PlaceCaptionLabel(TKxCustomLabel& label, bool atEnd)
{
    const int gap = Px(GetCaptionScalingsGap()), border = Px(GetBorderCaptionGap());
    const int middleX = GetLeft() + FAxisX + FPixelLength / 2;
    const int middleY = GetTop() + FAxisY + (FPixelLength - FCaptionHeight) / 2;
    switch (FPosition) {
        case AxBottomPos:
            FCaptionHeight += gap;
            label.SetXPosition(atEnd ? GetLeft() + FAxisX + FPixelLength : middleX);
            label.SetTop(GetTop() + FAxisY + Px(GetScalingsTicksGap()) + FLabelHeight + gap +
                         std::max(Px(GetMajorTickLength()), 0));
            break;
        case AxLeftPos:
            FCaptionWidth += gap;
            label.SetXPosition(GetLeft() + border);
            // At the end the caption counts from the graph's top.
            label.SetTop(atEnd ? FAxisY : middleY);
            break;
        case AxTopPos:
            if (atEnd)
                break;
            FCaptionHeight += gap;
            label.SetXPosition(middleX);
            label.SetTop(GetTop() + border);
            break;
        case AxRightPos:
            if (atEnd)
                break;
            label.SetXPosition(GetLeft() + GetWidth() - FCaptionWidth - border);
            label.SetTop(middleY);
            FCaptionWidth += gap;
            break;
        case AxFreeFloating:
            break;
    }
}

}  // namespace plotkit
