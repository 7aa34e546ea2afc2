#include "drawing/DrawingCases.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <cstdlib>

#include "support/BenchData.h"

namespace bench {

namespace {

constexpr std::size_t Thousand = 1000, Million = 1000000;

TSource WalkSource(std::size_t count)
{
    return {[&x = Ramp(count)](std::size_t i) { return x[i]; }, [&y = Walk(count)](std::size_t i) { return y[i]; }};
}

/// Points all over the picture; a tenth of that for the heights of bars.
TSource NoiseSource(std::size_t count)
{
    return {[&x = Ramp(count)](std::size_t i) { return x[i]; }, [&y = Noise(count)](std::size_t i) { return y[i]; }};
}

TSource SourceFor(TLook look, std::size_t count)
{
    return look == TLook::Circles || look == TLook::ErrorBars || look == TLook::Bars ? NoiseSource(count)
                                                                                     : WalkSource(count);
}

std::unique_ptr<TPlot> Filled(const TLibrary& library, TLook look, std::size_t count)
{
    auto plot = library.Make(look);
    plot->Prepare(count, SourceFor(look, count));
    plot->Take();
    plot->Replot();
    return plot;
}

void Replot(benchmark::State& state, const TLibrary& library, TLook look)
{
    const auto plot = Filled(library, look, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        plot->Replot();
}

void FirstPicture(benchmark::State& state, const TLibrary& library)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto plot = library.Make(TLook::Line);
        plot->Prepare(count, WalkSource(count));
        state.ResumeTiming();
        plot->Take();
        plot->Replot();
        state.PauseTiming();
        plot.reset();
        state.ResumeTiming();
    }
}

/// To and fro between two views of a hundredth of the points.
void Zoom(benchmark::State& state, const TLibrary& library)
{
    const auto count = static_cast<double>(state.range(0));
    const auto plot = Filled(library, TLook::Line, static_cast<std::size_t>(state.range(0)));
    bool isFirst = false;
    for (auto _ : state) {
        isFirst = !isFirst;
        const double from = isFirst ? 0.3 * count : 0.6 * count;
        plot->ShowX(from, from + count / 100);
        plot->Replot();
    }
}

/// The axes have room for what comes; when it is used up, everything begins anew.
void Append(benchmark::State& state, const TLibrary& library)
{
    constexpr double Room = 1.1 * Million;
    const auto atOnce = static_cast<std::size_t>(state.range(0));
    std::unique_ptr<TPlot> plot;
    double x = Room, y = 0;
    for (auto _ : state) {
        if (x + static_cast<double>(atOnce) >= Room) {
            state.PauseTiming();
            plot.reset();
            plot = Filled(library, TLook::Line, Million);
            plot->ShowX(0, Room);
            plot->ShowY(-2000, 2000);
            plot->Replot();
            x = Million;
            y = Walk(Million).back();
            state.ResumeTiming();
        }
        for (std::size_t i = 0; i < atOnce; ++i, x += 1)
            plot->Add(x, y += Noise(Million)[i]);
        plot->Refresh();
    }
}

/// A million pairs one by one, nothing drawn in between.
void AppendOnly(benchmark::State& state, const TLibrary& library)
{
    const TSource source = WalkSource(Million);
    for (auto _ : state) {
        state.PauseTiming();
        auto plot = Filled(library, TLook::Line, 1);
        state.ResumeTiming();
        for (std::size_t i = 1; i < Million; ++i)
            plot->Add(Ramp(Million)[i], Walk(Million)[i]);
        state.PauseTiming();
        plot.reset();
        state.ResumeTiming();
    }
}

/// Of data that nobody has looked through.
void FindRange(benchmark::State& state, const TLibrary& library)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    const auto plot = Filled(library, TLook::Line, count);
    for (auto _ : state) {
        state.PauseTiming();
        plot->Touch();
        state.ResumeTiming();
        plot->FindRange();
    }
}

