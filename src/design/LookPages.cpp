#include "design/LookPages.h"

#include <algorithm>
#include <array>

#include "calculated/KxCalculatedSeries.h"
#include "design/LookTree.h"
#include "foundation/KxLargeIni.h"
#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxResultLabel.h"
#include "graph/KxResultSource.h"
#include "host/StringList.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

using TTexts = std::string_view;

constexpr double MaxPixels = 1000;
constexpr double MaxPen = 100;
constexpr double MaxPlace = 10000;

constexpr std::array<TTexts, 5> PositionTexts{"Bottom", "Left", "Top", "Right", "Floating"};
constexpr std::array<TTexts, 3> EndTexts{"Follows the data", "Only widens", "Fixed"};
constexpr std::array<TTexts, 4> ScalingTexts{"Linear", "Logarithmic", "Logarithmic, powers of ten", "Date and time"};
constexpr std::array<TTexts, 3> AlignmentTexts{"Left", "Right", "Centred"};

constexpr TLookRow Number(TTexts path, TTexts text, double min, double max, TTexts unit = {})
{
    TLookRow row{path, text, leByKind, min, max};
    row.Unit = unit;
    return row;
}
/// In pixels of a plain screen, 1/96 inch.
constexpr TLookRow Pixels(TTexts path, TTexts text, double max, double min = 0)
{
    return Number(path, text, min, max, "px");
}
constexpr TLookRow Angle(TTexts path, TTexts text)
{
    TLookRow row = Number(path, text, -359.9, 359.9, "°");
    row.Editor = leTenths;
    return row;
}
constexpr TLookRow Choice(TTexts path, TTexts text, std::span<const TTexts> choices)
{
    TLookRow row{path, text};
    row.Choices = choices;
    return row;
}
constexpr TLookRow When(TLookRow row, TTexts needs, TTexts value)
{
    row.Needs = needs;
    row.NeedsValue = value;
    return row;
}

constexpr std::array FontRows{
    TLookRow{"Name", "Font", leFontName}, Number("Size", "Size", 1, 200, "pt"),
    TLookRow{"Color", "Colour"},          TLookRow{"Bold", "Bold"},
    TLookRow{"Italic", "Italic"},         TLookRow{"Underline", "Underline"},
    TLookRow{"StrikeOut", "Struck out"},
};
constexpr std::array LineRows{
    TLookRow{"Visible", "Shown"},
    TLookRow{"Color", "Colour"},
    TLookRow{"Style", "Style", leLineStyle},
    Pixels("Width", "Width", MaxPen),
};
constexpr std::array AreaRows{
    TLookRow{"Visible", "Shown"},
    TLookRow{"Color", "Colour"},
    TLookRow{"Style", "Fill", leFillStyle},
    TLookRow{"DrawXOred", "Inverting what is below"},
};
constexpr std::array PointRows{
    TLookRow{"Visible", "Shown"},
    TLookRow{"Color", "Colour"},
    TLookRow{"Style", "Symbol", lePointSymbol},
    Pixels("Size", "Size", MaxPixels),
    Pixels("Width", "Line width", MaxPen),
};

