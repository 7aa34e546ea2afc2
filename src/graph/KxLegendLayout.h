// The job of KxLegendLayout is to arrange the entries of a legend in columns within the room there is.
#pragma once

#include <span>
#include <vector>

#include "host/Types.h"

namespace plotkit {

/// All in device pixels.
struct TKxLegendRoom
{
    TSize Most;             ///< what the legend may take, margin included
    bool RowByRow = false;  ///< as many columns as fit, read along the rows; otherwise as few, read down the columns
    int EntryHeight = 0;
    int LeastWidth = 0;  ///< an entry may be narrowed to this before others are left out
    int RowGap = 0;
    int ColumnGap = 0;
    int Margin = 0;  ///< between the entries and each edge
};

struct TKxLegendPlan
{
    TSize Size;
    int Columns = 0;
    /// Of the entries that fit, in order.
    std::vector<TRect> Boxes;
    /// Where to say that there are more; empty when there are none, or no room to say so.
    TRect More;
};

/// `widths`: what each entry needs. Columns are as wide as their widest entry, an entry never wider than the room.
TKxLegendPlan ArrangeLegend(std::span<const int> widths, const TKxLegendRoom& room);

}  // namespace plotkit
