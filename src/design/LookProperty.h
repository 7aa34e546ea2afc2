// The job of LookProperty is to reach a published property of a component by the names on the way to it.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/Component.h"

namespace plotkit {

/// What a property holds; a link to another component stands as its pointer.
using TLookValue = std::variant<TPropertyValue, TComponent*>;

/// A property of a component or of an object inside it.
struct TLookProperty
{
    TPersistent* Object = nullptr;
    const TPropertyRow* Row = nullptr;

    explicit operator bool() const { return Row != nullptr; }
    /// Whether it is a number that follows from others as the part stands; setting it would take it out of their hands.
    bool IsDerived() const;
    /// Places and sizes stand in 1/96 inch, whatever the screen.
    TLookValue Value() const;
    /// Raises what the setter raises; EConvertError for a component that the link does not take.
    void SetValue(const TLookValue& value) const;
};

/// The way to a property that all components of a class have.
struct TLookPath
{
    std::string Text;  ///< as FindLookProperty takes it
    std::vector<const TPropertyRow*> Rows;

    TLookProperty In(TComponent& component) const;
};

/// The property at a path such as "Color" or "CaptionFont.Size"; empty when there is none.
TLookProperty FindLookProperty(TComponent& component, std::string_view path);

/// The paths of all values and links of the class that make up a look: those inside objects too; neither data nor what
/// only programs see (sources of values, events, tags).
std::vector<TLookPath> LookPaths(TComponent& component);

}  // namespace plotkit
