#include "qt/KxPixelStroke.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plotkit {

namespace {

constexpr int Whole = 256;  ///< share of a pixel that is covered all over
constexpr std::size_t FewRuns = 1 << 16;

QRgb Mixed(QRgb ground, QRgb color, unsigned share)
{
    constexpr unsigned odd = 0x00FF00FF, round = 0x00800080;
    const unsigned rest = Whole - share;
    const unsigned low = (ground & odd) * rest + (color & odd) * share + round;
    const unsigned high = ((ground >> 8) & odd) * rest + ((color >> 8) & odd) * share + round;
    return ((low >> 8) & odd) | (high & ~odd);
}

class TPixels
{
public:
    explicit TPixels(QImage& image)
        : FPixels(reinterpret_cast<QRgb*>(image.bits())),
          FRowLength(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)))
    {}

    QRgb* At(int x, int y) const { return FPixels + y * FRowLength + x; }
    std::ptrdiff_t RowLength() const { return FRowLength; }

private:
    QRgb* FPixels;
    std::ptrdiff_t FRowLength;
};

}  // namespace

/// How far the pixels of one column are covered.
class TPixelStroke::TShares
{
public:
    explicit TShares(int rows) : FShares(static_cast<std::size_t>(rows) + 2) {}

    void Add(const TRun& run)
    {
        const auto first = static_cast<std::size_t>(run.From / Whole), last = static_cast<std::size_t>(run.To / Whole);
        FFirst = std::min(FFirst, first);
        FEnd = std::max(FEnd, last + 1);
        // What a row adds to itself and what it adds to all below.
        FShares[first].Own -= run.From % Whole;
        FShares[first].Begun += Whole;
        FShares[last].Own += run.To % Whole;
        FShares[last].Begun -= Whole;
    }

    /// Calls `draw` with each row that is covered, and forgets it.
    template <class TDraw>
    void Take(int fineness, TDraw draw)
    {
        int begun = 0;
        for (std::size_t row = FFirst; row < FEnd; ++row) {
            begun += FShares[row].Begun;
            if (const int share = (begun + FShares[row].Own) / fineness; share > 0)
                draw(static_cast<int>(row), static_cast<unsigned>(share));
            FShares[row] = {};
        }
        FFirst = FShares.size();
        FEnd = 0;
    }

private:
    struct TShare
    {
        int Own = 0, Begun = 0;
    };
    std::vector<TShare> FShares;
    std::size_t FFirst = FShares.size(), FEnd = 0;
};

void TPixelStroke::Begin(const TRect& clip, double width, double shift)
{
    FParts = FFineness > 1 ? Whole / FFineness : 1;
    FClip = clip;
    FRadius = std::min(width, WidestPen) / 2;
    FShift = shift;
    // The middle of column x + k stands this much right of a point in column x.
    const auto offset = [shift](int k) { return k + 0.5 - shift; };
    FFirst = static_cast<int>(std::ceil(-FRadius - offset(0)));
    FHalfHeights.clear();
    // Where columns only touch on both sides, one of them is covered.
    for (int k = FFirst; offset(k) < FRadius; ++k)
        FHalfHeights.push_back(std::sqrt(std::max(0.0, FRadius * FRadius - offset(k) * offset(k))));
    FNewest.assign(static_cast<std::size_t>(clip.Width()), -1);
    FRuns.clear();
    FMany = FewRuns;
}

void TPixelStroke::Polyline(std::span<const TPoint> points, TPoint origin)
{
    for (std::size_t i = 0; i < points.size();) {
        const TPoint first = points[i];
        std::int32_t low = first.Y, high = first.Y;
        for (++i; i < points.size() && points[i].X == first.X; ++i) {
            low = std::min(low, points[i].Y);
            high = std::max(high, points[i].Y);
        }
        const double x = 1.0 * first.X + origin.X;
        // Of a single point the segments on both sides have the disc.
        if (low != high || points.front().X == points.back().X)
            Column(std::int64_t{first.X} + origin.X, 1.0 * low + origin.Y, 1.0 * high + origin.Y);
        if (i < points.size())
            Segment(x, 1.0 * points[i - 1].Y + origin.Y, 1.0 * points[i].X + origin.X, 1.0 * points[i].Y + origin.Y);
        if (FRuns.size() > FMany)
            Unite();
    }
}

void TPixelStroke::Column(std::int64_t x, double low, double high)
{
    std::int64_t column = x + FFirst;
    for (const double half : FHalfHeights) {
        if (column >= FClip.Left && column < FClip.Right)
            Add(column, low - half, high + half);
        ++column;
    }
}