constexpr std::array GraphRows{
    TLookRow{"Caption", "Title", leCaption},
    TLookRow{"ShowTitle", "Show the title"},
    TLookRow{"Color", "Colour around"},
    TLookRow{"DataColor", "Colour behind the data"},
    TLookRow{"ZeroOrigin", "Axes cross at zero"},
    TLookRow{"ShareYAxes", "Derivatives and integrals on the same Y axis"},
};
constexpr std::array AxisScaleRows{
    TLookRow{"Caption", "Caption", leCaption}, TLookRow{"ShowCaption", "Show the caption"},
    TLookRow{"Visible", "Show the axis"},      Choice("Scaling", "Scale", ScalingTexts),
    Choice("StartEnd", "Lower end", EndTexts), When({"Start", "From", leAxisValue}, "StartEnd", "AxFixed"),
    Choice("StopEnd", "Upper end", EndTexts),  When({"Stop", "To", leAxisValue}, "StopEnd", "AxFixed"),
    TLookRow{"Twisted", "Reversed"},
};
constexpr std::array AxisPlaceRows{
    Choice("Position", "Position", PositionTexts),
    When(Pixels("Left", "From the left", MaxPlace, -MaxPlace), "Position", "AxFreeFloating"),
    When(Pixels("Top", "From the top", MaxPlace, -MaxPlace), "Position", "AxFreeFloating"),
    TLookRow{"AutoSize", "As wide as needed"},
    TLookRow{"IsSlaveAxis", "Follows another axis"},
    When({"MasterAxis", "Followed axis"}, "IsSlaveAxis", "True"),
    TLookRow{"Transparent", "Transparent"},
    When({"Color", "Background"}, "Transparent", "False"),
};
constexpr std::array AxisTickRows{
    TLookRow{"AutoTicks", "Automatic"},
    When(Number("TickPart", "Step", 0, 1e9), "AutoTicks", "False"),
    When(Number("MajorTickPart", "Step of long ticks", 0, 1e9), "AutoTicks", "False"),
    When(Number("LabelPart", "Step of labels", 0, 1e9), "AutoTicks", "False"),
    Pixels("TickLength", "Length", MaxPen, -MaxPen),
    Pixels("MajorTickLength", "Length of long ticks", MaxPen, -MaxPen),
    Pixels("TickThicknes", "Width", MaxPen),
    Pixels("MajorTickThicknes", "Width of long ticks", MaxPen),
    Pixels("AxisThicknes", "Width of the axis", MaxPen),
    TLookRow{"TickColor", "Colour"},
    TLookRow{"MajorTickColor", "Colour of long ticks"},
    TLookRow{"AxisColor", "Colour of the axis"},
};
constexpr std::array AxisLabelRows{
    TLookRow{"ShowScaleLabels", "Show labels"},
    Number("MaxExpForScaleExp", "Common power of ten above exponent", -300, 300),
    Number("MinExpForScaleExp", "Common power of ten below exponent", -300, 300),
    Pixels("ScalingsTicksGap", "Gap to the ticks", MaxPixels),
    Pixels("CaptionScalingsGap", "Gap to the caption", MaxPixels),
    Pixels("BorderCaptionGap", "Gap behind the caption", MaxPixels),
    Pixels("ExponentScalingsGap", "Gap to the exponent", MaxPixels),
    Pixels("ValuesTicksGap", "Gap between labels", MaxPixels),
};
constexpr std::array SeriesRows{
    TLookRow{"Caption", "Caption", leCaption},
    TLookRow{"IncludeInLegend", "In the legend"},
    TLookRow{"XAxis", "X axis"},
    TLookRow{"YAxis", "Y axis"},
};
constexpr std::array ErrorRows{
    TLookRow{"ErrorIndicatorsColor", "Colour"},
};
constexpr std::array BarRows{
    TLookRow{"BarHorizontal", "Horizontal"},
    Number("BarsGapPercent", "Gap between bars", 0, 100, "%"),
    TLookRow{"ShiftOverlays", "Series beside each other"},
    TLookRow{"StackOverlays", "Series on top of each other"},
    TLookRow{"Show3DBars", "With depth"},
    When(Number("DepthPercent", "Depth", 0, 1000, "%"), "Show3DBars", "True"),
};
constexpr std::array ArrowRows{
    Pixels("TipLength", "Length of the tip", MaxPixels, 1),
    Pixels("TipWidth", "Half width of the tip", MaxPixels),
};
constexpr std::array CurveRows{
    Number("Order", "Order", 1, 50),
    TLookRow{"Expression", "Formula"},
    Number("Iterations", "Largest number of steps", 0, 1e9),
    TLookRow{"DoFixedOffset", "Fixed offset"},
    When(Number("Offset", "Offset", -1e300, 1e300), "DoFixedOffset", "True"),
    TLookRow{"DoSmoothing", "Smoothed"},
    When(Number("SmoothRange", "Points on each side", 0, 1e9), "DoSmoothing", "True"),
    Number("WeightFactor", "Smoothness", 0, 1e300),
    TLookRow{"ParentWeight", "Weighted as its series"},
    TLookRow{"AutoStart", "Calculated from the first point"},
    When({"CalculationStart", "Calculated from", leAxisValue}, "AutoStart", "False"),
    TLookRow{"AutoStop", "Calculated to the last point"},
    When({"CalculationStop", "Calculated to", leAxisValue}, "AutoStop", "False"),
    TLookRow{"CoupleCalculationAndDisplay", "Drawn where calculated"},
    TLookRow{"DisplayAutoStart", "Drawn from the first point"},
    When({"DisplayStart", "Drawn from", leAxisValue}, "DisplayAutoStart", "False"),
    TLookRow{"DisplayAutoStop", "Drawn to the last point"},
    When({"DisplayStop", "Drawn to", leAxisValue}, "DisplayAutoStop", "False"),
};
constexpr std::array LabelRows{
    TLookRow{"Caption", "Text", leCaption},
    TLookRow{"Identifier", "Result", leResult},
    Number("Digits", "Digits", 0, 18),
    TLookRow{"Series", "Of"},
    Choice("Alignment", "Alignment", AlignmentTexts),
    Angle("Angle", "Angle"),
    Pixels("XPosition", "From the left", MaxPlace, -MaxPlace),
    Pixels("Top", "From the top", MaxPlace, -MaxPlace),
    TLookRow{"Transparent", "Transparent"},
    When({"Color", "Background"}, "Transparent", "False"),
    TLookRow{"Visible", "Shown"},
};
constexpr std::array LegendRows{
    TLookRow{"Visible", "Shown"},
    Choice("InGraphPosition", "Position", PositionTexts),
    When(Pixels("Left", "From the left", MaxPlace, -MaxPlace), "InGraphPosition", "AxFreeFloating"),
    When(Pixels("Top", "From the top", MaxPlace, -MaxPlace), "InGraphPosition", "AxFreeFloating"),
    TLookRow{"Transparent", "Transparent"},
    When({"Color", "Background"}, "Transparent", "False"),
    TLookRow{"ClickHides", "A click hides the series"},
    TLookRow{"AutoSize", "As large as needed"},
};
constexpr std::array LegendSpaceRows{
    Pixels("SampleWidth", "Width of the samples", MaxPixels),
    Pixels("SampleCaptionGap", "Gap behind the samples", MaxPixels),
    Pixels("RowGap", "Gap between rows", MaxPixels),
    Pixels("ColumnGap", "Gap between columns", MaxPixels),
    Pixels("InsideGap", "Gap inside the frame", MaxPixels),
    Pixels("OutsideGap", "Gap outside the frame", MaxPixels),
};

