#include "qt/KxQtFont.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include "host/CheckedMath.h"
#include "host/SymbolEncoding.h"

namespace plotkit {

namespace {

/// Qt's metrics overflow not far above.
constexpr int LargestPixelSize = 8192;
constexpr std::size_t CacheSize = 64;

int PixelSizeOf(const TFontState& state)
{
    // The rounding of TFontState::Height, for every size that can be.
    return std::clamp(RoundToInt(std::abs(state.PixelSize())), 1, LargestPixelSize);
}

QStringList FamiliesOf(const TFontState& state)
{
    // Greek letters and most signs are in the first two, the rest of the Symbol characters in the last.
    if (IsSymbolFont(state.Name))
        return {QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")};
    const QString name = QString::fromStdString(state.Name);
    if (name.compare(QLatin1String("Arial"), Qt::CaseInsensitive) == 0)
        return {name, QStringLiteral("Liberation Sans"), QStringLiteral("Arimo")};
    return {name};
}

QFont FontOf(const TFontState& state)
{
    QFont font;
    font.setFamilies(FamiliesOf(state));
    font.setPixelSize(PixelSizeOf(state));
    font.setBold(state.Bold);
    font.setItalic(state.Italic);
    font.setUnderline(state.Underline);
    font.setStrikeOut(state.StrikeOut);
    font.setKerning(false);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    font.setStyleHint(state.Pitch == fpFixed ? QFont::Monospace : QFont::SansSerif, QFont::NoSubpixelAntialias);
    font.setFixedPitch(state.Pitch == fpFixed);
    return font;
}

/// What makes one Qt font differ from another; colour, angle and charset do not.
using TKey = std::tuple<std::string, int, bool, bool, bool, bool, TFontPitch>;

bool Fits(const TKey& key, const TFontState& s)
{
    return key == std::tie(s.Name, std::get<1>(key), s.Bold, s.Italic, s.Underline, s.StrikeOut, s.Pitch) &&
           std::get<1>(key) == PixelSizeOf(s);
}

struct TCacheEntry
{
    TKey Key;
    std::shared_ptr<const TQtFontFace> Face;
};

/// Most recently used first.
std::vector<TCacheEntry>& Cache()
{
    static std::vector<TCacheEntry> entries = [] {
        // Fonts must not outlive the application.
        qAddPostRoutine([] { Cache().clear(); });
        return std::vector<TCacheEntry>();
    }();
    return entries;
}

}  // namespace

TQtFontFace::TQtFontFace(const TFontState& state) : FFont(FontOf(state)), FSymbol(IsSymbolFont(state.Name))
{
    const QFontMetrics metrics(FFont);
    FAscent = metrics.ascent();
    FHeight = metrics.height();
    FLatin.fill(-1);
}

std::u32string TQtFontFace::Characters(std::string_view text) const
{
    return ShownCharacters(text, FSymbol);
}

double TQtFontFace::Advance(char32_t character) const
{
    if (character >= FLatin.size()) {
        const auto [place, isNew] = FOthers.try_emplace(character, 0);
        if (isNew)
            place->second = Measured(character);
        return place->second;
    }
    double& advance = FLatin[character];
    if (advance < 0)
        advance = Measured(character);
    return advance;
}

double TQtFontFace::Measured(char32_t character) const
{
    return std::max(0.0, QFontMetricsF(FFont).horizontalAdvance(QString::fromUcs4(&character, 1)));
}

std::shared_ptr<const TQtFontFace> QtFontFace(const TFontState& state)
{
    std::vector<TCacheEntry>& cache = Cache();
    auto entry = std::find_if(cache.begin(), cache.end(), [&](const TCacheEntry& e) { return Fits(e.Key, state); });
    if (entry == cache.end()) {
        if (cache.size() == CacheSize)
            cache.pop_back();
        const TKey key{state.Name,      PixelSizeOf(state), state.Bold, state.Italic,
                       state.Underline, state.StrikeOut,    state.Pitch};
        entry = cache.insert(cache.end(), {key, std::make_shared<TQtFontFace>(state)});
    }
    std::rotate(cache.begin(), entry, std::next(entry));
    return cache.front().Face;
}

}  // namespace plotkit
