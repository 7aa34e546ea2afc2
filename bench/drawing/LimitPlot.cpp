#include "drawing/LimitPlot.h"

#include <QImage>
#include <QPainter>
#include <QPolygon>
#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace bench {

namespace {

/// What a column of pixels shows of a line.
struct TExtent
{
    double First, Low, High, Last;

    void Unite(const TExtent& next)
    {
        Low = std::min(Low, next.Low);
        High = std::max(High, next.High);
        Last = next.Last;
    }
};

constexpr std::size_t Block = 256;

using TEnds = std::pair<double, double>;

[[gnu::target_clones("avx512f", "avx2", "default")]] TEnds RangeOf(const double* values, std::size_t count)
{
    constexpr std::size_t Lanes = 32, LineLength = 8, PageLength = 512;
    double low[Lanes], high[Lanes];
    std::fill_n(low, Lanes, values[0]);
    std::fill_n(high, Lanes, values[0]);
    for (std::size_t i = 0; i + Lanes <= count; i += Lanes) {
        for (std::size_t k = 0; k < Lanes; k += LineLength)
            __builtin_prefetch(values + i + k + PageLength);
        for (std::size_t k = 0; k < Lanes; ++k) {
            low[k] = values[i + k] < low[k] ? values[i + k] : low[k];
            high[k] = values[i + k] > high[k] ? values[i + k] : high[k];
        }
    }
    for (std::size_t i = count / Lanes * Lanes; i < count; ++i) {
        low[0] = std::min(low[0], values[i]);
        high[0] = std::max(high[0], values[i]);
    }
    return {*std::min_element(low, low + Lanes), *std::max_element(high, high + Lanes)};
}

class TLimitPlot : public TPlot
{
public:
    explicit TLimitPlot(TLook look) : FLook(look) {}

    void Prepare(std::size_t count, const TSource& source) override
    {
        FNewX.resize(count);
        FNewY.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            FNewX[i] = source.X(i);
            FNewY[i] = source.Y(i);
        }
    }

    void Take() override
    {
        FX = std::move(FNewX);
        FY = std::move(FNewY);
        FBlocks.clear();
        Summarize();
        FindRange();
    }

    bool NewSeries() override { return false; }

    void Add(double x, double y) override
    {
        FX.push_back(x);
        FY.push_back(y);
    }

    void FindRange() override
    {
        std::tie(FFrom, FTo) = RangeOf(FX.data(), FX.size());
        std::tie(FLow, FHigh) = RangeOf(FY.data(), FY.size());
    }

    void ShowX(double from, double to) override { FFrom = from, FTo = to; }
    void ShowY(double from, double to) override { FLow = from, FHigh = to; }

    void Replot() override
    {
        Summarize();
        FImage.fill(Qt::white);
        if (FLook == TLook::Circles)
            return StampCircles();
        if (FLook == TLook::ErrorBars)
            return DrawErrorBars();
        QPainter painter(&FImage);
        painter.setClipRect(0, 0, Width, Height);
        painter.setPen(QPen(Qt::red, FLook == TLook::WideLine ? 2 : 1));
        painter.setRenderHint(QPainter::Antialiasing, FLook == TLook::SmoothLine);
        if (FLook == TLook::Bars)
            DrawBars(painter);
        else
            DrawLine(painter);
    }

    QImage Picture() override { return FImage; }

    bool Export(const std::string& fileName) override
    {
        Replot();
        return fileName.ends_with(".png") && FImage.save(QString::fromStdString(fileName));
    }

private:
    /// Whole blocks that have none yet.
    void Summarize()
    {
        while ((FBlocks.size() + 1) * Block <= FY.size())
            FBlocks.push_back(Scan(FBlocks.size() * Block, (FBlocks.size() + 1) * Block));
    }

    TExtent Scan(std::size_t first, std::size_t end) const
    {
        TExtent extent{FY[first], FY[first], FY[first], FY[end - 1]};
        for (std::size_t i = first; i < end; ++i) {
            extent.Low = FY[i] < extent.Low ? FY[i] : extent.Low;
            extent.High = FY[i] > extent.High ? FY[i] : extent.High;
        }
        return extent;
    }