constexpr std::array GraphPages{
    TLookPage{"Graph", "", GraphRows},
    TLookPage{"Title font", "TitleFont.", FontRows},
    TLookPage{"Frame", "FrameLine.", LineRows},
    TLookPage{"Grid, X", "MajorGridX.", LineRows},
    TLookPage{"Fine grid, X", "MinorGridX.", LineRows},
    TLookPage{"Grid, Y", "MajorGridY.", LineRows},
    TLookPage{"Fine grid, Y", "MinorGridY.", LineRows},
};
constexpr std::array AxisPages{
    TLookPage{"Scale", "", AxisScaleRows},
    TLookPage{"Ticks", "", AxisTickRows},
    TLookPage{"Labels", "", AxisLabelRows},
    TLookPage{"Label font", "Font.", FontRows},
    TLookPage{"Caption font", "CaptionFont.", FontRows},
    TLookPage{"Place", "", AxisPlaceRows},
};
constexpr std::array SeriesPages{
    TLookPage{"Series", "", SeriesRows},
    TLookPage{"Line", "LineStyle.", LineRows},
    TLookPage{"Points", "PointStyle.", PointRows},
    TLookPage{"Area", "AreaStyle.", AreaRows},
    TLookPage{"Error bars", "", ErrorRows},
    TLookPage{"Bars", "", BarRows},
    TLookPage{"Arrows", "", ArrowRows},
    TLookPage{"Calculation", "", CurveRows},
};
constexpr std::array LabelPages{
    TLookPage{"Label", "", LabelRows},
    TLookPage{"Font", "Font.", FontRows},
};
constexpr std::array LegendPages{
    TLookPage{"Legend", "", LegendRows},
    TLookPage{"Spacing", "", LegendSpaceRows},
    TLookPage{"Font", "Font.", FontRows},
    TLookPage{"Frame", "FrameLine.", LineRows},
};

