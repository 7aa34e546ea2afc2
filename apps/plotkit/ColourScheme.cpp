#include "plotkit/ColourScheme.h"

#include <algorithm>
#include <vector>

namespace plotkit {

namespace {

using TColours = std::array<TColor, SchemeColours>;
using TPalette = std::array<TColor, SchemeColours / 2>;

constexpr TColor Mixed(TColor a, TColor b, int percentOfA)
{
    const auto part = [percentOfA](int x, int y) {
        return static_cast<std::uint8_t>((x * percentOfA + y * (100 - percentOfA)) / 100);
    };
    return RgbColor(part(RedOf(a), RedOf(b)), part(GreenOf(a), GreenOf(b)), part(BlueOf(a), BlueOf(b)));
}

/// The palette, and once more in shades towards `shade`: two series look the same no sooner than after both.
constexpr TColours CurvesOf(const TPalette& palette, TColor shade, TColor last)
{
    TColours curves{};
    for (std::size_t i = 0; i < palette.size(); ++i) {
        curves[i] = palette[i];
        curves[palette.size() + i] = Mixed(palette[i], shade, 55);
    }
    curves.back() = last;
    return curves;
}

constexpr TColours AreasOf(const TColours& curves, TColor paper, int percent)
{
    TColours areas{};
    for (std::size_t i = 0; i < curves.size(); ++i)
        areas[i] = Mixed(curves[i], paper, percent);
    return areas;
}

// Told apart with every kind of colour vision (M. Okabe, K. Ito, "Color Universal Design", 2008); without the yellow,
// which is too pale on white.
constexpr TPalette LightPalette{RgbColor(0, 114, 178),   RgbColor(213, 94, 0),   RgbColor(0, 158, 115),
                                RgbColor(204, 121, 167), RgbColor(86, 180, 233), RgbColor(230, 159, 0),
                                RgbColor(0, 0, 0)};
constexpr TColor DarkPaper = RgbColor(30, 30, 32);
constexpr TColor DarkInk = RgbColor(222, 222, 222);
/// The same hues, each as far from the dark paper as its counterpart is from white.
constexpr TPalette DarkPalette{RgbColor(64, 160, 224),
                               RgbColor(240, 126, 50),
                               RgbColor(20, 188, 142),
                               RgbColor(222, 148, 190),
                               RgbColor(142, 208, 246),
                               RgbColor(244, 182, 48),
                               DarkInk};

// Black has no darker shade and nearly white no lighter one.
constexpr TColours LightCurves = CurvesOf(LightPalette, clBlack, RgbColor(128, 128, 128));
constexpr TColours DarkCurves = CurvesOf(DarkPalette, clWhite, RgbColor(140, 140, 140));

constexpr TColourScheme Light{
    clWhite, clBlack, RgbColor(216, 216, 216), RgbColor(238, 238, 238), LightCurves, AreasOf(LightCurves, clWhite, 28)};
constexpr TColourScheme Dark{
    DarkPaper, DarkInk, RgbColor(68, 68, 72), RgbColor(48, 48, 51), DarkCurves, AreasOf(DarkCurves, DarkPaper, 35)};

/// Ink stands before the curve of the same colour.
std::vector<TColor> ColoursOf(const TColourScheme& scheme)
{
    std::vector<TColor> colours{scheme.Paper, scheme.Ink, scheme.MajorGrid, scheme.MinorGrid};
    colours.insert(colours.end(), scheme.Curves.begin(), scheme.Curves.end());
    colours.insert(colours.end(), scheme.Areas.begin(), scheme.Areas.end());
    return colours;
}

TColor Counterpart(TColor colour, const std::vector<TColor>& from, const std::vector<TColor>& to)
{
    const auto found = std::ranges::find(from, colour);
    return found == from.end() ? colour : to[static_cast<std::size_t>(found - from.begin())];
}

void Recolour(TPersistent& object, const std::vector<TColor>& from, const std::vector<TColor>& to)
{
    for (const TPropertyRow& row : AllProperties(object.ClassInfo())) {
        if (row.Kind == pkSub)
            Recolour(row.SubObject(object), from, to);
        if (row.Kind != pkColor)
            continue;
        const auto present = static_cast<TColor>(std::get<std::int64_t>(row.Get(object)));
        const TColor wanted = Counterpart(present, from, to);
        if (wanted != present)
            row.Set(object, static_cast<std::int64_t>(ColorToInt(wanted)));
    }
}

}  // namespace

const TColourScheme& LightScheme()
{
    return Light;
}

const TColourScheme& DarkScheme()
{
    return Dark;
}

TColor Counterpart(TColor colour, const TColourScheme& from, const TColourScheme& to)
{
    return Counterpart(colour, ColoursOf(from), ColoursOf(to));
}

void Recolour(TForm& form, const TColourScheme& from, const TColourScheme& to)
{
    const std::vector<TColor> before = ColoursOf(from), after = ColoursOf(to);
    Recolour(static_cast<TPersistent&>(form), before, after);
    const auto visit = [&](const auto& self, TComponent& owner) -> void {
        for (TComponent* component : owner.Components()) {
            Recolour(static_cast<TPersistent&>(*component), before, after);
            self(self, *component);
        }
    };
    visit(visit, form);
}

}  // namespace plotkit
