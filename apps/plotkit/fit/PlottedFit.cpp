#include "plotkit/fit/PlottedFit.h"

#include <algorithm>

namespace plotkit {

void TFitNews::Failed(const TKxCalculatedSeries& fit, const std::string& message)
{
    if (std::find(FFailures.begin(), FFailures.end(), std::pair(&fit, message)) != FFailures.end())
        return;
    Forget(fit);
    FFailures.emplace_back(&fit, message);
    if (OnFailure)
        OnFailure(message);
}

void TFitNews::Forget(const TKxCalculatedSeries& fit)
{
    std::erase_if(FFailures, [&](const auto& failure) { return failure.first == &fit; });
}

std::vector<std::string> TFitNews::Failures() const
{
    std::vector<std::string> messages;
    for (const auto& failure : FFailures)
        if (std::find(messages.begin(), messages.end(), failure.second) == messages.end())
            messages.push_back(failure.second);
    return messages;
}

}  // namespace plotkit
