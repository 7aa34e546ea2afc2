#include "plotkit/fit/FitOptions.h"

#include <gtest/gtest.h>

#include <sstream>

#include "calculated/KxCalculatedSeries.h"
#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxResultLabel.h"
#include "host/Errors.h"
#include "plotkit/fit/FitBuilder.h"
#include "plotkit/fit/FitResults.h"
#include "series/KxDataSeries.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

TEST(Fit, ReadsAndWritesEveryKind)
{
    const std::pair<const char*, TFitWish> cases[] = {
        {"linear", {fkLinear, {}, {}, {}, {}, {}, {}}},
        {"linear:-2.5", {fkLinear, -2.5, {}, {}, {}, {}, {}}},
        {"poly:3@co2_ppm", {fkPolynomial, 3, {}, "co2_ppm", {}, {}, {}}},
        {"akima", {fkAkima, {}, {}, {}, {}, {}, {}}},
        {"smooth:0.1", {fkSmooth, 0.1, {}, {}, {}, {}, {}}},
        {"spline:10", {fkSpline, 10, {}, {}, {}, {}, {}}},
        {"derivative", {fkDerivative, {}, {}, {}, {}, {}, {}}},
        {"integral@2", {fkIntegral, {}, {}, "2", {}, {}, {}}},
        {"a*exp(-b*x)+c@y", {fkFormula, {}, "a*exp(-b*x)+c", "y", {}, {}, {}}},
    };
    for (const auto& [text, wish] : cases) {
        EXPECT_EQ(ParseFit(text), wish) << text;
        EXPECT_EQ(FitText(wish), text);
    }
    EXPECT_EQ(ParseFit(" Poly : 2 @ a "), (TFitWish{fkPolynomial, 2, {}, "a", {}, {}, {}}));
    EXPECT_EQ(StartValuesText(ParseStartValues("a=1, B=-0.5e3")), "a=1,b=-500");
    EXPECT_TRUE(ParseStartValues(" ").empty());
}

TEST(Fit, SaysWhatIsWrong)
{
    const std::pair<const char*, const char*> fits[] = {
        {"poly", "\"poly\": a number is missing, such as poly:2"},
        {"poly:2.5", "\"poly:2.5\": an order is a whole number from 2 to 30"},
        {"spline:-1", "\"spline:-1\": the number has to be positive"},
        {"smooth:x", "\"smooth:x\": behind the colon stands a number"},
        {"akima:2", "\"akima:2\": it takes no number"},
        {"linear@", "\"linear@\": behind @ stands the name or number of a column"},
    };
    for (const auto& fit : fits)
        EXPECT_EQ(MessageOf<EConvertError>([&] { ParseFit(fit.first); }), fit.second);
    EXPECT_THROW(ParseFit(" @a"), EConvertError);
    EXPECT_EQ(ParseFitRange("-1e3..2.5", {}), (TFitRange{-1000, 2.5}));
    EXPECT_EQ(ParseFitRange("2012-10-01..2012-10-31 12:00", {}), (TFitRange{41183, 41213.5}));
    EXPECT_EQ(ParseFitRange("1/10/2012..31/10/2012", true), (TFitRange{41183, 41213}));
    for (const char* text : {"1..", "..2", "2..1", "1.2", "1/2/2012..3/4/2012", "1..2012-10-01"})
        EXPECT_THROW(ParseFitRange(text, {}), EConvertError) << text;
    EXPECT_EQ(ParseResultNames(" Slope ,R"), (std::vector<std::string>{"Slope", "R"}));
    EXPECT_THROW(ParseResultNames("Slope,"), EConvertError);
    for (const char* text : {"a", "a=", "=1", "ab=1", "1=2", "a=inf", "a=1,,b=2"})
        EXPECT_THROW(ParseStartValues(text), EConvertError) << text;
}

TColumnChoice Choose(const std::string& text, const std::vector<std::string>& ys)
{
    std::istringstream stream(text);
    return ChooseColumns(ReadCsv(stream, "data.csv"), std::nullopt, ys);
}

constexpr const char* Table = "t,a,b\n1,3,9\n2,5,7\n3,7,6\n4,9,4\n5,11,3\n6,13,1\n";

TOptions WithFits(const std::vector<std::string>& fits, const std::vector<std::string>& results = {})
{
    TOptions options;
    for (const std::string& fit : fits)
        options.Fit.Fits.push_back(ParseFit(fit));
    options.Fit.Results = results;
    return options;
}

