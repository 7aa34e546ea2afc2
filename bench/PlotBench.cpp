// What appending, a first picture and a repaint cost, each beside the plain work that cannot be avoided.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <memory>
#include <random>

#include "data/KxVector.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxQtDevice.h"
#include "qt/KxQtHost.h"
#include "series/KxDataSeries.h"

using namespace plotkit;

namespace {

constexpr int Width = 800, Height = 600;
/// Points per polyline call, as the library hands them over.
constexpr std::size_t PiecePoints = 2000;

/// A random walk with the given number of steps.
std::vector<double> Walk(std::size_t count)
{
    std::mt19937_64 random(7);
    std::normal_distribution<double> step;
    std::vector<double> values(count);
    double at = 0;
    for (double& value : values)
        value = at += step(random);
    return values;
}

std::vector<double> Ramp(std::size_t count)
{
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = static_cast<double>(i);
    return values;
}

struct TPlot
{
    TForm Form{nullptr};
    TKx2DGraph* Graph = new TKx2DGraph(&Form);
    TKxLiveVector* X = new TKxLiveVector(&Form);
    TKxLiveVector* Y = new TKxLiveVector(&Form);
    TKxLineSeries* Series;

    TPlot()
    {
        Form.SetBounds(0, 0, Width, Height);
        Graph->SetParent(&Form);
        Graph->SetAlign(alClient);
        Series = new TKxLineSeries(&Form);
        Series->SetXAxis(Graph->GetPrimaryXAxis());
        Series->SetYAxis(Graph->GetPrimaryYAxis());
        Series->SetXData(X);
        Series->SetYData(Y);
    }
};

/// 100,000 pairs one by one into live vectors that a series listens to.
void AppendLive(benchmark::State& state)
{
    const std::vector<double> values = Walk(100000);
    for (auto _ : state) {
        TPlot plot;
        for (std::size_t i = 0; i < values.size(); ++i) {
            plot.X->Add(static_cast<double>(i));
            plot.Y->Add(values[i]);
        }
        benchmark::DoNotOptimize(plot.Y->GetCount());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

/// The limit of appending: the same pairs into two plain arrays.
void AppendPlain(benchmark::State& state)
{
    const std::vector<double> values = Walk(100000);
    for (auto _ : state) {
        std::vector<double> x, y;
        for (std::size_t i = 0; i < values.size(); ++i) {
            x.push_back(static_cast<double>(i));
            y.push_back(values[i]);
        }
        benchmark::DoNotOptimize(y.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void DrawOn(QImage& image, const TRecording& picture)
{
    QPainter painter(&image);
    TQtDevice device(painter);
    picture.Replay(device);
}

/// From fresh data to pixels.
void FirstPicture(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    const std::vector<double> x = Ramp(count), y = Walk(count);
    QImage image(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        state.PauseTiming();
        auto plot = std::make_unique<TPlot>();
        std::vector<double> freshX = x, freshY = y;
        state.ResumeTiming();
        plot->X->Take(std::move(freshX));
        plot->Y->Take(std::move(freshY));
        DrawOn(image, plot->Form.Picture());
        state.PauseTiming();
        plot.reset();
        state.ResumeTiming();
    }
}

/// The picture of unchanged data once more.
void Repaint(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    TPlot plot;
    plot.X->Take(Ramp(count));
    plot.Y->Take(Walk(count));
    QImage image(Width, Height, QImage::Format_RGB32);
    DrawOn(image, plot.Form.Picture());
    for (auto _ : state) {
        plot.Form.Invalidate();
        DrawOn(image, plot.Form.Picture());
    }
}

/// The same line as points that are mapped already, by the painter alone.
void PainterAlone(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    const std::vector<double> y = Walk(count);
    const auto [low, high] = std::minmax_element(y.begin(), y.end());
    std::vector<QPoint> points(count);
    for (std::size_t i = 0; i < count; ++i)
        points[i] = {static_cast<int>(std::lround(static_cast<double>(i) / static_cast<double>(count - 1) * (Width - 1))),
                     static_cast<int>(std::lround((y[i] - *low) / (*high - *low) * (Height - 1)))};
    QImage image(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setClipRect(0, 0, Width, Height);
        painter.setPen(QPen(Qt::red, 0));
        for (std::size_t i = 0; i + 1 < count; i += PiecePoints - 1)
            painter.drawPolyline(points.data() + i, static_cast<int>(std::min(PiecePoints, count - i)));
    }
}

}  // namespace

BENCHMARK(AppendLive)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstPicture)->RangeMultiplier(10)->Range(10000, 10000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Repaint)->RangeMultiplier(10)->Range(10000, 10000000)->Unit(benchmark::kMillisecond);
BENCHMARK(PainterAlone)->RangeMultiplier(10)->Range(10000, 10000000)->Unit(benchmark::kMillisecond);

int main(int count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&count, arguments);
    const QApplication application(count, arguments);
    TQtHost host;
    const THostGuard guard(host);
    benchmark::RunSpecifiedBenchmarks();
}
