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

}  // namespace plotkit
