// The job of PlottedFit is a curve that was calculated for a plot, its labels, and what went wrong with it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace plotkit {

class TKxCalculatedSeries;
class TKxLabel;
class TKxResultLabel;

/// A result in the graph: its name and, beside it, its value.
struct TFitLabel
{
    std::string Result;
    TKxLabel* Name = nullptr;
    TKxResultLabel* Value = nullptr;
    bool IsPlaced = false;
};

struct TPlottedFit
{
    TKxCalculatedSeries* Series = nullptr;  ///< owned by the plot's form, like the labels
    std::size_t Wish = 0;                   ///< in the plot's options
    std::size_t Ordinate = 0;               ///< in the plot's series
    std::vector<TFitLabel> Labels;
};

/// Which fits of a plot fail. A failure that stays the same is told once.
class TFitNews
{
public:
    void Failed(const TKxCalculatedSeries& fit, const std::string& message);
    void Succeeded(const TKxCalculatedSeries& fit) { Forget(fit); }
    void Forget(const TKxCalculatedSeries& fit);
    /// Each message once, in the order in which they came.
    std::vector<std::string> Failures() const;

    std::function<void(const std::string&)> OnFailure;

private:
    std::vector<std::pair<const TKxCalculatedSeries*, std::string>> FFailures;
};

}  // namespace plotkit
