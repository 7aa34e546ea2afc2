// The job of Event is the bound callback: a target object plus one of its operations, comparable by the operation.
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace plotkit {

/// Tells a callback that its target is gone. An object that is the target of callbacks and may die before them holds
/// one and hands it out; callbacks bound to the object are empty from the moment the lifeline is destroyed.
class TLifeline
{
public:
    TLifeline() = default;
    TLifeline(const TLifeline&) {}
    TLifeline& operator=(const TLifeline&) { return *this; }
    ~TLifeline() = default;

    std::weak_ptr<const void> Watch() const
    {
        if (!FAlive)
            FAlive = std::make_shared<char>();
        return FAlive;
    }
    void Cut() { FAlive.reset(); }

private:
    mutable std::shared_ptr<char> FAlive;
};

template <class T>
concept THasLifeline = requires(const T& object)
{
    {
        object.Lifeline()
        } -> std::convertible_to<const TLifeline&>;
};

/// The routine that a call of `member` on `object` reaches: of a virtual operation the final override, of any other the
/// operation itself. Two calls with the same answer run the same code.
template <class TFunction, class TClass>
const void* HandlerOf(const std::type_identity_t<TClass>* object, TFunction TClass::*member)
{
    // The layout is that of the Itanium C++ ABI: an address, or 1 + the offset in the table of virtual operations.
    static_assert(sizeof(member) == 2 * sizeof(std::uintptr_t), "member pointers of an unknown layout");
    const auto words = std::bit_cast<std::array<std::uintptr_t, 2>>(member);
#if defined(__aarch64__)
    const bool isVirtual = words[1] & 1;
    const std::uintptr_t offset = words[0], adjust = words[1] >> 1;
#else
    const bool isVirtual = words[0] & 1;
    const std::uintptr_t offset = words[0] - 1, adjust = words[1];
#endif
    if (!isVirtual)
        return reinterpret_cast<const void*>(words[0]);
    const char* self = reinterpret_cast<const char*>(object) + adjust;
    const char* table = *reinterpret_cast<const char* const*>(self);
    return *reinterpret_cast<const void* const*>(table + offset);
}

/// A bound callback with the given arguments. An unset one is empty and calling it does nothing. It is also empty once
/// its target, when that has a lifeline, is gone.
template <class... TArgs>
class TEvent
{
public:
    TEvent() = default;
    TEvent(std::nullptr_t) {}

    /// Any callable; equal only to copies of itself.
    template <class TCallable>
    requires(std::invocable<TCallable&, TArgs...> && !std::same_as<std::decay_t<TCallable>, TEvent>)
        TEvent(TCallable&& callable)
        : FLambda(std::make_shared<std::function<void(TArgs...)>>(std::forward<TCallable>(callable))),
          FTarget(FLambda.get()),
          FHandler(FLambda.get()),
          FCall([](void* target, TArgs... args) {
              (*static_cast<std::function<void(TArgs...)>*>(target))(static_cast<TArgs>(args)...);
          })
    {}

    /// `TEvent<int>::Bind<&TThing::Changed>(thing)`.
    template <auto Member, class TObject>
    static TEvent Bind(TObject* object)
    {
        TEvent event;
        event.FTarget = object;
        event.FHandler = HandlerOf(object, Member);
        event.FCall = [](void* target, TArgs... args) {
            (static_cast<TObject*>(target)->*Member)(static_cast<TArgs>(args)...);
        };
        if constexpr (THasLifeline<TObject>) {
            event.FWatched = true;
            event.FLife = object->Lifeline().Watch();
        }
        return event;
    }

    /// Whether a call reaches somebody.
    explicit operator bool() const { return FCall && !(FWatched && FLife.expired()); }

    void operator()(TArgs... args) const
    {
        if (!*this)
            return;
        if (FLambda)
            CallKept(static_cast<TArgs>(args)...);
        else
            FCall(FTarget, static_cast<TArgs>(args)...);
    }

    /// Whether both run the same routine, on whatever object.
    bool SameHandler(const TEvent& other) const { return FHandler == other.FHandler; }
    bool HasTarget(const void* object) const { return FTarget == object; }

    /// Same routine on the same object.
    friend bool operator==(const TEvent& a, const TEvent& b)
    {
        return a.FHandler == b.FHandler && a.FTarget == b.FTarget;
    }

private:
    void CallKept(TArgs... args) const
    {
        const auto kept = FLambda;  // the callable may replace this event while it runs
        FCall(FTarget, static_cast<TArgs>(args)...);
    }

    std::shared_ptr<std::function<void(TArgs...)>> FLambda;
    std::weak_ptr<const void> FLife;
    void* FTarget = nullptr;
    const void* FHandler = nullptr;
    void (*FCall)(void*, TArgs...) = nullptr;
    bool FWatched = false;
};

}  // namespace plotkit