TEST(Fit, CurvesAxesAndLabelsComeAndGo)
{
    const TColumnChoice choice = Choose(Table, {"a", "b"});
    TOptions options = WithFits({"linear", "derivative", "poly:2@b"}, {"slope", "r2"});
    TPlot plot = BuildPlot(choice, options);
    const auto names = [&] {
        std::string list;
        for (const TPlottedFit& fit : plot.Fits) {
            list += fit.Series->GetName() + " \"" + fit.Series->GetCaption() + "\"";
            for (const TFitLabel& label : fit.Labels)
                list += " " + label.Value->GetName() + "=" + label.Value->GetCaption();
            list += "; ";
        }
        return list;
    };
    EXPECT_EQ(names(),
              "Series1Fit1 \"linear (a)\" Series1Fit1_Slope=2; "
              "Series2Fit1 \"linear (b)\" Series2Fit1_Slope=-1.542857; "
              "Series1Fit2 \"derivative (a)\"; Series2Fit2 \"derivative (b)\"; "
              "Series2Fit3 \"polynomial of order 2 (b)\" Series2Fit3_r2=0.9918367; ");
    TKxAxis* const own = plot.Fits[2].Series->GetYAxis();
    EXPECT_EQ(own, plot.Fits[3].Series->GetYAxis());
    EXPECT_EQ(own->GetPosition(), AxRightPos);
    EXPECT_EQ(own->GetCaption(), "derivative");
    std::vector<TRect> places;
    for (const TPlottedFit& fit : plot.Fits)
        for (const TFitLabel& label : fit.Labels)
            for (const TRect& box : {label.Name->Bounds(), label.Value->Bounds()}) {
                EXPECT_EQ(box.Intersected(plot.Graph->World().DataRect()), box);
                for (const TRect& other : places)
                    EXPECT_TRUE(box.Intersected(other).IsEmpty());
                places.push_back(box);
            }
    const TKxCalculatedSeries* const kept = plot.Fits[4].Series;
    options.Fit = {};
    options.Fit.Fits = {ParseFit("akima@a"), ParseFit("poly:2@b")};
    options.Fit.Fits[1].Results = {"Coeff(1)"};
    SetFits(plot, choice, options);
    plot.Form->Picture();
    EXPECT_EQ(plot.Fits[0].Series, kept);
    EXPECT_EQ(names(),
              "Series2Fit1 \"polynomial of order 2 (b)\" Series2Fit1_Coeff_1_=10.4; "
              "Series1Fit1 \"Akima (a)\"; ");
    for (TComponent* component : plot.Form->Components())
        EXPECT_FALSE(component->GetName().starts_with("SecondaryAxis"));
    options.Fit.Fits.clear();
    SetFits(plot, choice, options);
    EXPECT_EQ(plot.Form->Picture(), BuildPlot(choice, {}).Form->Picture());
}

TEST(Fit, ResultsAreWholeAndFailuresToldOnce)
{
    const TColumnChoice choice = Choose("t,a\n1,0.1\n2,0.3\n4,0.2\n", {"a"});
    const TPlot plot = BuildPlot(choice, WithFits({"linear", "poly:3"}));
    EXPECT_EQ(plot.News->Failures(), (std::vector<std::string>{"polynomial of order 3: Not enough data!"}));
    const std::string json = ResultsJson(plot);
    EXPECT_NE(json.find("{\"fit\": \"linear\", \"column\": \"a\""), std::string::npos) << json;
    EXPECT_NE(json.find("\"Slope\": 0.0214285714285714"), std::string::npos) << json;
    EXPECT_NE(ResultsTable(plot).find("\nlinear\ta\tCalcStop\t4\n"), std::string::npos);
    const std::pair<TOptions, const char*> wrong[] = {
        {WithFits({"linear@b"}), "--fit: \"b\" is not among the ordinates a"},
        {WithFits({"akima"}, {"Slope"}),
         "--label: \"Slope\" is no result; there are Calculation, Caption, Formula, "
         "CalcStart, CalcStop, DisplayStart, DisplayStop"},
    };
    for (const auto& one : wrong)
        EXPECT_EQ(MessageOf<EConvertError>([&] { BuildPlot(choice, one.first); }), one.second);
}

}  // namespace
}  // namespace plotkit
