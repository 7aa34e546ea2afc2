#include "host/Component.h"

#include <algorithm>

#include "host/Errors.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

constexpr std::array ComponentProperties{
    Property<&TComponent::GetTag, &TComponent::SetTag>("Tag"),
};

bool IsValidName(std::string_view name)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return name.empty() ||
           (isLetter(name[0]) && std::ranges::all_of(name, [&](char c) { return isLetter(c) || isDigit(c); }));
}

bool Contains(const std::vector<TComponent*>& components, const TComponent* component)
{
    return std::ranges::find(components, component) != components.end();
}

}  // namespace

constinit const TClassInfo TComponent::Class{"TComponent", &TPersistent::Class, ComponentProperties};

/// Who is to be told, and whether it still exists when its turn comes: listeners may destroy each other.
struct TComponent::TListener
{
    explicit TListener(TComponent* component) : Component(component), Presence(component->FPresence.Watch()) {}

    TComponent* Component;
    std::weak_ptr<const void> Presence;
};

TComponent::TComponent(TComponent* owner)
{
    if (owner)
        owner->InsertOwned(this);
}

TComponent::~TComponent()
{
    BeginDestroy();
    DestroyComponents();
    // Links made while the end was being told are cut, too.
    while (!FWatchers.empty()) {
        std::vector<TListener> late;
        for (TComponent* watcher : TakeWatchers())
            late.emplace_back(watcher);
        Tell(late, this, opRemove);
    }
    while (!FWatched.empty())
        Unwatch(FWatched.back().Component);
    if (FOwner)
        FOwner->RemoveOwned(this);
}

int TComponent::ComponentIndex() const
{
    if (!FOwner)
        return -1;
    const auto& siblings = FOwner->FComponents;
    return static_cast<int>(std::ranges::find(siblings, this) - siblings.begin());
}

void TComponent::SetComponentIndex(int index)
{
    if (!FOwner)
        return;
    auto& siblings = FOwner->FComponents;
    const auto from = siblings.begin() + ComponentIndex();
    const auto to = siblings.begin() + std::clamp(index, 0, static_cast<int>(siblings.size()) - 1);
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
}

TComponent* TComponent::FindComponent(std::string_view name) const
{
    if (name.empty())
        return nullptr;
    const auto found = std::ranges::find_if(
        FComponents, [name](const TComponent* component) { return SameText(component->FName, name); });
    return found == FComponents.end() ? nullptr : *found;
}

void TComponent::SetName(std::string_view name)
{
    if (FName == name)
        return;
    if (!IsValidName(name))
        throw EComponentError('"' + std::string(name) + "\" is not a valid component name");
    if (FOwner && !name.empty() && !SameText(FName, name) && FOwner->FindComponent(name))
        throw EComponentError("A component named " + std::string(name) + " already exists");
    FName = name;
}

std::string TComponent::NamePath() const
{
    std::string path = FName;
    if (path.empty())
        return path;
    for (const TComponent* owner = FOwner; owner; owner = owner->FOwner)
        if (!owner->FName.empty())
            path = owner->FName + '.' + path;
    return path;
}

void TComponent::WatchFor(TComponent* component)
{
    if (!component || component == this)
        return;
    const auto watched = std::ranges::find(FWatched, component, &TWatched::Component);
    if (watched != FWatched.end()) {
        ++watched->Count;
        return;
    }
    FWatched.push_back({component, 1});
    component->FWatchers.push_back(this);
}

void TComponent::StopWatching(TComponent* component)
{
    const auto watched = std::ranges::find(FWatched, component, &TWatched::Component);
    if (watched != FWatched.end() && --watched->Count == 0)
        Unwatch(component);
}

void TComponent::Unwatch(TComponent* component)
{
    std::erase(component->FWatchers, this);
    std::erase_if(FWatched, [component](const TWatched& watched) { return watched.Component == component; });
}

std::vector<TComponent*> TComponent::TakeWatchers()
{
    const std::vector<TComponent*> watchers = FWatchers;
    for (TComponent* watcher : watchers)
        watcher->Unwatch(this);
    return watchers;
}

void TComponent::SetDesigning(bool designing)
{
    FDesigning = designing;
    for (TComponent* component : FComponents)
        component->SetDesigning(designing);
}

std::vector<TComponent*> TComponent::StreamedChildren(const TComponent& root) const
{
    return this == &root ? FComponents : std::vector<TComponent*>{};
}

void TComponent::Notification(TComponent*, TOperation) {}

void TComponent::AddListeners(std::vector<TListener>& listeners, const TComponent* subject,
                              const std::vector<TComponent*>& already)
{
    if (this != subject && !Contains(already, this))
        listeners.emplace_back(this);
    for (TComponent* component : FComponents)
        component->AddListeners(listeners, subject, already);
}

void TComponent::Tell(const std::vector<TListener>& listeners, TComponent* subject, TOperation operation)
{
    for (const TListener& listener : listeners)
        if (!listener.Presence.expired())
            listener.Component->Notification(subject, operation);
}

void TComponent::MarkDestroying()
{
    FDestroying = true;
    for (TComponent* component : FComponents)
        component->MarkDestroying();
}

void TComponent::BeginDestroy()
{
    if (FEndTold)
        return;
    FEndTold = true;
    MarkDestroying();
    FLifeline.Cut();
    const std::vector<TComponent*> watchers = TakeWatchers();
    std::vector<TListener> listeners;
    for (TComponent* watcher : watchers)
        listeners.emplace_back(watcher);
    // Without an owner the components owned by this one are the tree that may have links to it.
    (FOwner ? FOwner : this)->AddListeners(listeners, this, watchers);
    Tell(listeners, this, opRemove);
}

void TComponent::DestroyComponents()
{
    while (!FComponents.empty()) {
        TComponent* last = FComponents.back();
        if (!last->FEndTold) {
            delete last;
            continue;
        }
        // Its destructor is at work further up the stack and has led here.
        FComponents.pop_back();
        last->FOwner = nullptr;
    }
}

void TComponent::InsertOwned(TComponent* component)
{
    component->FOwner = this;
    component->FDesigning = FDesigning;
    FComponents.push_back(component);
    std::vector<TListener> listeners;
    AddListeners(listeners, component, {});
    try {
        Tell(listeners, component, opInsert);
    } catch (...) {
        RemoveOwned(component);
        throw;
    }
}

void TComponent::RemoveOwned(TComponent* component)
{
    std::erase(FComponents, component);
    component->FOwner = nullptr;
}

}  // namespace plotkit
