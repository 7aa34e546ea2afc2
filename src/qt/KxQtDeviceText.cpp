#include <algorithm>
#include <cmath>

#include "qt/KxQtDevice.h"
#include "qt/KxQtFont.h"
#include "qt/KxQtLines.h"

namespace plotkit {

namespace {

/// A run may be spread or squeezed by this part of its width, or by a pixel, without looking uneven.
constexpr double SpreadTolerance = 0.025;
/// Less than this is not worth a font of its own.
constexpr double NoticedSpread = 0.25;

double NaturalWidth(const TQtFontFace& face, const std::u32string& characters)
{
    double width = 0;
    for (const char32_t character : characters)
        width += face.Advance(character);
    return width;
}

/// How much wider than natural a run of the given advances is; nothing when it must be set character by character.
/// The last character's spacing falls behind it, into the cell.
std::optional<double> Spread(const TTextRun& run, const TQtFontFace& face, const std::u32string& characters)
{
    if (run.Advances.size() != characters.size())
        return 0;
    const double natural = NaturalWidth(face, characters);
    const double spread = run.Advances.back() - natural;
    const double tolerance = std::max(1.0, SpreadTolerance * natural);
    if (std::abs(spread) > tolerance)
        return std::nullopt;
    double reached = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        reached += face.Advance(characters[i]);
        const double place = reached + spread * static_cast<double>(i + 1) / static_cast<double>(characters.size());
        if (std::abs(place - run.Advances[i]) > tolerance)
            return std::nullopt;
    }
    return spread;
}

double CellWidth(const TTextRun& run, const TQtFontFace& face, const std::u32string& characters)
{
    return run.Advances.empty() ? std::ceil(NaturalWidth(face, characters)) : run.Advances.back();
}

}  // namespace

void TQtDevice::Text(const TTextRun& run, const TDrawState& state)
{
    if (run.Text.empty() || IsFar(run.At) || !Begin(state))
        return;
    if (run.Font.Angle % 3600 == 0)
        return DrawRun(run);
    const QTransform before = FPainter.transform();
    // About the middle of the pixel, so that at right angles the cells of characters are the same pixels, turned.
    const double middle = FTargetPixel / 2;
    FPainter.translate(run.At.X + middle, run.At.Y + middle);
    FPainter.rotate(-(run.Font.Angle % 3600) / 10.0);
    FPainter.translate(-middle, -middle);
    TTextRun turned = run;
    turned.At = {};
    DrawRun(turned);
    FPainter.setTransform(before);
}

void TQtDevice::DrawRun(const TTextRun& run)
{
    const auto face = QtFontFace(run.Font);
    const std::u32string characters = face->Characters(run.Text);
    const QPointF base(run.At.X, run.At.Y + face->Ascent());
    if (run.Background.Style != bsClear)
        FPainter.fillRect(QRectF(run.At.X, run.At.Y, CellWidth(run, *face, characters), face->Height()),
                          FBrushes.Brush(run.Background));
    FPainter.setPen(QtColor(run.Font.Color));
    FStroke.reset();
    const auto spread = Spread(run, *face, characters);
    if (spread) {
        QFont font = face->Font();
        if (std::abs(*spread) >= NoticedSpread)
            font.setLetterSpacing(QFont::AbsoluteSpacing, *spread / static_cast<double>(characters.size()));
        FPainter.setFont(font);
        FPainter.drawText(base, QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size())));
        return;
    }
    FPainter.setFont(face->Font());
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const double reached = i == 0 ? 0 : run.Advances[i - 1];
        FPainter.drawText(base + QPointF(reached, 0), QString::fromUcs4(&characters[i], 1));
    }
}

}  // namespace plotkit