/// Two discs and what lies between their common tangents.
void TPixelStroke::Segment(double x1, double y1, double x2, double y2)
{
    if (x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    const double first = std::max<double>(FClip.Left, x1 + FFirst);
    const double last = std::min<double>(FClip.Right - 1, x2 + FFirst + static_cast<double>(FHalfHeights.size()) - 1);
    if (first > last)
        return;
    const double dx = x2 - x1, dy = y2 - y1, slope = dy / dx, length = std::sqrt(dx * dx + dy * dy);
    const double above = FRadius * length / dx;  // of the middle, along a column
    const double lean = FRadius * dy / length;   // of where the upper tangent touches, from the middle of a disc
    const double middle = 0.5 - FShift;
    for (auto column = static_cast<std::int64_t>(first); column <= static_cast<std::int64_t>(last); ++column) {
        const double from1 = static_cast<double>(column) + middle - x1, from2 = from1 - dx;
        const double way = y1 + slope * from1;
        const auto half = [&](double x) {
            return FHalfHeights[static_cast<std::size_t>(static_cast<double>(column) - x - FFirst)];
        };
        const double top = from1 < lean ? y1 - half(x1) : from2 > lean ? y2 - half(x2) : way - above;
        const double bottom = from1 < -lean ? y1 + half(x1) : from2 > -lean ? y2 + half(x2) : way + above;
        Add(column, top, bottom);
    }
}

void TPixelStroke::Add(std::int64_t column, double low, double high)
{
    const double rows = FClip.Height() * FParts, top = FShift - FClip.Top;
    const auto from = static_cast<std::int32_t>(std::clamp((low + top) * FParts + 0.5, 0.0, rows));
    const auto to = static_cast<std::int32_t>(std::clamp((high + top) * FParts + 0.5, 0.0, rows));
    if (from >= to)
        return;
    std::int32_t& newest = FNewest[static_cast<std::size_t>(column - FClip.Left)];
    if (newest >= 0) {
        TRun& run = FRuns[static_cast<std::size_t>(newest)];
        if (from <= run.To && to >= run.From) {
            run.From = std::min(run.From, from);
            run.To = std::max(run.To, to);
            return;
        }
    }
    FRuns.push_back({from, to, newest});
    newest = static_cast<std::int32_t>(FRuns.size() - 1);
}

/// The runs of a column without overlaps to `FColumn`.
void TPixelStroke::Collect(std::int32_t newest)
{
    FColumn.clear();
    for (std::int32_t i = newest; i >= 0; i = FRuns[static_cast<std::size_t>(i)].Older)
        FColumn.push_back(FRuns[static_cast<std::size_t>(i)]);
    if (FColumn.size() < 2)
        return;
    std::sort(FColumn.begin(), FColumn.end(), [](const TRun& a, const TRun& b) { return a.From < b.From; });
    auto last = FColumn.begin();
    for (auto next = last + 1; next != FColumn.end(); ++next) {
        if (next->From <= last->To)
            last->To = std::max(last->To, next->To);
        else
            *++last = *next;
    }
    FColumn.erase(last + 1, FColumn.end());
}

/// Keeps what is remembered of a long and tangled way in proportion to the picture.
void TPixelStroke::Unite()
{
    std::vector<TRun> united;
    for (std::int32_t& newest : FNewest) {
        Collect(std::exchange(newest, -1));
        for (const TRun& run : FColumn) {
            united.push_back({run.From, run.To, newest});
            newest = static_cast<std::int32_t>(united.size() - 1);
        }
    }
    FRuns = std::move(united);
    FMany = std::max(FewRuns, 2 * FRuns.size());
}

void TPixelStroke::Draw(QImage& image, QRgb color)
{
    if (FFineness > 1)
        Blend(image, color);
    else
        Fill(image, color);
    std::fill(FNewest.begin(), FNewest.end(), -1);
    FRuns.clear();
}

void TPixelStroke::Fill(QImage& image, QRgb color)
{
    const TPixels pixels(image);
    for (int x = FClip.Left; x < FClip.Right; ++x) {
        Collect(FNewest[static_cast<std::size_t>(x - FClip.Left)]);
        for (const TRun& run : FColumn) {
            QRgb* pixel = pixels.At(x, FClip.Top + run.From);
            for (std::int32_t row = run.From; row < run.To; ++row, pixel += pixels.RowLength())
                *pixel = color;
        }
    }
}

void TPixelStroke::Blend(QImage& image, QRgb color)
{
    const TPixels pixels(image);
    const int left = FClip.Left / FFineness, top = FClip.Top / FFineness;
    TShares shares(FClip.Height() / FFineness);
    for (std::size_t column = 0; column < FNewest.size();) {
        const int x = left + static_cast<int>(column) / FFineness;
        for (int i = 0; i < FFineness; ++i, ++column) {
            Collect(FNewest[column]);
            for (const TRun& run : FColumn)
                shares.Add(run);
        }
        shares.Take(FFineness, [&](int row, unsigned share) {
            QRgb* const pixel = pixels.At(x, top + row);
            *pixel = share == Whole ? color : Mixed(*pixel, color, share);
        });
    }
}

}  // namespace plotkit
