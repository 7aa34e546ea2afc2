#include "design/LookHidden.h"

#include <array>

#include "series/KxCaptionedSeries.h"

namespace plotkit {

namespace {

constexpr char Separator = '\0';

}  // namespace

std::string HiddenLook(const TComponent& part)
{
    const auto* series = dynamic_cast<const TKxCaptionedSeries*>(&part);
    if (!series)
        return {};
    return std::string(series->GetShown() ? "1" : "0") + (series->GetDoUserCaption() ? "1" : "0") +
           series->GetUserCaption() + Separator + series->GetAutoCaption() + Separator + series->GetCaption();
}

void SetHiddenLook(TComponent& part, const std::string& state)
{
    auto& series = dynamic_cast<TKxCaptionedSeries&>(part);
    const std::size_t afterUser = state.find(Separator, 2), afterAuto = state.find(Separator, afterUser + 1);
    const std::string user = state.substr(2, afterUser - 2), caption = state.substr(afterAuto + 1);
    const std::string automatic = state.substr(afterUser + 1, afterAuto - afterUser - 1);
    series.SetShown(state[0] == '1');
    series.SetDoUserCaption(state[1] == '1');
    // Setting the caption overwrites one of the other two, setting the other one the caption.
    if (series.GetDoUserCaption()) {
        series.SetUserCaption(user);
        series.SetCaption(caption);
        series.SetAutoCaption(automatic);
    } else {
        series.SetAutoCaption(automatic);
        series.SetCaption(caption);
        series.SetUserCaption(user);
    }
}

}  // namespace plotkit
