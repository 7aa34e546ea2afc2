#include <algorithm>
#include <charconv>
#include <set>

#include "foundation/KxLargeIni.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLegend.h"
#include "host/CheckedMath.h"

namespace plotkit {

namespace {

/// Whatever stands between the numbers.
std::set<int> NumbersIn(const std::string& text)
{
    std::set<int> numbers;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at < end;) {
        int number = 0;
        const std::from_chars_result read = std::from_chars(at, end, number);
        if (read.ec == std::errc())
            numbers.insert(number);
        at = std::max(read.ptr, at + 1);
    }
    return numbers;
}

}  // namespace

void TKxLegend::SaveOutfit(const std::string& section, TKxIniList& list)
{
    const auto stored = [this](int pixels) { return RoundToInt(pixels / PixelScale()); };
    list.WriteFont(section, "Font", GetFont());
    list.WriteBool(section, "Visible", GetVisible());
    list.WriteInteger(section, "InGraphPosition", FInGraphPosition);
    list.WriteInteger(section, "OutsideGap", FOutsideGap);
    list.WriteInteger(section, "InsideGap", FInsideGap);
    list.WriteInteger(section, "RowGap", FRowGap);
    list.WriteInteger(section, "ColumnGap", FColumnGap);
    list.WriteInteger(section, "SampleWidth", FSampleWidth);
    list.WriteInteger(section, "SampleCaptionGap", FSampleCaptionGap);
    list.WriteLine(section, "FrameLine", FFrameLine);
    list.WriteInteger(section, "Color", ColorToInt(GetColor()));
    list.WriteBool(section, "Transparent", FTransparent);
    list.WriteBool(section, "AutoSize", FAutoSize);
    list.WriteBool(section, "ClickHides", FClickHides);
    list.WriteInteger(section, "Left", stored(GetLeft()));
    list.WriteInteger(section, "Top", stored(GetTop()));
    list.WriteInteger(section, "Width", stored(GetWidth()));
    list.WriteInteger(section, "Height", stored(GetHeight()));
    std::string hidden;
    int number = 0;
    if (FGraph)
        ForEachSeries(FGraph->GetSeriesList(), [&](const TKxPlottable& series) {
            ++number;
            if (!series.GetShown())
                hidden += (hidden.empty() ? "" : ";") + std::to_string(number);
        });
    list.WriteString(section, "Hidden", hidden);
}

void TKxLegend::LoadOutfit(const std::string& section, TKxIniList& list)
{
    const auto pixels = [&](const char* key, int present) {
        const int before = RoundToInt(present / PixelScale());
        const int read = list.ReadInteger(section, key, before);
        return read == before ? present : Px(read);
    };
    list.ReadFont(section, "Font", GetFont());
    SetVisible(list.ReadBool(section, "Visible", GetVisible()));
    SetInGraphPosition(list.ReadOrdinal(section, "InGraphPosition", FInGraphPosition, AxisPosNames.size()));
    SetOutsideGap(list.ReadInteger(section, "OutsideGap", FOutsideGap));
    SetInsideGap(list.ReadInteger(section, "InsideGap", FInsideGap));
    SetRowGap(list.ReadInteger(section, "RowGap", FRowGap));
    SetColumnGap(list.ReadInteger(section, "ColumnGap", FColumnGap));
    SetSampleWidth(list.ReadInteger(section, "SampleWidth", FSampleWidth));
    SetSampleCaptionGap(list.ReadInteger(section, "SampleCaptionGap", FSampleCaptionGap));
    list.ReadLine(section, "FrameLine", FFrameLine);
    SetColor(IntToColor(list.ReadInteger(section, "Color", ColorToInt(GetColor()))));
    SetTransparent(list.ReadBool(section, "Transparent", FTransparent));
    SetAutoSize(list.ReadBool(section, "AutoSize", FAutoSize));
    SetClickHides(list.ReadBool(section, "ClickHides", FClickHides));
    SetBounds(pixels("Left", GetLeft()), pixels("Top", GetTop()), pixels("Width", GetWidth()),
              pixels("Height", GetHeight()));
    LoadHidden(section, list);
}

void TKxLegend::LoadHidden(const std::string& section, const TKxIniList& list)
{
    // An empty list shows all, a missing one changes nothing.
    const std::string missing = "-";
    const std::string text = list.ReadString(section, "Hidden", missing);
    if (!FGraph || text == missing)
        return;
    const std::set<int> hidden = NumbersIn(text);
    int number = 0;
    ForEachSeries(FGraph->GetSeriesList(), [&](TKxPlottable& series) { series.SetShown(!hidden.contains(++number)); });
}

}  // namespace plotkit
