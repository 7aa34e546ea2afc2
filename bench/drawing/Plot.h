// The job of Plot is what the drawing benchmarks ask of every library: one plot of 800 × 600 pixels.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QImage;

namespace bench {

inline constexpr int Width = 800, Height = 600;

enum class TLook
{
    Line,        ///< one pixel wide, not antialiased
    WideLine,    ///< two pixels
    SmoothLine,  ///< one pixel, antialiased
    Circles,     ///< of five pixels, without a line
    ErrorBars,   ///< up and down, with caps, without a line
    Bars
};

/// Values by index.
struct TSource
{
    std::function<double(std::size_t)> X, Y;
};

class TPlot
{
public:
    virtual ~TPlot() = default;

    /// Makes arrays of the library's favourite kind, for `Take` to hand over.
    virtual void Prepare(std::size_t count, const TSource& source) = 0;
    virtual void Take() = 0;
    /// Another series, which `Prepare` and `Take` then mean. False when there can be one only.
    virtual bool NewSeries() = 0;
    virtual void Add(double x, double y) = 0;
    /// Finds smallest and largest values of all data.
    virtual void FindRange() = 0;
    /// What is known of the data is forgotten.
    virtual void Touch() {}

    /// The axes show these values from now on, whatever the data.
    virtual void ShowX(double from, double to) = 0;
    virtual void ShowY(double from, double to) = 0;

    /// The whole picture anew.
    virtual void Replot() = 0;
    /// What the library does when values were added.
    virtual void Refresh() { Replot(); }
    /// What was drawn last.
    virtual QImage Picture() = 0;
    /// False when the library has no such format.
    virtual bool Export(const std::string& fileName) = 0;
};

struct TLibrary
{
    std::string Name;
    /// nullptr when the library has no such look.
    std::function<std::unique_ptr<TPlot>(TLook)> Make;
};

}  // namespace bench