    TExtent ExtentOf(std::size_t first, std::size_t end) const
    {
        std::size_t block = (first + Block - 1) / Block;
        const std::size_t lastBlock = end / Block;
        if (block >= lastBlock)
            return Scan(first, end);
        TExtent extent = first < block * Block ? Scan(first, block * Block) : FBlocks[block];
        for (; block < lastBlock; ++block)
            extent.Unite(FBlocks[block]);
        if (end > lastBlock * Block)
            extent.Unite(Scan(lastBlock * Block, end));
        return extent;
    }

    std::size_t IndexOf(double x) const
    {
        return static_cast<std::size_t>(std::lower_bound(FX.begin(), FX.end(), x) - FX.begin());
    }
    int XPixel(double x) const { return static_cast<int>(std::lround((x - FFrom) / (FTo - FFrom) * (Width - 1))); }
    int YPixel(double y) const { return static_cast<int>(std::lround((FHigh - y) / (FHigh - FLow) * (Height - 1))); }

    void DrawLine(QPainter& painter) const
    {
        QPolygon points;
        std::size_t first = IndexOf(FFrom);
        const std::size_t end = IndexOf(FTo);
        for (int column = 0; column < Width && first < end; ++column) {
            const std::size_t next = std::min(end, IndexOf(FFrom + (FTo - FFrom) * (column + 0.5) / (Width - 1)));
            if (next <= first)
                continue;
            const TExtent extent = ExtentOf(first, next);
            for (const double y : {extent.First, extent.Low, extent.High, extent.Last})
                if (const QPoint point(column, YPixel(y)); points.isEmpty() || points.back() != point)
                    points << point;
            first = next;
        }
        if (FLook != TLook::WideLine)
            return painter.drawPolyline(points);
        for (int i = 0; i + 1 < points.size(); ++i)
            painter.drawLine(points[i], points[i + 1]);
    }

    void StampCircles()
    {
        static constexpr std::array<std::pair<int, int>, 12> Mask{
            {{-1, -2}, {0, -2}, {1, -2}, {-2, -1}, {2, -1}, {-2, 0}, {2, 0}, {-2, 1}, {2, 1}, {-1, 2}, {0, 2}, {1, 2}}};
        auto* const pixels = reinterpret_cast<QRgb*>(FImage.bits());
        for (std::size_t i = 0; i < FX.size(); ++i) {
            const int x = XPixel(FX[i]), y = YPixel(FY[i]);
            if (x < 2 || x >= Width - 2 || y < 2 || y >= Height - 2)
                continue;
            for (const auto& [dx, dy] : Mask)
                pixels[(y + dy) * Width + x + dx] = 0xff0000ff;
        }
    }

    void DrawErrorBars()
    {
        constexpr QRgb Red = 0xffff0000;
        auto* const pixels = reinterpret_cast<QRgb*>(FImage.bits());
        for (std::size_t i = 0; i < FX.size(); ++i) {
            const int x = std::clamp(XPixel(FX[i]), 2, Width - 3);
            const int top = std::clamp(YPixel(FY[i] + 0.5), 0, Height - 1);
            const int bottom = std::clamp(YPixel(FY[i] - 0.5), 0, Height - 1);
            for (int y = top; y <= bottom; ++y)
                pixels[y * Width + x] = Red;
            std::fill_n(pixels + top * Width + x - 2, 5, Red);
            std::fill_n(pixels + bottom * Width + x - 2, 5, Red);
        }
    }

    void DrawBars(QPainter& painter) const
    {
        const int zero = YPixel(0);
        for (std::size_t i = 0; i + 1 < FX.size(); ++i) {
            const int left = XPixel(FX[i]), right = std::max(left + 1, XPixel(FX[i + 1])), top = YPixel(FY[i]);
            painter.fillRect(left, std::min(top, zero), right - left, std::abs(zero - top), Qt::blue);
        }
    }

    TLook FLook;
    QImage FImage{Width, Height, QImage::Format_RGB32};
    std::vector<double> FNewX, FNewY, FX, FY;
    std::vector<TExtent> FBlocks;
    double FFrom = 0, FTo = 1, FLow = 0, FHigh = 1;
};

}  // namespace

TLibrary Limit()
{
    return {"limit", [](TLook look) { return std::make_unique<TLimitPlot>(look); }};
}

}  // namespace bench
