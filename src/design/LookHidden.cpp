#include "design/LookHidden.h"

#include "graph/KxAxis.h"
#include "series/KxCaptionedSeries.h"

namespace plotkit {

namespace {

constexpr char Separator = '\0';

struct TCaptions
{
    bool DoUser = false;
    std::string User, Auto, Caption;
};

template <class TPart>
std::string CaptionsOf(const TPart& part)
{
    return std::string(part.GetDoUserCaption() ? "1" : "0") + part.GetUserCaption() + Separator +
           part.GetAutoCaption() + Separator + part.GetCaption();
}

TCaptions ReadCaptions(const std::string& state)
{
    const std::size_t afterUser = state.find(Separator), afterAuto = state.find(Separator, afterUser + 1);
    return {state[0] == '1', state.substr(1, afterUser - 1), state.substr(afterUser + 1, afterAuto - afterUser - 1),
            state.substr(afterAuto + 1)};
}

void SetCaptions(TKxAxis& axis, const TCaptions& captions)
{
    axis.SetDoUserCaption(captions.DoUser);
    axis.SetUserCaption(captions.User);
    axis.SetAutoCaption(captions.Auto);
    axis.SetCaption(captions.Caption);
}

void SetCaptions(TKxCaptionedSeries& series, const TCaptions& captions)
{
    series.SetDoUserCaption(captions.DoUser);
    // Setting the caption overwrites one of the other two, setting the other one the caption.
    if (captions.DoUser) {
        series.SetUserCaption(captions.User);
        series.SetCaption(captions.Caption);
        series.SetAutoCaption(captions.Auto);
    } else {
        series.SetAutoCaption(captions.Auto);
        series.SetCaption(captions.Caption);
        series.SetUserCaption(captions.User);
    }
}

}  // namespace

std::string HiddenLook(const TComponent& part)
{
    if (const auto* axis = dynamic_cast<const TKxAxis*>(&part))
        return CaptionsOf(*axis);
    const auto* series = dynamic_cast<const TKxCaptionedSeries*>(&part);
    return series ? (series->GetShown() ? "1" : "0") + CaptionsOf(*series) : std::string();
}

void SetHiddenLook(TComponent& part, const std::string& state)
{
    if (auto* axis = dynamic_cast<TKxAxis*>(&part))
        return SetCaptions(*axis, ReadCaptions(state));
    auto& series = dynamic_cast<TKxCaptionedSeries&>(part);
    series.SetShown(state[0] == '1');
    SetCaptions(series, ReadCaptions(state.substr(1)));
}

bool TakeUserCaption(TComponent& part, const std::string& caption)
{
    if (auto* axis = dynamic_cast<TKxAxis*>(&part)) {
        axis->SetUserCaption(caption);
        axis->SetDoUserCaption(true);
        axis->SetCaption(caption);
        return true;
    }
    auto* series = dynamic_cast<TKxCaptionedSeries*>(&part);
    if (!series)
        return false;
    // A caption that is set becomes the user's one while the automatic one is in force.
    series->SetDoUserCaption(false);
    series->SetCaption(caption);
    series->SetDoUserCaption(true);
    return true;
}

}  // namespace plotkit
