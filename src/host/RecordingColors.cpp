#include "host/RecordingColors.h"

#include <array>
#include <cmath>
#include <map>

#include "host/Host.h"
#include "host/VectorDevice.h"

namespace plotkit {

namespace {

/// Coordinates in Oklab: lightness, green to red, blue to yellow.
struct TLab
{
    double L = 0, A = 0, B = 0;
};
using TLinear = std::array<double, 3>;

double Linear(std::uint8_t part)
{
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

std::uint8_t Encoded(double linear)
{
    const double value = std::clamp(linear, 0.0, 1.0);
    const double encoded = value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
    return static_cast<std::uint8_t>(std::lround(encoded * 255));
}

TLab LabOf(TColor color)
{
    const TColor shown = Host().ResolveColor(color);
    const double r = Linear(RedOf(shown)), g = Linear(GreenOf(shown)), b = Linear(BlueOf(shown));
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

TLinear LinearOf(const TLab& lab)
{
    const double l = std::pow(lab.L + 0.3963377774 * lab.A + 0.2158037573 * lab.B, 3);
    const double m = std::pow(lab.L - 0.1055613458 * lab.A - 0.0638541728 * lab.B, 3);
    const double s = std::pow(lab.L - 0.0894841775 * lab.A - 1.2914855480 * lab.B, 3);
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

/// With as much of its chroma as a screen can show at that lightness.
TColor ColorOf(const TLab& lab)
{
    constexpr double slack = 0.002;
    const auto isShown = [](const TLinear& rgb) {
        return std::all_of(rgb.begin(), rgb.end(), [](double v) { return v >= -slack && v <= 1 + slack; });
    };
    const auto weaker = [&](double part) { return LinearOf({lab.L, lab.A * part, lab.B * part}); };
    double least = 0, most = 1;
    if (isShown(weaker(1)))
        least = 1;
    for (int i = 0; i < 20 && least < 1; ++i) {
        const double middle = (least + most) / 2;
        (isShown(weaker(middle)) ? least : most) = middle;
    }
    const TLinear rgb = weaker(least);
    return RgbColor(Encoded(rgb[0]), Encoded(rgb[1]), Encoded(rgb[2]));
}

TColor Xor(TColor a, TColor b)
{
    const auto rgb = [](TColor color) { return ColorToInt(Host().ResolveColor(color)) & 0xFFFFFF; };
    return IntToColor(rgb(a) ^ rgb(b));
}

/// The filled boxes of a picture so far: what later commands stand on.
class TGrounds
{
public:
    void Add(const TDrawCommand& command)
    {
        const auto* box = std::get_if<TRectangleCommand>(&command);
        if (box && box->State.Mode == dmCopy && box->Brush.Style == bsSolid)
            FBoxes.push_back({box->Box.Intersected(box->State.Clip), box->Brush.Color});
    }
    /// Of the last box that covers what can be seen of `box`.
    TColor Under(const TRect& box, const TRect& clip) const
    {
        const TRect seen = box.Intersected(clip);
        for (auto ground = FBoxes.rbegin(); ground != FBoxes.rend(); ++ground)
            if (seen.Intersected(ground->first) == seen)
                return ground->second;
        return clWhite;
    }

private:
    std::vector<std::pair<TRect, TColor>> FBoxes;
};

/// Calls `change(brush, ground)` for each exclusive-or filling, ground the colour that it stands on.
template <class TChange>
void ForEachXorFill(TRecording& picture, TChange change)
{
    TGrounds grounds;
    const auto fill = [&](const TDrawCommand& command, TBrushState& brush, const TDrawState& state) {
        if (state.Mode != dmXor || brush.Style == bsClear)
            return;
        TRecording one;
        one.Commands.push_back(command);
        change(brush, grounds.Under(DrawnBounds(one), state.Clip));
    };
    for (TDrawCommand& command : picture.Commands) {
        grounds.Add(command);
        if (auto* polygon = std::get_if<TPolygonCommand>(&command))
            fill(command, polygon->Brush, polygon->State);
        else if (auto* box = std::get_if<TRectangleCommand>(&command))
            fill(command, box->Brush, box->State);
        else if (auto* oval = std::get_if<TEllipseCommand>(&command))
            fill(command, oval->Brush, oval->State);
    }
}

/// Gives every colour of a recording another, that of a shape once for all its stamps.
class TRecolourer
{
public:
    explicit TRecolourer(TColor dark) : FDark(dark) {}

    void Change(TRecording& picture)
    {
        for (TDrawCommand& command : picture.Commands)
            std::visit([this](auto& c) { Change(c); }, command);
    }

private:
    void Change(TColor& color)
    {
        const auto [place, isNew] = FColors.try_emplace(ColorToInt(color));
        if (isNew)
            place->second = LightColor(color, FDark);
        color = place->second;
    }
    void Change(TLineCommand& c) { Change(c.Pen.Color); }
    void Change(TLinesCommand& c) { Change(c.Pen.Color); }
    void Change(TPolylineCommand& c) { Change(c.Pen.Color); }
    template <class TFilled>
    void Change(TFilled& c)
    {
        Change(c.Pen.Color);
        // Of exclusive-or the result is mirrored, not the pattern of bits.
        if (c.State.Mode == dmCopy)
            Change(c.Brush.Color);
    }
    void Change(TFocusRectCommand&) {}
    void Change(TTextCommand& c)
    {
        Change(c.Run.Font.Color);
        Change(c.Run.Background.Color);
    }
    void Change(TStampCommand& c)
    {
        if (!c.Shape)
            return;
        auto& shape = FShapes[c.Shape.get()];
        if (!shape) {
            const auto changed = std::make_shared<TRecording>(*c.Shape);
            Change(*changed);
            shape = {changed, c.Shape};
        }
        c.Shape = shape->first;
    }

    TColor FDark;
    std::map<std::int32_t, TColor> FColors;
    /// By the shape before, which is kept so that its address stays its own.
    std::map<const TRecording*,
             std::optional<std::pair<std::shared_ptr<const TRecording>, std::shared_ptr<const TRecording>>>>
        FShapes;
};

}  // namespace

double LightnessOf(TColor color)
{
    return LabOf(color).L;
}

TColor LightColor(TColor color, TColor dark)
{
    // Dark enough to be read on white, light enough to be told from black.
    constexpr double readable = 0.55, vivid = 0.12;
    TLab lab = LabOf(color);
    const double darkest = std::min(LightnessOf(dark), 0.9);
    const double mirrored = 1 - std::clamp((lab.L - darkest) / (1 - darkest), 0.0, 1.0);
    lab.L = std::max(mirrored, readable * std::min(1.0, std::hypot(lab.A, lab.B) / vivid));
    return ColorOf(lab);
}

TColor GroundOf(const TRecording& picture, TSize size, TColor ground)
{
    const TRect page{0, 0, size.Width, size.Height};
    for (const TDrawCommand& command : picture.Commands) {
        const auto* box = std::get_if<TRectangleCommand>(&command);
        if (!box || box->State.Mode != dmCopy || box->Brush.Style != bsSolid)
            continue;
        const TRect seen = box->Box.Intersected(box->State.Clip).Intersected(page);
        if (2.0 * seen.Width() * seen.Height() >= 1.0 * size.Width * size.Height)
            ground = box->Brush.Color;
    }
    return ground;
}

TRecording LightColors(TRecording picture, TSize size, TColor ground)
{
    constexpr double middle = 0.5;
    const TColor dark = GroundOf(picture, size, ground);
    if (LightnessOf(dark) >= middle)
        return picture;
    ForEachXorFill(picture, [&](TBrushState& brush, TColor under) {
        brush.Color = Xor(LightColor(Xor(brush.Color, under), dark), LightColor(under, dark));
    });
    TRecolourer(dark).Change(picture);
    return picture;
}

TRecording BlendedXor(TRecording picture, double opacity)
{
    ForEachXorFill(picture, [&](TBrushState& brush, TColor under) {
        const TColor shown = Xor(brush.Color, under), below = Host().ResolveColor(under);
        const auto part = [&](std::uint8_t wanted, std::uint8_t ground) {
            const double value = (wanted - (1 - opacity) * ground) / opacity;
            return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
        };
        brush.Color = RgbColor(part(RedOf(shown), RedOf(below)), part(GreenOf(shown), GreenOf(below)),
                               part(BlueOf(shown), BlueOf(below)));
    });
    return picture;
}

}  // namespace plotkit
