// The job of Component is the tree of owned, named parts that learn of each other's end.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Event.h"
#include "host/Persistent.h"

namespace plotkit {

enum TOperation : std::uint8_t
{
    opInsert,
    opRemove
};

/// An owner destroys what it owns, last first: a component with an owner is created with `new` and handed over by its
/// constructor's argument. A component without an owner belongs to whoever made it.
class TComponent : public TPersistent
{
public:
    explicit TComponent(TComponent* owner);
    ~TComponent() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TComponent* Owner() const { return FOwner; }
    const std::vector<TComponent*>& Components() const { return FComponents; }
    /// Place among the owner's components; -1 without owner.
    int ComponentIndex() const;
    void SetComponentIndex(int index);
    /// Among the owned components, letter case ignored; nullptr when there is none.
    TComponent* FindComponent(std::string_view name) const;

    const std::string& GetName() const { return FName; }
    /// Letters, digits and "_", not starting with a digit; unique within the owner; may be empty.
    /// EComponentError: ""%s" is not a valid component name" or "A component named %s already exists".
    void SetName(std::string_view name);
    /// The names from the outermost owner down, joined by "."; the unnamed application contributes nothing. Empty for
    /// an unnamed component.
    std::string NamePath() const;
    int GetTag() const { return FTag; }
    void SetTag(int tag) { FTag = tag; }

    /// Asks that this component's `Notification` hears when `component` is destroyed. Calls are counted: each one is
    /// ended by a `StopWatching` of its own. Nothing for nullptr and for this component itself.
    void WatchFor(TComponent* component);
    void StopWatching(TComponent* component);

    bool IsDesigning() const { return FDesigning; }
    bool IsLoading() const { return FLoading; }
    /// From the moment that this component or an owner of it begins to go.
    bool IsDestroying() const { return FDestroying; }
    /// Also for all owned components; new ones take it over from their owner.
    void SetDesigning(bool designing);
    /// Set by a reader between creation and `Loaded`.
    void SetLoading() { FLoading = true; }
    /// All properties have been read, references included.
    virtual void Loaded() { FLoading = false; }

    const TLifeline& Lifeline() const { return FLifeline; }

    /// The components that stand inside this one when `root` is written, in order.
    virtual std::vector<TComponent*> StreamedChildren(const TComponent& root) const;
    /// Called by a reader for a component that stands inside `outer`.
    virtual void SetStreamedInside(TComponent* outer) { static_cast<void>(outer); }
    /// What the rows in pixels are divided by when they are written and multiplied with when they are read.
    virtual double StreamScale() const { return 1; }

protected:
    /// A component enters (opInsert) or leaves (opRemove) the owner's tree, or a watched one goes. Links to `component`
    /// are cleared here. Overrides call the inherited operation.
    virtual void Notification(TComponent* component, TOperation operation);

    /// Tells the world that this component goes, while it is still whole. The first line of each destructor whose class
    /// others may ask for; later calls do nothing.
    void BeginDestroy();
    /// For destructors of classes whose parts must still live while the owned components go.
    void DestroyComponents();

private:
    struct TListener;
    struct TWatched
    {
        TComponent* Component;
        int Count;
    };

    void InsertOwned(TComponent* component);
    void RemoveOwned(TComponent* component);
    void Unwatch(TComponent* component);
    std::vector<TComponent*> TakeWatchers();
    void AddListeners(std::vector<TListener>& listeners, const TComponent* subject,
                      const std::vector<TComponent*>& already);
    static void Tell(const std::vector<TListener>& listeners, TComponent* subject, TOperation operation);
    void MarkDestroying();

    TLifeline FLifeline;  ///< ends when this begins to go
    TLifeline FPresence;  ///< ends with the object: what is going still hears of others
    TComponent* FOwner = nullptr;
    std::vector<TComponent*> FComponents;
    std::vector<TComponent*> FWatchers;  ///< who hears when this goes
    std::vector<TWatched> FWatched;      ///< whom this listens to
    std::string FName;
    int FTag = 0;
    bool FDesigning = false;
    bool FLoading = false;
    bool FDestroying = false;
    bool FEndTold = false;
};

}  // namespace plotkit
