#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "data/KxVector.h"
#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "host/DateTime.h"
#include "host/Errors.h"
#include "plotkit/DateCaption.h"
#include "plotkit/GraphBuilder.h"
#include "plotkit/LogColumns.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

TColumnChoice Choose(const std::string& text, const std::vector<std::string>& ys = {})
{
    std::istringstream stream(text);
    return ChooseColumns(ReadCsv(stream, "data.csv"), std::nullopt, ys);
}

TColumnChoice ChooseFile(const std::string& file)
{
    return ChooseColumns(ReadCsvFile(PLOTKIT_SOURCE_DIR "/data/measured/" + file), std::nullopt, {});
}

std::vector<TKxDataSeries*> SeriesOf(const TPlot& plot)
{
    std::vector<TKxDataSeries*> series;
    for (TComponent* component : plot.Form->Components())
        if (auto* found = dynamic_cast<TKxDataSeries*>(component))
            series.push_back(found);
    return series;
}

TEST(Plot, SeriesHaveTheirOwnVectorsAndShareTheArrays)
{
    const TColumnChoice choice = Choose("t,a,b\n1,2,3\n2,,4\n3,4,5\n", {"a", "b"});
    const TPlot plot = BuildPlot(choice, {});
    const auto series = SeriesOf(plot);
    ASSERT_EQ(series.size(), 2U);
    EXPECT_NE(series[0]->GetXData(), series[1]->GetXData());
    for (std::size_t i = 0; i < series.size(); ++i) {
        EXPECT_TRUE(series[i]->GetXData()->Array().IsSharedWith(choice.X.Values));
        EXPECT_TRUE(series[i]->GetYData()->Array().IsSharedWith(choice.Ys[i].Values));
    }
    EXPECT_NE(series[0]->GetLineStyle().GetColor(), series[1]->GetLineStyle().GetColor());
    plot.Form->Picture();
    const TKxAxis& y = *plot.Graph->GetPrimaryYAxis();
    EXPECT_LE(y.GetStart(), 2);
    EXPECT_GE(y.GetStop(), 5);
}

TEST(Plot, ALegendStandsWhereSeveralOrdinatesNeedOne)
{
    const TColumnChoice one = Choose("t,a,b\n1,2,3\n2,,4\n3,4,5\n", {"a"}),
                        two = Choose("t,a,b\n1,2,3\n2,4,5\n", {"a", "b"});
    const std::tuple<const TColumnChoice*, TLegendChoice, int, const char*> cases[] = {
        {&one, lcAuto, -1, "a"},
        {&two, lcAuto, AxTopPos, ""},
        {&two, lcNone, -1, "a, b"},
        {&two, lcLeft, AxLeftPos, ""},
        {&one, lcFree, AxFreeFloating, "a"}};
    for (const auto& [choice, wanted, position, caption] : cases) {
        TOptions options;
        options.Legend = wanted;
        const TPlot plot = BuildPlot(*choice, options);
        plot.Form->Picture();
        const auto& legends = plot.Graph->AttachedList();
        ASSERT_EQ(legends.Count(), position < 0 ? 0 : 1);
        EXPECT_EQ(plot.Graph->GetPrimaryYAxis()->GetCaption(), caption);
        if (position < 0)
            continue;
        EXPECT_EQ(legends[0]->GetInGraphPosition(), position);
        const TRect outside = plot.Graph->World().DataRect().Intersected(legends[0]->Bounds());
        EXPECT_EQ(outside == legends[0]->Bounds(), position == AxFreeFloating);
    }
}

