// The job of PropertyAccess is to turn accessors that are template arguments into the routines of a property's row.
#pragma once

#include <concepts>
#include <limits>
#include <tuple>
#include <type_traits>
#include <utility>

#include "host/PropertyTable.h"
#include "host/Types.h"

namespace plotkit {

namespace detail {

template <class>
struct TMemberTraits;
template <class TClass, class TResult, class... TArgs>
struct TMemberTraits<TResult (TClass::*)(TArgs...)>
{
    using Class = TClass;
    using Result = TResult;
    using First = std::tuple_element_t<0, std::tuple<TArgs..., void>>;
};
template <class TClass, class TResult, class... TArgs>
struct TMemberTraits<TResult (TClass::*)(TArgs...) const> : TMemberTraits<TResult (TClass::*)(TArgs...)>
{};

template <auto Member>
using TClassOf = typename TMemberTraits<decltype(Member)>::Class;
template <auto Member>
using TResultOf = std::remove_cvref_t<typename TMemberTraits<decltype(Member)>::Result>;

/// The more derived of the two classes that the accessors belong to.
template <class A, class B>
using TMoreDerived = std::conditional_t<std::is_base_of_v<A, B>, B, A>;

template <class T>
concept TNamedEnum = std::is_enum_v<T> && requires(T value)
{
    {
        ValueNames(value)
        } -> std::convertible_to<std::span<const std::string_view>>;
};

template <class T>
constexpr TPropertyKind KindOf()
{
    if constexpr (std::same_as<T, bool>)
        return pkBoolean;
    else if constexpr (std::same_as<T, TColor>)
        return pkColor;
    else if constexpr (TNamedEnum<T>)
        return pkEnumeration;
    else if constexpr (std::integral<T>)
        return pkInteger;
    else if constexpr (std::floating_point<T>)
        return pkReal;
    else
        return pkText;
}

template <class T>
TPropertyValue ToPropertyValue(const T& value)
{
    if constexpr (KindOf<T>() == pkBoolean)
        return value;
    else if constexpr (KindOf<T>() == pkReal)
        return double{value};
    else if constexpr (KindOf<T>() == pkText)
        return std::string(value);
    else
        return static_cast<std::int64_t>(value);
}

/// EConvertError: "a number from %d to %d was expected".
[[noreturn]] void RaiseOutsideOf(std::int64_t low, std::int64_t high);

template <class T>
T FromInteger(std::int64_t value)
{
    std::int64_t low = 0, high = 0;
    if constexpr (TNamedEnum<T>) {
        high = static_cast<std::int64_t>(std::span<const std::string_view>(ValueNames(T{})).size()) - 1;
    } else if constexpr (std::is_enum_v<T>) {
        low = std::numeric_limits<std::underlying_type_t<T>>::min();
        high = std::numeric_limits<std::underlying_type_t<T>>::max();
    } else {
        static_assert(std::in_range<std::int64_t>(std::numeric_limits<T>::max()));
        low = std::numeric_limits<T>::min();
        high = std::numeric_limits<T>::max();
    }
    if (value < low || value > high)
        RaiseOutsideOf(low, high);
    return static_cast<T>(value);
}

template <class T>
T FromPropertyValue(const TPropertyValue& value)
{
    if constexpr (KindOf<T>() == pkBoolean)
        return std::get<bool>(value);
    else if constexpr (KindOf<T>() == pkReal)
        return std::get<double>(value);
    else if constexpr (KindOf<T>() == pkText)
        return T(std::get<std::string>(value));
    else
        return FromInteger<T>(std::get<std::int64_t>(value));
}

template <auto Predicate>
constexpr auto Asking() -> bool (*)(const TPersistent&)
{
    return [](const TPersistent& object) { return (static_cast<const TClassOf<Predicate>&>(object).*Predicate)(); };
}

template <class TLink, class TClass, auto Getter, auto Setter>
bool AssignReference(TPersistent& object, TComponent* component)
{
    TLink* link = dynamic_cast<TLink*>(component);
    if (component && !link)
        return false;
    (static_cast<TClass&>(object).*Setter)(link);
    return true;
}

}  // namespace detail

}  // namespace plotkit
