// The job of Property is to make the rows of the table of published properties that each class lists once.
#pragma once

#include <array>

#include "host/Errors.h"
#include "host/PropertyAccess.h"

namespace plotkit {

template <class T>
TComponent* CreateComponent(TComponent* owner)
{
    return new T(owner);
}

/// A plain value: `Property<&T::GetX, &T::SetX>("X")`; enumerations need a `ValueNames(T)` beside their declaration.
template <auto Getter, auto Setter>
constexpr TPropertyRow Property(std::string_view name)
{
    using T = detail::TResultOf<Getter>;
    using TClass = detail::TMoreDerived<detail::TClassOf<Getter>, detail::TClassOf<Setter>>;
    TPropertyRow row{name, detail::KindOf<T>()};
    if constexpr (detail::KindOf<T>() == pkEnumeration)
        row.ValueNames = ValueNames(T{});
    row.Get = [](const TPersistent& object) {
        return detail::ToPropertyValue<T>((static_cast<const TClass&>(object).*Getter)());
    };
    row.Set = [](TPersistent& object, const TPropertyValue& value) {
        (static_cast<TClass&>(object).*Setter)(detail::FromPropertyValue<T>(value));
    };
    return row;
}

/// A value that can be seen, never set to another one and never stored.
template <auto Getter>
constexpr TPropertyRow ReadOnly(std::string_view name)
{
    using T = detail::TResultOf<Getter>;
    using TClass = detail::TClassOf<Getter>;
    TPropertyRow row{name, detail::KindOf<T>()};
    row.Get = [](const TPersistent& object) {
        return detail::ToPropertyValue<T>((static_cast<const TClass&>(object).*Getter)());
    };
    row.Set = [](TPersistent& object, const TPropertyValue& value) {
        if (value != detail::ToPropertyValue<T>((static_cast<const TClass&>(object).*Getter)()))
            throw EConvertError("The property can only be read");
    };
    row.StoredWhen = [](const TPersistent&) { return false; };
    return row;
}

/// A value that is stored when `Predicate` says so, whatever it is.
template <auto Getter, auto Setter, auto Predicate>
constexpr TPropertyRow Property(std::string_view name)
{
    TPropertyRow row = Property<Getter, Setter>(name);
    row.StoredWhen = detail::Asking<Predicate>();
    return row;
}

/// An owned object; the getter returns a reference to it.
template <auto Getter>
constexpr TPropertyRow Sub(std::string_view name)
{
    TPropertyRow row{name, pkSub};
    row.SubObject = [](TPersistent& object) -> TPersistent& {
        return (static_cast<detail::TClassOf<Getter>&>(object).*Getter)();
    };
    return row;
}

/// A link to another component, or to an interface that components implement: the getter returns a pointer, the setter
/// takes one. Always stored.
template <auto Getter, auto Setter>
constexpr TPropertyRow Reference(std::string_view name)
{
    using TClass = detail::TMoreDerived<detail::TClassOf<Getter>, detail::TClassOf<Setter>>;
    using TLink = std::remove_pointer_t<typename detail::TMemberTraits<decltype(Getter)>::Result>;
    TPropertyRow row{name, pkReference};
    row.GetReference = [](const TPersistent& object) -> TComponent* {
        return dynamic_cast<TComponent*>((const_cast<TClass&>(static_cast<const TClass&>(object)).*Getter)());
    };
    row.SetReference = &detail::AssignReference<TLink, TClass, Getter, Setter>;
    row.AlwaysStored = true;
    return row;
}

/// A bound callback held in a public field.
template <class TClass, auto Field>
constexpr TPropertyRow Event(std::string_view name)
{
    TPropertyRow row{name, pkEvent};
    row.IsAssigned = [](const TPersistent& object) { return bool(static_cast<const TClass&>(object).*Field); };
    return row;
}

/// A list of reals, stored when `Predicate` says so.
template <auto Getter, auto Setter, auto Predicate>
constexpr TPropertyRow Bulk(std::string_view name)
{
    TPropertyRow row{name, pkBulk};
    row.GetBulk = [](const TPersistent& object) {
        return (static_cast<const detail::TClassOf<Getter>&>(object).*Getter)();
    };
    row.SetBulk = [](TPersistent& object, std::span<const double> values) {
        (static_cast<detail::TClassOf<Setter>&>(object).*Setter)(values);
    };
    row.StoredWhen = detail::Asking<Predicate>();
    return row;
}

}  // namespace plotkit