TEST(Plot, MeasuredFilesFillTheirAxes)
{
    const std::pair<const char*, const char*> files[] = {
        {"mauna-loa-co2-monthly.csv", "X: year_month (date), Y: co2_ppm (820 values)"},
        {"mauna-loa-co2-annual.csv", "X: year, Y: co2_ppm (67 values)"},
        {"gistemp-annual.csv", "X: year, Y: anomaly_degC (144 values)"},
        {"sunspots-monthly.csv", "X: decimal_year, Y: sunspot_number (3126 values)"},
        {"buoy-44005-2012-10-11.csv", "X: year..minute (date), Y: wind_dir_deg (1398 values, 59 missing)"},
        {"cu-foil-xafs.csv", "X: energy_eV, Y: i0 (408 values)"},
        {"ecg-mitdb208-12s.csv", "X: time_s, Y: ecg_mV (4320 values)"},
        {"xrd-rbnb2o5f.csv", "X: two_theta_deg, Y: counts (8758 values)"}};
    for (const auto& [file, described] : files) {
        const TColumnChoice choice = ChooseFile(file);
        EXPECT_EQ(DescribeChoice(choice), described);
        const TPlot plot = BuildPlot(choice, {});
        plot.Form->Picture();
        const TKxAxis& x = *plot.Graph->GetPrimaryXAxis();
        const bool hasDates = std::string(described).find("(date)") != std::string::npos;
        EXPECT_EQ(x.GetScaling(), hasDates ? AxDateTime : AxNormal) << file;
        // The data take up most of the axis, and none lies beyond it.
        const double first = choice.X.Values[0], last = choice.X.Values[choice.X.Values.Length() - 1];
        EXPECT_LE(x.GetStart(), first) << file;
        EXPECT_GE(x.GetStop(), last) << file;
        EXPECT_LT(x.GetStop() - x.GetStart(), 2 * (last - first)) << file;
        EXPECT_GT(x.ScaleLabels().size(), 2U) << file;
    }
}

TEST(Plot, OptionsDecideTheLook)
{
    const TColumnChoice choice = Choose("t,a\\_1\n1,2\n2,3\n");
    TOptions options;
    options.Line = false;
    options.Grid = false;
    options.Title = "\\bT\\b";
    options.Width = 300;
    options.Height = 200;
    const TPlot plot = BuildPlot(choice, options);
    TKxDataSeries& series = *SeriesOf(plot).at(0);
    EXPECT_FALSE(series.GetLineStyle().GetVisible());
    EXPECT_TRUE(series.GetPointStyle().GetVisible());
    EXPECT_FALSE(plot.Graph->GetMajorGridX().GetVisible());
    EXPECT_TRUE(plot.Graph->GetShowTitle());
    EXPECT_EQ(plot.Graph->GetPrimaryYAxis()->GetCaption(), "a\\\\_1");
    EXPECT_EQ(plot.Graph->Bounds(), (TRect{0, 0, 300, 200}));
}

TColumnChoice ChooseKind(TOptions& options, const std::string& text, const TSeriesKind& kind)
{
    options.Kind = kind;
    std::istringstream stream(text);
    return ChooseColumns(ReadCsv(stream, "data.csv"), "t", {"a", "b"}, kind.Columns);
}