/// The same again and again.
void FindKnownRange(benchmark::State& state, const TLibrary& library)
{
    const auto plot = Filled(library, TLook::Line, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        plot->FindRange();
}

void ThousandSeries(benchmark::State& state, const TLibrary& library)
{
    const auto plot = library.Make(TLook::Line);
    for (std::size_t i = 0; i < Thousand; ++i) {
        if (i > 0 && !plot->NewSeries())
            return state.SkipWithError("one series only");
        plot->Prepare(Thousand, {[](std::size_t k) { return static_cast<double>(k); },
                                 [first = i * Thousand](std::size_t k) { return Walk(Million)[first + k]; }});
        plot->Take();
    }
    plot->Replot();
    for (auto _ : state)
        plot->Replot();
}

void Export(benchmark::State& state, const TLibrary& library, const char* ending)
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QString("picture.") + ending).toStdString();
    const auto plot = Filled(library, TLook::Line, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        if (!plot->Export(file)) {
            state.SkipWithError("no such format");
            break;
        }
    state.counters["bytes"] = static_cast<double>(QFile(QString::fromStdString(file)).size());
}

void KeepPicture(const TLibrary& library, const std::string& folder)
{
    const std::pair<TLook, const char*> looks[] = {{TLook::Line, "line"},         {TLook::WideLine, "wide"},
                                                   {TLook::SmoothLine, "smooth"}, {TLook::Circles, "circles"},
                                                   {TLook::ErrorBars, "errors"},  {TLook::Bars, "bars"}};
    for (const auto& [look, name] : looks)
        if (library.Make(look))
            Filled(library, look, look == TLook::Line ? Million : 100)
                ->Picture()
                .save(QString::fromStdString(folder + '/' + library.Name + '-' + name + ".png"));
}

void DrawMany(const TLibrary& library)
{
    double y = 0;
    std::mt19937_64 random(7);
    std::normal_distribution<double> step;
    const auto plot = library.Make(TLook::Line);
    plot->Prepare(10 * Million, {[](std::size_t i) { return static_cast<double>(i); },
                                 [&](std::size_t) { return y += step(random); }});
    plot->Take();
    plot->Replot();
}

}  // namespace

void RegisterCases(const TLibrary& library)
{
    using TSizes = std::vector<std::int64_t>;
    const auto add = [&](const std::string& name, auto run, const TSizes& sizes) {
        auto* const benchmark = benchmark::RegisterBenchmark((name + '/' + library.Name).c_str(), run);
        for (const std::int64_t size : sizes)
            benchmark->Arg(size);
        benchmark->Unit(benchmark::kMillisecond);
    };
    const auto addLook = [&](const std::string& name, TLook look, const TSizes& sizes) {
        if (library.Make(look))
            add(
                name, [=](benchmark::State& state) { Replot(state, library, look); }, sizes);
    };
    addLook("replot", TLook::Line, {10000, 100000, 1000000, 10000000});
    addLook("circles", TLook::Circles, {10000, 100000, 1000000});
    addLook("error bars", TLook::ErrorBars, {10000, 100000});
    addLook("bars", TLook::Bars, {1000, 10000});
    addLook("wide line", TLook::WideLine, {100000});
    addLook("smooth line", TLook::SmoothLine, {100000, 10000000});
    if (!library.Make(TLook::Line))
        return;
    const auto addCase = [&](const std::string& name, auto run, const TSizes& sizes) {
        add(
            name, [=](benchmark::State& state) { run(state, library); }, sizes);
    };
    addCase("first picture", FirstPicture, {1000000, 10000000});
    addCase("zoom", Zoom, {10000000});
    addCase("append", Append, {1, 100});
    addCase("append only", AppendOnly, {});
    addCase("range", FindRange, {10000000});
    addCase("known range", FindKnownRange, {10000000});
    addCase("thousand series", ThousandSeries, {});
    for (const char* ending : {"png", "svg", "pdf"})
        add(std::string("export ") + ending, [=](benchmark::State& state) { Export(state, library, ending); },
            {100000});
}

bool RunInstead(int count, char** arguments, const std::vector<TLibrary>& libraries)
{
    const std::string option = count > 1 ? arguments[1] : "", value = count > 2 ? arguments[2] : "";
    if (option != "--memory" && option != "--pictures" && option != "--bare")
        return false;
    for (const TLibrary& library : libraries) {
        if (option == "--memory" && library.Name == value)
            DrawMany(library);
        else if (option == "--pictures")
            KeepPicture(library, value);
    }
    return true;
}

}  // namespace bench
