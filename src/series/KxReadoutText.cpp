#include "series/KxReadoutText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "graph/KxAxis.h"
#include "graph/KxCaption.h"
#include "graph/KxGraph2D.h"
#include "host/DateTime.h"
#include "host/Host.h"
#include "host/NumberFormat.h"
#include "series/KxGraphCursor.h"
#include "series/KxGraphMarkers.h"

namespace plotkit {

namespace {

constexpr int MostDigits = 15;
constexpr int MostDecimals = 9;
/// Longer numbers are written with an exponent.
constexpr double LargestPlain = 1e9;
constexpr double DaysPerMinute = 1.0 / 1440;
constexpr double DaysPerSecond = 1.0 / 86400;
constexpr std::int64_t MillisecondsPerDay = 86'400'000;

double FineStep(const TKxAxis& axis, double value)
{
    const TKxAxisMapping mapping = axis.Mapping();
    return mapping.IsLog() ? std::fabs(value) * (std::pow(10, mapping.UnitsPerPixel) - 1) : mapping.UnitsPerPixel;
}

std::string NumberText(double value, double step)
{
    const char separator = Host().Locale().DecimalSeparator;
    if (!(step > 0) || !std::isfinite(step))
        return FormatGeneral(value, MostDigits, 0, separator);
    const int decimals = 1 - static_cast<int>(std::floor(std::log10(step)));
    if (decimals <= MostDecimals && std::fabs(value) < LargestPlain)
        return FormatFixed(value, MostDigits, std::max(decimals, 0), separator);
    const int exponent = value == 0 ? -decimals : static_cast<int>(std::floor(std::log10(std::fabs(value))));
    return FormatGeneral(value, std::clamp(exponent + decimals + 1, 1, MostDigits), 0, separator);
}

std::string Padded(int number, int digits)
{
    std::string text = std::to_string(number);
    return std::string(static_cast<std::size_t>(std::max(digits - static_cast<int>(text.size()), 0)), '0') + text;
}

std::string TimeText(const TDateTimeParts& parts, double step)
{
    std::string text = Padded(parts.Hour, 2) + ":" + Padded(parts.Minute, 2);
    if (step < DaysPerMinute)
        text += ":" + Padded(parts.Second, 2);
    if (step < DaysPerSecond)
        text += "." + Padded(parts.MilliSecond, 3);
    return text;
}

std::string MomentText(double value, double step)
{
    const TDateTimeParts parts = DecodeDateTime(value);
    const std::string date = Padded(parts.Year, 4) + "-" + Padded(parts.Month, 2) + "-" + Padded(parts.Day, 2);
    const bool isMidnight = parts.Hour == 0 && parts.Minute == 0 && parts.Second == 0 && parts.MilliSecond == 0;
    return isMidnight && step >= DaysPerMinute ? date : date + " " + TimeText(parts, step);
}

std::string ExactText(const TKxAxis& axis, double value)
{
    return axis.GetScaling() == AxDateTime ? MomentText(value, 0) : FormatExact(value);
}

/// Captions have codes; tabulators and line ends would break tables.
std::string PlainCaption(const TKxReading& reading)
{
    std::string text = GetStrippedString(reading.Series->GetCaption());
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text.empty() ? reading.Series->GetName() : text;
}

const TKxAxis& XAxisOf(const TKxReading& reading)
{
    return *reading.Series->GetXAxis();
}

const TKxAxis& YAxisOf(const TKxReading& reading)
{
    return *reading.Series->GetYAxis();
}

}  // namespace

std::string AxisValueText(const TKxAxis& axis, double value)
{
    const double step = FineStep(axis, value);
    return axis.GetScaling() == AxDateTime ? MomentText(value, step) : NumberText(value, step);
}

std::string AxisDistanceText(const TKxAxis& axis, double distance, double value)
{
    const double step = FineStep(axis, value);
    if (axis.GetScaling() != AxDateTime)
        return NumberText(distance, step);
    const std::int64_t all = std::llround(std::fabs(distance) * static_cast<double>(MillisecondsPerDay));
    const int rest = static_cast<int>(all % MillisecondsPerDay);
    TDateTimeParts time;
    time.Hour = rest / 3'600'000;
    time.Minute = rest / 60'000 % 60;
    time.Second = rest / 1000 % 60;
    time.MilliSecond = rest % 1000;
    const std::string days = std::to_string(all / MillisecondsPerDay) + " d";
    return (distance < 0 ? "-" : "") + (rest == 0 ? days : days + " " + TimeText(time, step));
}

std::string PlaceLine(const TKx2DGraph& graph, TPoint at)
{
    const TKxAxis *const x = graph.PrimaryXAxis(), *const y = graph.PrimaryYAxis();
    const TRect data = graph.World().DataRect();
    if (!x || !y || !data.Contains(at))
        return {};
    return "x = " + AxisValueText(*x, x->IntToRealPosition(at.X - data.Left)) +
           ", y = " + AxisValueText(*y, y->IntToRealPosition(at.Y - data.Top));
}

std::vector<std::string> CursorLines(TKxGraphCursor& cursor)
{
    std::vector<std::string> lines;
    const TKxReading* const current = cursor.Current();
    for (const TKxReading& reading : cursor.Readings()) {
        const std::string line = PlainCaption(reading) + ": x = " + AxisValueText(XAxisOf(reading), reading.X) +
                                 ", y = " + AxisValueText(YAxisOf(reading), reading.Y);
        lines.insert(&reading == current ? lines.begin() : lines.end(), line);
    }
    return lines;
}

std::vector<std::string> MarkerLines(TKxGraphMarkers& markers)
{
    std::vector<std::string> lines;
    const TKxAxis* const axis = markers.Axis();
    const auto start = markers.Abscissa(mkStart), stop = markers.Abscissa(mkStop);
    if (!axis || !start || !stop)
        return lines;
    lines.push_back("x\xE2\x82\x81 = " + AxisValueText(*axis, *start) + ", x\xE2\x82\x82 = " +
                    AxisValueText(*axis, *stop) + ", \xCE\x94x = " + AxisDistanceText(*axis, *stop - *start, *stop));
    for (const TKxMarkerReading& reading : markers.Readings()) {
        const TKxAxis& y = YAxisOf(reading.Start);
        lines.push_back(PlainCaption(reading.Start) + ": y\xE2\x82\x81 = " + AxisValueText(y, reading.Start.Y) +
                        ", y\xE2\x82\x82 = " + AxisValueText(y, reading.Stop.Y) +
                        ", \xCE\x94y = " + AxisDistanceText(y, reading.Stop.Y - reading.Start.Y, reading.Stop.Y));
    }
    return lines;
}

std::string CursorTable(TKxGraphCursor& cursor)
{
    const auto& readings = cursor.Readings();
    if (readings.empty())
        return {};
    std::string table = "series\tpoint\tx\ty\n";
    for (const TKxReading& reading : readings)
        table += PlainCaption(reading) + "\t" + std::to_string(reading.Index + 1) + "\t" +
                 ExactText(XAxisOf(reading), reading.X) + "\t" + ExactText(YAxisOf(reading), reading.Y) + "\n";
    return table;
}

std::string MarkerTable(TKxGraphMarkers& markers)
{
    const TKxAxis* const axis = markers.Axis();
    const auto start = markers.Abscissa(mkStart), stop = markers.Abscissa(mkStop);
    if (!axis || !start || !stop)
        return {};
    // Days on a date-time axis.
    std::string table = "series\tx1\ty1\tx2\ty2\tdx\tdy\nmarkers\t" + ExactText(*axis, *start) + "\t\t" +
                        ExactText(*axis, *stop) + "\t\t" + FormatExact(*stop - *start) + "\t\n";
    for (const TKxMarkerReading& reading : markers.Readings()) {
        const TKxReading &a = reading.Start, &b = reading.Stop;
        table += PlainCaption(a) + "\t" + ExactText(XAxisOf(a), a.X) + "\t" + ExactText(YAxisOf(a), a.Y) + "\t" +
                 ExactText(XAxisOf(b), b.X) + "\t" + ExactText(YAxisOf(b), b.Y) + "\t" + FormatExact(b.X - a.X) + "\t" +
                 FormatExact(b.Y - a.Y) + "\n";
    }
    return table;
}

}  // namespace plotkit
