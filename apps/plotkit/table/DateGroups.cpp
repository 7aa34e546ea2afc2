#include "plotkit/table/DateGroups.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {
namespace {

constexpr std::size_t PartCount = 6;
constexpr std::array<std::array<std::string_view, 4>, PartCount> PartNames{{{"year", "yr", "yyyy", "yy"},
                                                                            {"month", "mon", "mo", "mm"},
                                                                            {"day", "dy", "dd", "day"},
                                                                            {"hour", "hr", "hh", "h"},
                                                                            {"minute", "min", "mn", "mm"},
                                                                            {"second", "sec", "ss", "s"}}};

bool IsPartName(std::string_view name, std::size_t part)
{
    const auto& names = PartNames[part];
    return std::any_of(names.begin(), names.end(), [&](std::string_view known) { return SameText(known, name); });
}

std::optional<TDateTime> JoinParts(std::span<const double> given)
{
    std::array<double, PartCount> parts{0, 1, 1, 0, 0, 0};
    std::copy(given.begin(), given.end(), parts.begin());
    // Years of two digits leave the century to be guessed.
    if (parts[0] < 100)
        return std::nullopt;
    std::array<int, PartCount> whole{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isSecond = i + 1 == parts.size();
        if (parts[i] < 0 || parts[i] > 9999 || (!isSecond && parts[i] != std::floor(parts[i])))
            return std::nullopt;
        whole[i] = static_cast<int>(parts[i]);
    }
    const auto date = TryEncodeDateTime({whole[0], whole[1], whole[2], whole[3], whole[4], whole[5], 0});
    const double fraction = parts[5] - whole[5];
    return date && fraction > 0 ? IncMilliSecond(*date, std::llround(fraction * 1000)) : date;
}

bool HoldsDays(const TCsvColumn& column)
{
    const auto values = column.Values.Span();
    return column.Type == ctDateTime && !column.IsTimeOfDay && column.ValueCount > 0 &&
           std::all_of(values.begin(), values.end(),
                       [](double day) { return std::isnan(day) || day == std::floor(day); });
}

bool HoldsTimes(const TCsvTable& table, std::size_t column)
{
    return column < table.Columns.size() && table.Columns[column].IsTimeOfDay;
}

}  // namespace

std::vector<TDateGroup> FindDateGroups(const TCsvTable& table)
{
    const auto isPart = [&](std::size_t column, std::size_t part) {
        return column < table.Columns.size() && table.Columns[column].Type == ctNumber &&
               table.Columns[column].GroupedCount == 0 && IsPartName(table.Columns[column].Name, part);
    };
    std::vector<TDateGroup> groups;
    for (std::size_t first = 0; first < table.Columns.size(); ++first) {
        std::size_t count = 0;
        while (count < PartCount && isPart(first + count, count))
            ++count;
        if (count >= 2)
            groups.push_back({first, count, false});
        // Of several times, such as the start and the end of something, none is the time of the day's column.
        else if (HoldsTimes(table, first + 1) && !HoldsTimes(table, first + 2) && HoldsDays(table.Columns[first]))
            groups.push_back({first, 2, true});
    }
    return groups;
}

std::optional<TDateTime> JoinDate(const TDateGroup& group, std::span<const double> parts)
{
    return group.IsDayAndTime ? IncMilliSecond(parts[0], MilliSecondsOf(parts[1])) : JoinParts(parts);
}

std::string DatePartsText(const TDateGroup& group, std::span<const double> parts)
{
    std::string text;
    for (std::size_t i = 0; i < group.Count; ++i)
        text += (i ? " " : "") + FormatExact(parts[i]);
    return text;
}

TCsvColumn JoinDateGroup(const TCsvTable& table, const TDateGroup& group)
{
    TCsvColumn date;
    const TCsvColumn& first = table.Columns[group.First];
    date.Name = first.Name + ".." + table.Columns[group.First + group.Count - 1].Name;
    date.Number = first.Number;
    date.Type = ctDateTime;
    if (group.IsDayAndTime) {
        date.IsDayFirst = first.IsDayFirst;
        date.IsOrderOpen = first.IsOrderOpen;
    }
    std::vector<double> values(table.RowCount, std::numeric_limits<double>::quiet_NaN());
    for (std::size_t row = 0; row < values.size(); ++row) {
        std::array<double, PartCount> parts{};
        bool isWhole = true;
        for (std::size_t i = 0; i < group.Count; ++i) {
            parts[i] = table.Columns[group.First + i].Values[row];
            isWhole = isWhole && !std::isnan(parts[i]);
        }
        if (!isWhole)
            continue;
        if (const auto value = JoinDate(group, std::span(parts).first(group.Count))) {
            values[row] = *value;
            ++date.ValueCount;
        } else if (date.BadCount++ == 0) {
            date.FirstBad = {table.LineOfRow(row), DatePartsText(group, parts)};
        }
    }
    // A cell that was no day or no time is bad for the date too.
    if (group.IsDayAndTime)
        for (const TCsvColumn* part : {&first, &table.Columns[group.First + 1]})
            if (part->BadCount > 0) {
                if (date.FirstBad.Line == 0 || part->FirstBad.Line < date.FirstBad.Line)
                    date.FirstBad = part->FirstBad;
                date.BadCount += part->BadCount;
            }
    date.Values = TArray<double>(std::move(values));
    return date;
}

}  // namespace plotkit
