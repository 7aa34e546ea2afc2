#include "drawing/LiveCases.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <chrono>
#include <cmath>
#include <memory>

#include "calculated/KxFittedLine.h"
#include "calculated/KxInterpolatedLine.h"
#include "formula/KxFormula.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxQtDevice.h"
#include "series/KxDataSeries.h"
#include "series/KxGraphCursor.h"
#include "support/BenchData.h"

namespace bench {

namespace {

using namespace plotkit;

/// A graph that fills its part of a form, with one line.
struct TLiveGraph
{
    TKx2DGraph* Graph;
    TKxLiveVector *X, *Y;
    TKxDataSeries* Series;

    explicit TLiveGraph(TForm& form) : TLiveGraph(form, *NewGraph(form)) {}
    TLiveGraph(TForm& form, TKx2DGraph& graph)
        : Graph(&graph), X(new TKxLiveVector(&form)), Y(new TKxLiveVector(&form)), Series(new TKxDataSeries(&form))
    {
        Series->SetXAxis(Graph->GetPrimaryXAxis());
        Series->SetYAxis(Graph->GetPrimaryYAxis());
        Series->SetXData(X);
        Series->SetYData(Y);
        Series->GetPointStyle().SetVisible(false);
    }

    /// Graphs of one owner share the axes they find there, so each gets an owner of its own.
    static TKx2DGraph* NewGraph(TForm& form)
    {
        auto* const graph = new TKx2DGraph(new TComponent(&form));
        graph->SetParent(&form);
        return graph;
    }
    void Fill(std::span<const double> x, std::span<const double> y)
    {
        X->Assign(x);
        Y->Assign(y);
    }
};

struct TLiveWindow
{
    TForm Form{nullptr};
    KxGraphWidget Widget{&Form};

    TLiveWindow(int width, int height) { Widget.resize(width, height); }
};

/// A curve of a series of a thousand points, which is not drawn itself.
template <class TCurve>
struct TCurveWindow : TLiveWindow
{
    TLiveGraph Parent{Form};
    TCurve* Curve = new TCurve(&Form);

