// The job of EventChain is to let one more listener hear an event without taking it from those who hear it already.
#pragma once

#include <memory>

#include "host/Component.h"

namespace plotkit {

/// For its lifetime, who was bound to an event is called first and `added` next. At the end the event is as before
/// unless somebody has bound it anew meanwhile, who then keeps it and, if it is another chain, calls only the former
/// listener through this one.
template <class... TArgs>
class TEventChain
{
public:
    /// `owner` is the component that the event belongs to; it may go first.
    TEventChain(TComponent& owner, TEvent<TArgs...>& event, TEvent<TArgs...> added)
        : FOwner(owner.Lifeline().Watch()),
          FEvent(&event),
          FBefore(event),
          FAdded(std::make_shared<TEvent<TArgs...>>(added))
    {
        FOwn = TEvent<TArgs...>([before = FBefore, next = std::weak_ptr(FAdded)](TArgs... args) {
            before(args...);
            if (const auto kept = next.lock())
                (*kept)(static_cast<TArgs>(args)...);
        });
        event = FOwn;
    }
    TEventChain(const TEventChain&) = delete;
    TEventChain& operator=(const TEventChain&) = delete;
    ~TEventChain()
    {
        if (!FOwner.expired() && *FEvent == FOwn)
            *FEvent = FBefore;
    }

    const TEvent<TArgs...>& Before() const { return FBefore; }

private:
    std::weak_ptr<const void> FOwner;
    TEvent<TArgs...>* FEvent;
    TEvent<TArgs...> FBefore, FOwn;
    std::shared_ptr<TEvent<TArgs...>> FAdded;
};

}  // namespace plotkit
