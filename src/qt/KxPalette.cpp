#include "qt/KxPalette.h"

#include <array>
#include <cstdint>

namespace plotkit {

namespace {

constexpr int MostColors = 256;

/// The colours met so far, found again by hashing.
class TPalette
{
public:
    TPalette() { FPlaces.fill(-1); }

    const QList<QRgb>& Colors() const { return FColors; }

    /// -1 when there is no room for a new colour.
    int IndexOf(QRgb color)
    {
        // Knuth's multiplicative hashing; four places for each colour keep chains short.
        for (std::size_t at = color * 2654435769U >> 22U;; at = (at + 1) % FPlaces.size()) {
            const int place = FPlaces[at];
            if (place < 0)
                return Add(color, at);
            if (FColors[place] == color)
                return place;
        }
    }

private:
    int Add(QRgb color, std::size_t at)
    {
        if (FColors.size() == MostColors)
            return -1;
        FPlaces[at] = static_cast<std::int16_t>(FColors.size());
        FColors.append(color);
        return FPlaces[at];
    }

    QList<QRgb> FColors;
    std::array<std::int16_t, 1024> FPlaces;
};

}  // namespace

QImage WithPalette(const QImage& image)
{
    if (image.format() != QImage::Format_RGB32)
        return image;
    QImage drawn(image.size(), QImage::Format_Indexed8);
    if (drawn.isNull())
        return image;
    TPalette palette;
    QRgb last = 0;
    int index = -1;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* const from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        uchar* const to = drawn.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = from[x] | 0xFF000000U;
            if (index < 0 || color != last)
                index = palette.IndexOf(last = color);
            if (index < 0)
                return image;
            to[x] = static_cast<uchar>(index);
        }
    }
    drawn.setColorTable(palette.Colors());
    drawn.setDotsPerMeterX(image.dotsPerMeterX());
    drawn.setDotsPerMeterY(image.dotsPerMeterY());
    return drawn;
}

}  // namespace plotkit
