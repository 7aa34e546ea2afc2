#include "host/Component.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>

#include "host/Application.h"
#include "host/Errors.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

/// Has a link and writes down what it hears.
struct TNode : TComponent
{
    explicit TNode(TComponent* owner, std::string_view name = {}) : TComponent(owner) { SetName(name); }
    ~TNode() override
    {
        BeginDestroy();
        if (Log)
            *Log += '~' + GetName() + ' ';
    }
    void SetLink(TComponent* link)
    {
        StopWatching(Link);
        Link = link;
        WatchFor(Link);
    }
    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        Removals += operation == opRemove;
        if (operation == opRemove && Link == component)
            Link = nullptr;
        if (OnNotification)
            OnNotification(component, operation);
    }

    TComponent* Link = nullptr;
    std::string* Log = nullptr;
    int Removals = 0;
    std::function<void(TComponent*, TOperation)> OnNotification;
};

TEST(ComponentTest, NamesAreValidAndUniqueWithinTheOwner)
{
    TNode owner(nullptr, "Owner");
    auto* one = new TNode(&owner, "One");
    auto* two = new TNode(&owner, "Two_2");
    const auto message = [](TComponent* component, std::string_view name) {
        return MessageOf<EComponentError>([&] { component->SetName(name); });
    };
    EXPECT_EQ(message(two, "2Two"), "\"2Two\" is not a valid component name");
    EXPECT_EQ(message(two, "T\xC3\xB6"), "\"T\xC3\xB6\" is not a valid component name");
    EXPECT_EQ(message(two, "oNE"), "A component named oNE already exists");
    EXPECT_EQ(message(two, "TWO_2"), "");
    one->SetName("");
    EXPECT_EQ(message(two, "One"), "");
    EXPECT_EQ(owner.FindComponent(""), nullptr);
    EXPECT_EQ(owner.FindComponent("oNe"), two);
    auto* three = new TNode(&owner);
    one->SetComponentIndex(1);
    EXPECT_EQ(owner.Components(), (std::vector<TComponent*>{two, one, three}));
    three->SetComponentIndex(-5);
    two->SetComponentIndex(99);
    EXPECT_EQ(owner.Components(), (std::vector<TComponent*>{three, one, two}));
}

TEST(ComponentTest, PathsLeadFromTheApplicationAndBack)
{
    auto* form = new TNode(&Application(), "PathForm");
    auto* graph = new TNode(form, "Graph1");
    EXPECT_EQ(graph->NamePath(), "PathForm.Graph1");
    EXPECT_EQ(Application().FindByPath("pathform.GRAPH1"), graph);
    for (const char* path : {"", "Graph1", "PathForm.", ".PathForm", "PathForm..Graph1", "PathForm.Graph1.X"})
        EXPECT_EQ(Application().FindByPath(path), nullptr) << path;
    delete form;
}

TEST(ComponentTest, StatesReachTheOwnedComponents)
{
    TNode owner(nullptr);
    auto* inner = new TNode(new TNode(&owner));
    owner.SetDesigning(true);
    EXPECT_TRUE(inner->IsDesigning() && (new TNode(inner))->IsDesigning());
    auto* middle = inner->Owner();
    bool wasDestroying = false;
    inner->OnNotification = [&](TComponent* component, TOperation operation) {
        if (component == middle && operation == opRemove)
            wasDestroying = inner->IsDestroying() && middle->IsDestroying() && !owner.IsDestroying();
    };
    delete middle;
    EXPECT_TRUE(wasDestroying);
}

TEST(ComponentTest, TheOwnersTreeAndTheWatchersHearOnce)
{
    TNode outside(nullptr), twice(nullptr), late(nullptr), deaf(nullptr), owner(nullptr);
    auto* sibling = new TNode(&owner);
    auto* nephew = new TNode(sibling);
    int insertions = 0;
    nephew->OnNotification = [&](TComponent*, TOperation operation) { insertions += operation == opInsert; };
    auto* node = new TNode(&owner);
    EXPECT_EQ(insertions, 1);
    for (TNode* watcher : {&outside, &twice, nephew, sibling})
        watcher->SetLink(node);
    sibling->SetLink(nullptr);
    twice.WatchFor(node);
    twice.WatchFor(node);
    twice.StopWatching(node);
    deaf.SetLink(node);
    deaf.SetLink(nullptr);
    deaf.StopWatching(node);
    outside.OnNotification = [&](TComponent* component, TOperation) { late.SetLink(component); };
    delete node;
    for (const TNode* listener : {&outside, &twice, &late, &owner, sibling, nephew})
        EXPECT_TRUE(listener->Removals == 1 && !listener->Link);
    EXPECT_EQ(deaf.Removals, 0);
}

TEST(ComponentTest, OwnedComponentsGoLastFirstAlsoEarly)
{
    std::string log;
    auto owner = std::make_unique<TNode>(nullptr);
    std::vector<TNode*> nodes;
    for (const char* name : {"A", "B", "C", "D", "E"}) {
        nodes.push_back(new TNode(owner.get(), name));
        nodes.back()->Log = &log;
    }
    nodes[0]->OnNotification = [&](TComponent* component, TOperation) {
        if (component == nodes[4])
            delete nodes[2];
    };
    // What an ownerless component owns hears of its end.
    nodes[1]->Link = owner.get();
    bool isCut = false;
    nodes[1]->OnNotification = [&](TComponent*, TOperation) { isCut |= !nodes[1]->Link; };
    owner.reset();
    EXPECT_EQ(log, "~C ~E ~D ~B ~A ");
    EXPECT_TRUE(isCut);
}

TEST(ComponentTest, ListenersMayDestroyEachOther)
{
    auto owner = std::make_unique<TNode>(nullptr, "Owner");
    auto *first = new TNode(owner.get()), *second = new TNode(owner.get());
    auto *third = new TNode(owner.get()), *fourth = new TNode(owner.get());
    first->OnNotification = [&](TComponent* component, TOperation) {
        if (component == third) {
            delete fourth;
            delete second;
        }
    };
    delete third;
    EXPECT_EQ(owner->Components(), std::vector<TComponent*>{first});
    first->OnNotification = nullptr;

    auto* fifth = new TNode(owner.get());
    TNode watcher(nullptr);
    watcher.SetLink(fifth);
    watcher.OnNotification = [&](TComponent*, TOperation) { owner.reset(); };
    delete fifth;
    EXPECT_TRUE(!owner && !watcher.Link);
}

TEST(ComponentTest, LinksNeverDangleInAnyOrderOfDestruction)
{
    std::minstd_rand random(1);
    const auto below = [&random](std::size_t count) { return static_cast<std::size_t>(random()) % count; };
    for (int round = 0; round < 200; ++round) {
        std::vector<TNode*> nodes;
        for (std::size_t i = 0; i < 12; ++i)
            nodes.push_back(new TNode(i == 0 || below(3) == 0 ? nullptr : nodes[below(i)]));
        for (TNode* node : nodes) {
            node->SetLink(nodes[below(nodes.size())]);
            node->OnNotification = [&nodes](TComponent* component, TOperation) { std::erase(nodes, component); };
        }
        TNode observer(nullptr);
        for (TNode* node : nodes)
            observer.WatchFor(node);
        observer.OnNotification = nodes[0]->OnNotification;
        while (!nodes.empty()) {
            delete nodes[below(nodes.size())];
            for (const TNode* node : nodes)
                ASSERT_TRUE(!node->Link || std::ranges::find(nodes, node->Link) != nodes.end());
        }
    }
}

}  // namespace
}  // namespace plotkit