TEST(Plot, KindsOfSeries)
{
    TOptions options;
    const std::string text = "t,a,b,e\n10,1,2,0.5\n20,3,4,0.25\n40,5,6,0.125\n";
    TSeriesKind bars;
    bars.HasBars = bars.Shifted = bars.Horizontal = true;
    const TPlot lying = BuildPlot(ChooseKind(options, text, bars), options);
    lying.Form->Picture();
    EXPECT_EQ(lying.Series.at(0)->GetYData(), lying.Series.at(1)->GetYData()) << "they share their categories";
    const auto edges = lying.Series[0]->GetYData()->Values();
    EXPECT_EQ(std::vector<double>(edges.begin(), edges.end()), (std::vector<double>{5, 15, 30, 50}));
    EXPECT_EQ(lying.Graph->GetPrimaryYAxis()->GetCaption(), "t");
    EXPECT_EQ(lying.Series[1]->PointsCount(), 3);

    const std::string untidy = "t,a,b\n40,5,6\n,9,9\n10,1,2\n20,3,\n10,8,8\n";
    bars.Horizontal = false;
    const TPlot tidy = BuildPlot(ChooseKind(options, untidy, bars), options);
    const auto places = tidy.Series.at(0)->GetXData()->Values(), heights = tidy.Series[0]->GetYData()->Values();
    EXPECT_EQ(std::vector<double>(places.begin(), places.end()), (std::vector<double>{5, 15, 30, 50}));
    EXPECT_EQ(std::vector<double>(heights.begin(), heights.end()), (std::vector<double>{1, 3, 5}));
    EXPECT_TRUE(std::isnan(tidy.Series.at(1)->GetYData()->GetValue(1)));
    EXPECT_EQ(tidy.Notes,
              (std::vector<std::string>{
                  "--bars: 1 row without a value of t, the first is row 2; no bar for them",
                  "--bars: 1 row with a value of t that came before, the first is row 5; no bar for them"}));

    TSeriesKind errors;
    errors.HasErrors = true;
    errors.Columns = {{"--errors", "e", 1, 2}};
    const TPlot measured = BuildPlot(ChooseKind(options, text, errors), options);
    measured.Form->Picture();
    EXPECT_EQ(measured.Series.at(1)->YRange().GetStop(), 6.125);
    EXPECT_EQ(measured.Series.at(0)->YRange().GetStop(), 5);
    errors.Columns[0].Ordinate = 2;
    EXPECT_THROW(BuildPlot(ChooseKind(options, text, errors), options), EConvertError);

    TSeriesKind arrows;
    arrows.HasArrows = true;
    arrows.Columns = {{"--arrows", "e", 0, 0}, {"--arrows", "b", 0, 1}};
    const TPlot field = BuildPlot(ChooseKind(options, text, arrows), options);
    field.Form->Picture();
    EXPECT_EQ(field.Series.at(0)->YRange().GetStop(), 11);
}

TEST(Plot, LogarithmicAxesShowPositiveValuesAlone)
{
    TOptions options;
    options.YScale = scLog;
    TColumnChoice choice = Choose("t,a,b\n1,0,2\n2,0.03,1\n3,500,1\n4,,1\n", {"a", "b"});
    const TArray<double> before = choice.Ys[1].Values;
    EXPECT_EQ(FitToLogScales(choice, options),
              std::vector<std::string>{"column \"a\": 1 value is not positive and left out of the logarithmic scale"});
    EXPECT_EQ(choice.Ys[0].ValueCount, 2U);
    EXPECT_TRUE(choice.Ys[1].Values.IsSharedWith(before));
    const TPlot plot = BuildPlot(choice, options);
    plot.Form->Picture();
    EXPECT_DOUBLE_EQ(plot.Graph->GetPrimaryYAxis()->GetStart(), 0.01);
    EXPECT_DOUBLE_EQ(plot.Graph->GetPrimaryYAxis()->GetStop(), 1000);

    choice = Choose("t,a\n1,0\n2,-3\n");
    try {
        FitToLogScales(choice, options);
        ADD_FAILURE() << "no error";
    } catch (const EConvertError& error) {
        EXPECT_EQ(error.Message(), "column \"a\" has no positive value for a logarithmic scale");
    }
}

TEST(Plot, DateCaptionSaysWhatTheLabelsLeaveOut)
{
    const TPlot plot = BuildPlot(ChooseFile("buoy-44005-2012-10-11.csv"), {});
    TKxAxis& x = *plot.Graph->GetPrimaryXAxis();
    EXPECT_EQ(x.GetCaption(), "date (2012)");
    plot.Form->Picture();
    EXPECT_EQ(x.GetCaption(), "date (2012)");
    const double day = EncodeDateTime({2012, 10, 29, 0, 0, 0, 0});
    x.ZoomIn(day, day + 1);
    plot.Graph->Modified();
    RefreshDateCaption(*plot.Graph, *plot.DateName);
    EXPECT_EQ(x.GetCaption(), "date (2012-10-29)");
    EXPECT_EQ(BuildPlot(ChooseFile("mauna-loa-co2-monthly.csv"), {}).Graph->GetPrimaryXAxis()->GetCaption(),
              "year_month");
}

}  // namespace
}  // namespace plotkit
