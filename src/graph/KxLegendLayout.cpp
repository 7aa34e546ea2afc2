#include "graph/KxLegendLayout.h"

#include <algorithm>

#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr int CeilDivide(int a, int b)
{
    return (a + b - 1) / b;
}

class TArrangement
{
public:
    TArrangement(std::span<const int> widths, const TKxLegendRoom& room)
        : FRoom(room), FWide(std::max(1, room.Most.Width - 2 * room.Margin)), FWidths(widths.begin(), widths.end())
    {
        for (int& width : FWidths)
            width = std::clamp(width, 1, FWide);
        const int high = room.Most.Height - 2 * room.Margin + room.RowGap;
        FMostRows = std::max(1, high / std::max(1, room.EntryHeight + room.RowGap));
    }

    TKxLegendPlan Run()
    {
        if (FRoom.RowByRow)
            TakeMostColumns();
        else
            TakeFewestColumns();
        if (CellCount() < Count())
            NarrowEntries();
        return Plan();
    }

private:
    int Count() const { return static_cast<int>(FWidths.size()); }
    int CellCount() const { return std::min(Count(), FColumns * FRows); }
    int ColumnOf(int i) const { return FRoom.RowByRow ? i % FColumns : i / FRows; }
    int RowOf(int i) const { return FRoom.RowByRow ? i / FColumns : i % FRows; }

    /// The widths of the columns; empty when they are too wide together.
    std::vector<int> ColumnWidths(int columns, int rows)
    {
        FColumns = columns;
        FRows = rows;
        std::vector<int> wide(static_cast<std::size_t>(columns), 0);
        std::int64_t total = std::int64_t{FRoom.ColumnGap} * (columns - 1);
        for (int i = 0; i < CellCount(); ++i) {
            int& column = wide[static_cast<std::size_t>(ColumnOf(i))];
            const int width = FWidths[static_cast<std::size_t>(i)];
            total += std::max(0, width - column);
            column = std::max(column, width);
            if (total > FWide)
                return {};
        }
        return wide;
    }

    bool Take(int columns, int rows)
    {
        const std::vector<int> wide = ColumnWidths(columns, rows);
        if (wide.empty())
            return false;
        FColumnWidths = wide;
        return true;
    }

    int MostColumns() const { return std::clamp((FWide + FRoom.ColumnGap) / (1 + FRoom.ColumnGap), 1, Count()); }

    void TakeMostColumns()
    {
        int columns = MostColumns();
        while (columns > 1 && !Take(columns, CeilDivide(Count(), columns)))
            --columns;
        // The same number of rows, evenly filled.
        const int rows = CeilDivide(Count(), columns);
        columns = CeilDivide(Count(), rows);
        while (!Take(columns, rows))
            ++columns;
        Take(columns, std::min(rows, FMostRows));
    }

    void TakeFewestColumns()
    {
        int columns = std::min(CeilDivide(Count(), FMostRows), MostColumns());
        while (columns > 1 && !Take(columns, std::min(FMostRows, CeilDivide(Count(), columns))))
            --columns;
        Take(columns, std::min(FMostRows, CeilDivide(Count(), columns)));
    }

    /// More columns of entries that are cut short.
    void NarrowEntries()
    {
        const int least = std::max(1, FRoom.LeastWidth);
        const int columns =
            std::min(CeilDivide(Count(), FMostRows), (FWide + FRoom.ColumnGap) / (least + FRoom.ColumnGap));
        if (columns <= FColumns)
            return;
        const int most = (FWide - FRoom.ColumnGap * (columns - 1)) / columns;
        for (int& width : FWidths)
            width = std::min(width, most);
        Take(columns, std::min(FMostRows, CeilDivide(Count(), columns)));
    }

    TRect BoxOf(int i) const
    {
        int left = FRoom.Margin;
        for (int column = 0; column < ColumnOf(i); ++column)
            left += FColumnWidths[static_cast<std::size_t>(column)] + FRoom.ColumnGap;
        const int top = FRoom.Margin + RowOf(i) * (FRoom.EntryHeight + FRoom.RowGap);
        return {left, top, left + FColumnWidths[static_cast<std::size_t>(ColumnOf(i))], top + FRoom.EntryHeight};
    }

    TKxLegendPlan Plan() const
    {
        TKxLegendPlan plan;
        plan.Columns = FColumns;
        for (int i = 0; i < CellCount(); ++i) {
            plan.Boxes.push_back(BoxOf(i));
            plan.Size.Width = std::max(plan.Size.Width, plan.Boxes.back().Right + FRoom.Margin);
            plan.Size.Height = std::max(plan.Size.Height, plan.Boxes.back().Bottom + FRoom.Margin);
        }
        if (CellCount() < Count() && CellCount() > 1) {
            plan.More = plan.Boxes.back();
            plan.Boxes.pop_back();
        }
        return plan;
    }

    const TKxLegendRoom& FRoom;
    int FWide;
    std::vector<int> FWidths, FColumnWidths;
    int FMostRows = 1, FColumns = 1, FRows = 1;
};

}  // namespace

TKxLegendPlan ArrangeLegend(std::span<const int> widths, const TKxLegendRoom& room)
{
    return widths.empty() ? TKxLegendPlan{} : TArrangement(widths, room).Run();
}

}  // namespace plotkit
