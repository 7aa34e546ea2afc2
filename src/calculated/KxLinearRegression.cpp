#include "calculated/KxLinearRegression.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "calculated/LogPairs.h"
#include "foundation/KxArithm.h"
#include "foundation/KxLargeIni.h"
#include "host/CheckedMath.h"

namespace plotkit {

namespace {

using TLine = TKxLinearRegressionLine;

constexpr double Unknown = 1.7e308;

constexpr std::array LinearRegressionProperties{
    Property<&TLine::GetOffset, &TLine::SetFixedOffset, &TLine::GetDoFixedOffset>("Offset"),
    Property<&TLine::GetDoFixedOffset, &TLine::SetDoFixedOffset>("DoFixedOffset"),
};

void WritePercent(TKxIniList& list, const std::string& section, const char* key, double delta, double value)
{
    if (value != 0)
        list.WriteReal(section, key, std::min(std::fabs(delta / value * 100), Unknown));
}

}  // namespace

constinit const TClassInfo TKxLinearRegressionLine::Class{"TKxLinearRegressionLine", &TKxCalculatedSeries::Class,
                                                          LinearRegressionProperties,
                                                          &CreateComponent<TKxLinearRegressionLine>};

TKxLinearRegressionLine::~TKxLinearRegressionLine()
{
    BeginDestroy();
}

void TKxLinearRegressionLine::SetDoFixedOffset(bool fixed)
{
    if (fixed == FDoFixedOffset)
        return;
    FDoFixedOffset = fixed;
    SettingsChanged();
}

void TKxLinearRegressionLine::SetFixedOffset(double offset)
{
    if (offset == FResults.Offset)
        return;
    FDoFixedOffset = true;
    FResults.Offset = offset;
    SettingsChanged();
}

std::string TKxLinearRegressionLine::GetFormula() const
{
    return std::string(YIsLog() ? "lg(Y)=a+b(" : "Y=a+b(") + (XIsLog() ? "lg(X))" : "X)");
}

std::string TKxLinearRegressionLine::CalculationID() const
{
    return "Linear Regression";
}

double TKxLinearRegressionLine::GetY(double x)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (FResults.Slope == Unknown || (XIsLog() && !(x > 0)))
        return none;
    const double y = FResults.Offset + FResults.Slope * (XIsLog() ? std::log10(x) : x);
    const double value = YIsLog() ? Exp10(y) : y;
    // What is beyond doubles would take the axis with it.
    return std::fabs(value) < Unknown ? value : none;
}

void TKxLinearRegressionLine::CalculateFunction()
{
    const TKxNotCalculatedSeries* const parent = GetParentSeries();
    const TKxCustomRealVector* const weight = GetWeight();
    auto x = parent ? parent->XValues() : std::span<const double>();
    auto y = parent ? parent->YValues() : std::span<const double>();
    auto weights = weight ? weight->Values() : std::span<const double>();
    double start = GetCalculationStart(), stop = GetCalculationStop();
    double displayStart = GetDisplayStart();
    TLogPairs pairs;
    if (XIsLog() || YIsLog()) {
        pairs = LogPairsOf(x, XIsLog(), y, YIsLog(), weight ? std::optional(weights) : std::nullopt);
        x = pairs.X, y = pairs.Y, weights = pairs.Weights;
    }
    if (XIsLog()) {
        start = start > 0 ? std::log10(start) : 0;
        stop = stop > 0 ? std::log10(stop) : 0;
        // Where the axis does not reach, the line begins at the first point.
        if (!(displayStart > 0) && !x.empty())
            displayStart = Exp10(*std::min_element(x.begin(), x.end()));
    }
    TKxLinearRegessionResults results = FResults;
    if (weight)
        (FDoFixedOffset ? OfsRegWithWeight : LinRegWithWeight)(start, stop, x, y, weights, results);
    else
        (FDoFixedOffset ? OfsReg : LinReg)(start, stop, x, y, results);
    FResults = results;
    SetResult({displayStart, GetDisplayStop()}, {GetY(displayStart), GetY(GetDisplayStop())});
}

void TKxLinearRegressionLine::CalculateLine()
{
    const auto [start, stop] = ShownInterval();
    const bool showsMore = start < GetDisplayStart() || stop > GetDisplayStop();
    if (showsMore && XResult().GetCount() > 0)
        MoveResult(std::array{start, stop}, std::array{GetY(start), GetY(stop)});
}

void TKxLinearRegressionLine::WriteResults(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteResults(list, section);
    const auto write = [&](const char* key, double value, bool isLog = false) {
        list.WriteReal(section, key, isLog ? Exp10(value) : value);
    };
    list.WriteBool(section, "DoFixedOffset", FDoFixedOffset);
    write("AverageX", FResults.AverageX, XIsLog());
    write("VarianceX", FResults.VarianceX, XIsLog());
    write("AverageY", FResults.AverageY, YIsLog());
    write("VarianceY", FResults.VarianceY, YIsLog());
    write("R", FResults.R);
    write("ChiSquare", FResults.ChiSquare);
    write("Offset", FResults.Offset);
    write("DeltaOffset", FResults.DeltaOffset);
    WritePercent(list, section, "DeltaOffset%", FResults.DeltaOffset, FResults.Offset);
    write("Slope", FResults.Slope);
    write("DeltaSlope", FResults.DeltaSlope);
    WritePercent(list, section, "DeltaSlope%", FResults.DeltaSlope, FResults.Slope);
}

void TKxLinearRegressionLine::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxCalculatedSeries::WriteToIni(list, section);
    list.WriteBool(section, "DoFixedOffset", FDoFixedOffset);
    list.WriteReal(section, "Offset", FResults.Offset);
}

void TKxLinearRegressionLine::ReadFromIni(TKxIniList& list, const std::string& section)
{
    FDoFixedOffset = list.ReadBool(section, "DoFixedOffset", FDoFixedOffset);
    FResults.Offset = list.ReadReal(section, "Offset", FResults.Offset);
    TKxCalculatedSeries::ReadFromIni(list, section);
}

}  // namespace plotkit
