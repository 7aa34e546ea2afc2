// The job of KxPlottable is what the graph panel, its plotting area and its legends ask of a series.
#pragma once

#include <optional>

#include "host/Component.h"
#include "host/List.h"
#include "host/Types.h"

namespace plotkit {

class TKxAxis;
class TKxIniList;
class TKxLineStyle;
class TKxAreaStyle;
class TKxPointStyle;
class TKxPlottable;

/// Series in drawing order; owns nothing.
using TKxSeriesList = TList<TKxPlottable>;

enum TKxSampleKind : std::uint8_t
{
    skCurve,
    skBars,
    skArrow,
};

/// What a sample of a series shows beside its styles.
struct TKxSampleForm
{
    TKxSampleKind Kind = skCurve;
    bool Horizontal = false;  ///< of bars
    bool Solid = false;       ///< of bars: blocks
    bool HasXErrors = false, HasYErrors = false;
    TColor ErrorColor = clBlack;

    friend bool operator==(const TKxSampleForm&, const TKxSampleForm&) = default;
};

class TKxPlottable : public TComponent
{
public:
    using TComponent::TComponent;

    /// Turns values into pixel points.
    virtual void CalculatePoints() = 0;
    virtual void DrawLine() = 0;
    /// Takes the place of `DrawLine` while the series is hidden: all that drawing brings up to date, nothing drawn.
    virtual void PrepareHidden() {}
    /// Whether `DrawPoints` is to be called at all.
    virtual bool HasPointSymbols() const { return false; }
    virtual void DrawPoints() {}
    /// After the series told the plotting area that it has only grown: a box around all that is drawn in another way
    /// than last time, device pixels from the data rectangle's top left corner; nothing when that is not known.
    virtual std::optional<TRect> GrownPart() { return TRect{}; }
    /// Values, styles or axes changed: the points are stale, the plotting area wants a repaint.
    virtual void Modified() = 0;

    virtual void WriteToIni(TKxIniList& list, const std::string& section) = 0;
    virtual void ReadFromIni(TKxIniList& list, const std::string& section) = 0;

    /// Series computed from this one.
    virtual TKxSeriesList& Childs() = 0;
    /// Texts that captions can refer to.
    virtual TKxIniList& CaptionIni() = 0;

    virtual const std::string& GetCaption() const = 0;
    virtual bool GetIncludeInLegend() const = 0;
    /// Whether the graph draws the series. A hidden one still counts for the axes and feeds its children, which are
    /// hidden on their own. A state of the running program that no series stores.
    bool GetShown() const { return FShown; }
    void SetShown(bool shown)
    {
        if (FShown == shown)
            return;
        FShown = shown;
        ShownChanged();
    }
    /// Whether values of the series stand at positions of the axis.
    virtual bool UsesAxis(const TKxAxis& axis) const { return static_cast<void>(axis), false; }
    /// Styles that a sample of the series shows; nullptr where the series has none.
    virtual const TKxLineStyle* SampleLine() const { return nullptr; }
    virtual const TKxAreaStyle* SampleArea() const { return nullptr; }
    virtual const TKxPointStyle* SamplePoints() const { return nullptr; }
    virtual TKxSampleForm SampleForm() const { return {}; }

protected:
    virtual void ShownChanged() {}

private:
    bool FShown = true;
};

}  // namespace plotkit