std::span<const TLookPage> FamilyPages(const TComponent& component)
{
    if (dynamic_cast<const TKx2DGraph*>(&component))
        return GraphPages;
    if (dynamic_cast<const TKxAxis*>(&component))
        return AxisPages;
    if (dynamic_cast<const TKxPlottable*>(&component))
        return SeriesPages;
    if (dynamic_cast<const TKxCustomLabel*>(&component))
        return LabelPages;
    if (dynamic_cast<const TKxAttachedLegend*>(&component))
        return LegendPages;
    return {};
}

}  // namespace

std::vector<TLookPage> LookPages(TComponent& component)
{
    std::vector<TLookPage> pages;
    for (const TLookPage& page : FamilyPages(component))
        if (std::ranges::any_of(page.Rows, [&](const TLookRow& row) { return HasLookRow(component, page, row); }))
            pages.push_back(page);
    return pages;
}

bool HasLookRow(TComponent& component, const TLookPage& page, const TLookRow& row)
{
    return bool(FindLookProperty(component, page.PathOf(row)));
}

bool IsLookRowEnabled(TComponent& component, const TLookPage& page, const TLookRow& row)
{
    if (row.Needs.empty())
        return true;
    const TLookProperty needed = FindLookProperty(component, std::string(page.Prefix) + std::string(row.Needs));
    return !needed || PropertyText(*needed.Row, std::get<TPropertyValue>(needed.Value())) == row.NeedsValue;
}

std::string LookRowName(TComponent& component, std::string_view path)
{
    for (const TLookPage& page : FamilyPages(component))
        for (const TLookRow& row : page.Rows)
            if (page.PathOf(row) == path)
                return std::string(row.Text) + (page.Prefix.empty() ? "" : " (" + std::string(page.Text) + ")");
    return std::string(path);
}

std::vector<std::string> LookResults(const TComponent& label)
{
    const auto* result = dynamic_cast<const TKxResultLabel*>(&label);
    auto* series = result ? dynamic_cast<TKxCalculatedSeries*>(result->GetSeries()) : nullptr;
    if (!series)
        return {};
    constexpr const char* section = "Results";
    TKxIniList list;
    TStringList names;
    series->WriteResults(list, section);
    list.ReadSection(section, names);
    return names.Lines();
}

std::vector<TComponent*> LookCandidates(TKx2DGraph& graph, TComponent& component, const std::string& path)
{
    const auto* standing = std::get<TComponent*>(FindLookProperty(component, path).Value());
    std::vector<TComponent*> candidates;
    for (TComponent* part : LookParts(graph)) {
        const auto* axis = dynamic_cast<const TKxAxis*>(part);
        const bool fits = path == "XAxis"        ? axis && axis->Orientation() == AxHorizontal
                          : path == "YAxis"      ? axis && axis->Orientation() == AxVertical
                          : path == "MasterAxis" ? axis && axis != &component
                                                 : dynamic_cast<const TKxResultSource*>(part) != nullptr;
        if (fits || part == standing)
            candidates.push_back(part);
    }
    return candidates;
}

}  // namespace plotkit
