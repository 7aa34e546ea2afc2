// The job of LookHidden is what belongs to the look of a part and no property tells: whether a series is shown and
// which of its captions came from whom.
#pragma once

#include <string>

namespace plotkit {

class TComponent;

/// Equal texts for equal states; empty for a part that has none.
std::string HiddenLook(const TComponent& part);
/// Goes back to a state that `HiddenLook` gave for the same part.
void SetHiddenLook(TComponent& part, const std::string& state);

/// The caption is the user's own from now on, also in saved looks. False for parts without automatic captions.
bool TakeUserCaption(TComponent& part, const std::string& caption);

}  // namespace plotkit
