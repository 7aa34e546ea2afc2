#include "plotkit/table/RowFollower.h"

#include <numeric>

namespace plotkit {

TDateGroup GroupOf(const TFollowedColumn& column, const std::vector<TCsvColumn>& columns)
{
    const std::size_t first = column.Sources.front();
    return {first, column.Sources.size(), columns[first].Type == ctDateTime};
}

TArray<double> ValuesOf(const TFollowedColumn& column, const TCsvTable& table)
{
    if (column.Sources.size() > 1)
        return JoinDateGroup(table, GroupOf(column, table.Columns)).Values;
    if (column.Sources.size() == 1)
        return table.Columns[column.Sources.front()].Values;
    std::vector<double> numbers(table.RowCount);
    std::iota(numbers.begin(), numbers.end(), 1);
    return TArray<double>(std::move(numbers));
}

}  // namespace plotkit
