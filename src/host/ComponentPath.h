// The job of ComponentPath is to name components by the names on the way to them, and to find them again.
#pragma once

#include <string>
#include <string_view>

#include "host/Component.h"

namespace plotkit {

/// Looks up each "."-separated part among the components owned by the one before; nullptr when a part is not found.
TComponent* FindInside(const TComponent& outer, std::string_view path);

/// The path that stands for `component` in the text of `root`: relative to `root` for what it owns, its own name for
/// `root`, the full path for others. A leading "." keeps a full path apart from a relative one. "nil" for nullptr and
/// for components that no path leads to by name.
std::string ReferencePath(TComponent* component, TComponent& root);
/// The component that a path stands for: inside `root`, `root`, beside its owners, or below the application.
TComponent* FindReference(std::string_view path, TComponent& root);

}  // namespace plotkit
