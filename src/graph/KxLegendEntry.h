// The job of KxLegendEntry is one entry of a legend: a series, its caption and a sample of its styles.
#pragma once

#include <optional>
#include <vector>

#include "graph/KxCaption.h"
#include "graph/KxPlottable.h"
#include "graph/KxStyles.h"

namespace plotkit {

/// What a series draws with: its visible styles as values, sizes in 1/96 inch.
struct TKxLegendSample
{
    struct TLine
    {
        TColor Color = clBlack;
        TPenStyle Style = psSolid;
        int Width = 1;
        friend bool operator==(const TLine&, const TLine&) = default;
    };
    struct TArea
    {
        TColor Color = clBlack;
        TBrushStyle Style = bsSolid;
        friend bool operator==(const TArea&, const TArea&) = default;
    };
    struct TPoints
    {
        TColor Color = clBlack;
        TKxPointSymbol Symbol = SyCircle;
        int Size = 5;
        int Width = 1;
        friend bool operator==(const TPoints&, const TPoints&) = default;
    };

    std::optional<TLine> Line;
    std::optional<TArea> Area;
    std::optional<TPoints> Points;
    TKxSampleForm Form;

    friend bool operator==(const TKxLegendSample&, const TKxLegendSample&) = default;
};

struct TKxLegendEntry
{
    TKxPlottable* Series = nullptr;  ///< to be compared, not to be asked: it may be gone
    TKxCaption Caption;
    TKxLegendSample Sample;
    bool Shown = true;

    friend bool operator==(const TKxLegendEntry&, const TKxLegendEntry&) = default;
};

TKxLegendSample SampleOf(const TKxPlottable& series);
TKxLegendEntry EntryOf(TKxPlottable& series);
/// Whether the entry still says what `EntryOf` would.
bool IsCurrent(const TKxLegendEntry& entry, TKxPlottable& series);

/// In drawing order, each followed by its children; `action` gets every series that is not about to go.
template <class TAction>
void ForEachSeries(const TKxSeriesList& list, const TAction& action)
{
    for (TKxPlottable* series : list) {
        if (series->IsDestroying())
            continue;
        action(*series);
        ForEachSeries(series->Childs(), action);
    }
}

/// Device pixels that the sample needs from top to bottom.
int SampleHeight(const TKxLegendSample& sample, double scale);
/// Captions and samples of hidden series are this grey.
inline constexpr TColor HiddenEntryColor = RgbColor(160, 160, 160);

/// A piece of the line across the middle of `box`, the area below it, one symbol in the centre, with its error bars;
/// three bars; an arrow. Nothing outside `box`. `inside`: the colour in open symbols and bars.
void DrawSample(const TKxLegendSample& sample, const TRect& box, TColor inside, TCanvas& canvas);
/// The same sample in grey.
TKxLegendSample Greyed(TKxLegendSample sample);

/// The caption, or as much of its start as fits into `room` device pixels together with an ellipsis, in the canvas'
/// font.
TKxCaption FitCaption(const TKxCaption& caption, int room, TCanvas& canvas);
/// Advance of a caption in the canvas' font, device pixels.
int CaptionWidth(const TKxCaption& caption, TCanvas& canvas);

}  // namespace plotkit