    TCurveWindow() : TLiveWindow(800, 600)
    {
        constexpr std::size_t Count = 1000;
        Parent.Graph->SetAlign(alClient);
        Parent.Series->GetLineStyle().SetVisible(false);
        std::vector<double> y;
        for (const double x : Unit(Count))
            y.push_back(2.5 * std::exp(-3 * x) + 0.5);
        Parent.Fill(Unit(Count), y);
        if constexpr (std::is_same_v<TCurve, TKxFittedLine>)
            Curve->SetExpression("a*exp(-b*x)+c");
        Curve->SetParentSeries(Parent.Series);
        Widget.Shown();
    }
};

/// What a zoom costs before anything is drawn.
template <class TCurve>
void SampleCurve(benchmark::State& state)
{
    TCurveWindow<TCurve> window;
    TKxAxis& axis = *window.Parent.Graph->GetPrimaryXAxis();
    bool isFirst = false;
    for (auto _ : state) {
        state.PauseTiming();
        isFirst = !isFirst;
        axis.ShowExactly(isFirst ? 0.2 : 0.3, 0.5);
        state.ResumeTiming();
        window.Curve->CalculateLine();
    }
    state.counters["samples"] = window.Curve->XResult().GetCount();
}

/// The line of the curve alone, its points already made.
template <class TCurve>
void DrawCurve(benchmark::State& state)
{
    TCurveWindow<TCurve> window;
    const auto points = window.Curve->Points().Values();
    QImage image(800, 600, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    TQtDevice device(painter);
    const TPenState pen{.Color = clRed};
    const TDrawState drawState{.Clip = {0, 0, 800, 600}};
    for (auto _ : state)
        device.Polyline(points, pen, drawState);
}

/// From point to point over ten million.
void MoveCursor(benchmark::State& state)
{
    constexpr std::size_t Count = 10000000;
    TLiveWindow window(800, 600);
    TLiveGraph graph(window.Form);
    graph.Graph->SetAlign(alClient);
    graph.Fill(Ramp(Count), Walk(Count));
    TKxGraphCursor cursor(*graph.Graph);
    window.Widget.Shown();
    cursor.SetShown(true);
    int x = 100;
    for (auto _ : state) {
        x = x < 700 ? x + 1 : 100;
        cursor.MoveTo({x, 300});
        benchmark::DoNotOptimize(window.Widget.Shown());
    }
}

using TClock = std::chrono::steady_clock;

double SecondsSince(TClock::time_point& start)
{
    const auto now = TClock::now();
    const double seconds = std::chrono::duration<double>(now - start).count();
    start = now;
    return seconds;
}

/// What a frame of a live window costs: the appending, the layout with its record, and the pixels.
class TPhases
{
public:
    TPhases(TForm& form, int width, int height) : FForm(form), FImage(width, height, QImage::Format_RGB32) {}

    template <class TAppend>
    void Frame(TAppend append)
    {
        auto start = TClock::now();
        append();
        FAppend += SecondsSince(start);
        const TRecording picture = FForm.Picture();
        FLayout += SecondsSince(start);
        FImage.fill(Qt::white);
        QPainter painter(&FImage);
        TQtDevice device(painter);
        picture.Replay(device);
        FPaint += SecondsSince(start);
    }
    void Count(benchmark::State& state) const
    {
        const auto perFrame = [&](double seconds) { return seconds * 1e3 / static_cast<double>(state.iterations()); };
        state.counters["append"] = perFrame(FAppend);
        state.counters["layout"] = perFrame(FLayout);
        state.counters["paint"] = perFrame(FPaint);
    }

private:
    TForm& FForm;
    QImage FImage;
    double FAppend = 0, FLayout = 0, FPaint = 0;
};

constexpr std::size_t LiveCount = 1000, PerFrame = 10, Source = 1000000;

/// Lines that keep their newest thousand points, ten new ones a frame.
class TLiveLines
{
public:
    void Add(TLiveGraph graph)
    {
        for (TKxLiveVector* vector : {graph.X, graph.Y})
            vector->SetNewest(static_cast<int>(LiveCount));
        graph.Fill(std::span(Ramp(Source)).first(LiveCount), std::span(Walk(Source)).first(LiveCount));
        FGraphs.push_back(graph);
    }
    void Append()
    {
        for (const TLiveGraph& graph : FGraphs) {
            graph.X->Append(std::span(Ramp(Source)).subspan(FNext, PerFrame));
            graph.Y->Append(std::span(Walk(Source)).subspan(FNext, PerFrame));
        }
        FNext = (FNext + PerFrame) % (Source - PerFrame);
    }

private:
    std::vector<TLiveGraph> FGraphs;
    std::size_t FNext = LiveCount;
};

void LivePanels(benchmark::State& state)
{
    constexpr int Across = 8, PanelWidth = 240, PanelHeight = 135;
    TLiveWindow window(Across * PanelWidth, Across * PanelHeight);
    TLiveLines lines;
    for (int i = 0; i < Across * Across; ++i) {
        const TLiveGraph panel(window.Form);
        panel.Graph->SetBounds(i % Across * PanelWidth, i / Across * PanelHeight, PanelWidth, PanelHeight);
        lines.Add(panel);
    }
    window.Widget.Shown();
    TPhases phases(window.Form, Across * PanelWidth, Across * PanelHeight);
    for (auto _ : state)
        phases.Frame([&] { lines.Append(); });
    phases.Count(state);
}

void ThousandLiveLines(benchmark::State& state)
{
    constexpr int Lines = 1000;
    TLiveWindow window(800, 600);
    TLiveLines lines;
    const TLiveGraph first(window.Form);
    first.Graph->SetAlign(alClient);
    lines.Add(first);
    for (int i = 1; i < Lines; ++i)
        lines.Add(TLiveGraph(window.Form, *first.Graph));
    window.Widget.Shown();
    TPhases phases(window.Form, 800, 600);
    for (auto _ : state)
        phases.Frame([&] { lines.Append(); });
    phases.Count(state);
}

}  // namespace

void RegisterLiveCases()
{
    UseTypedFormulas();
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
    };
    add("interpolated curve/sample", SampleCurve<TKxInterpolatedLine>);
    add("interpolated curve/draw", DrawCurve<TKxInterpolatedLine>);
    add("typed curve/sample", SampleCurve<TKxFittedLine>);
    add("typed curve/draw", DrawCurve<TKxFittedLine>);
    add("cursor/Plotkit", MoveCursor);
    add("64 panels/Plotkit", LivePanels);
    add("thousand live lines/Plotkit", ThousandLiveLines);
}

}  // namespace bench
