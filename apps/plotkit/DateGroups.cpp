#include "plotkit/DateGroups.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "host/DateTime.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {
namespace {

constexpr std::array<std::string_view, 6> PartNames{"year", "month", "day", "hour", "minute", "second"};

using TParts = std::array<double, PartNames.size()>;

std::optional<TDateTime> JoinParts(const TParts& parts)
{
    std::array<int, PartNames.size()> whole{};
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

std::string PartsText(const TParts& parts, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += (i ? " " : "") + FormatExact(parts[i]);
    return text;
}

}  // namespace

std::vector<TDateGroup> FindDateGroups(const TCsvTable& table)
{
    const auto isPart = [&](std::size_t column, std::size_t part) {
        return column < table.Columns.size() && table.Columns[column].Type == ctNumber &&
               SameText(table.Columns[column].Name, PartNames[part]);
    };
    std::vector<TDateGroup> groups;
    for (std::size_t first = 0; first < table.Columns.size(); ++first) {
        std::size_t count = 0;
        while (count < PartNames.size() && isPart(first + count, count))
            ++count;
        if (count >= 2)
            groups.push_back({first, count});
    }
    return groups;
}

TCsvColumn JoinDateGroup(const TCsvTable& table, const TDateGroup& group)
{
    TCsvColumn date;
    date.Name = table.Columns[group.First].Name + ".." + table.Columns[group.First + group.Count - 1].Name;
    date.Number = table.Columns[group.First].Number;
    date.Type = ctDateTime;
    std::vector<double> values(table.RowCount, std::numeric_limits<double>::quiet_NaN());
    for (std::size_t row = 0; row < values.size(); ++row) {
        TParts parts{0, 1, 1, 0, 0, 0};
        bool isWhole = true;
        for (std::size_t i = 0; i < group.Count; ++i) {
            parts[i] = table.Columns[group.First + i].Values[row];
            isWhole = isWhole && !std::isnan(parts[i]);
        }
        if (!isWhole)
            continue;
        if (const auto value = JoinParts(parts)) {
            values[row] = *value;
            ++date.ValueCount;
        } else if (date.BadCount++ == 0) {
            date.FirstBad = {table.LineOfRow(row), PartsText(parts, group.Count)};
        }
    }
    date.Values = TArray<double>(std::move(values));
    return date;
}

}  // namespace plotkit
