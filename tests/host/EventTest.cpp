#include "host/Event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/Component.h"

namespace plotkit {
namespace {

std::string Heard;

struct TFirst
{
    virtual ~TFirst() = default;
    void Fixed(int value) { Heard += 'f' + std::to_string(value); }
    virtual void Changed(int value) { Heard += '1' + std::to_string(value); }
    virtual void Kept(int) const {}
};

struct TSecond : TFirst
{
    void Changed(int value) override { Heard += '2' + std::to_string(value); }
};

struct TListener
{
    virtual ~TListener() = default;
    virtual void Hear(int value) = 0;
};

/// The listener is not the front part of the object.
struct TMixed : TFirst, TListener
{
    void Hear(int value) override { Heard += Name + std::to_string(value); }
    char Name = 'm';
};

using TIntEvent = TEvent<int>;

TEST(TEventTest, CallsReachTheFinalOverride)
{
    TSecond second;
    TMixed mixed;
    TIntEvent::Bind<&TFirst::Changed>(static_cast<TFirst*>(&second))(1);
    TIntEvent::Bind<&TFirst::Fixed> (&second)(2);
    TIntEvent::Bind<&TListener::Hear> (&mixed)(3);
    TIntEvent::Bind<&TMixed::Hear> (&mixed)(4);
    TIntEvent()(5);
    EXPECT_EQ(Heard, "21f2m3m4");
}

TEST(TEventTest, HandlersAreTheSameWhereTheSameRoutineRuns)
{
    TFirst first, otherFirst;
    TSecond second;
    TMixed one, two;
    const auto of = [](TFirst& object) { return TIntEvent::Bind<&TFirst::Changed>(&object); };
    const auto fixed = TIntEvent::Bind<&TFirst::Fixed>(&first);
    const auto hear = TIntEvent::Bind<&TListener::Hear>(&one);
    EXPECT_TRUE(of(first).SameHandler(of(otherFirst)));
    EXPECT_FALSE(of(first).SameHandler(of(second)));
    EXPECT_TRUE(of(second).SameHandler(TIntEvent::Bind<&TSecond::Changed>(&second)));
    EXPECT_FALSE(of(first).SameHandler(TIntEvent::Bind<&TFirst::Kept>(&first)));
    EXPECT_TRUE(fixed.SameHandler(TIntEvent::Bind<&TFirst::Fixed>(&second)));
    EXPECT_TRUE(hear.SameHandler(TIntEvent::Bind<&TListener::Hear>(&two)));
    EXPECT_NE(of(first), of(otherFirst));
    EXPECT_EQ(of(first), of(first));
}

TEST(TEventTest, LambdasEqualOnlyTheirCopiesAndMayReplaceTheirEvent)
{
    TIntEvent event;
    int sum = 0;
    const auto replace = [&event, &sum, kept = std::make_shared<int>(7)](int value) {
        event = nullptr;
        sum = *kept + value;
    };
    event = replace;
    EXPECT_FALSE(event.SameHandler(TIntEvent(replace)));
    EXPECT_TRUE(event.SameHandler(TIntEvent(event)));
    event(1);
    EXPECT_EQ(sum, 8);
    EXPECT_FALSE(event);
}

struct TTarget : TComponent
{
    using TComponent::TComponent;
    ~TTarget() override
    {
        BeginDestroy();
        EXPECT_FALSE(*Copy);
        (*Copy)();
    }
    void Hear() { ++*Calls; }

    int* Calls = nullptr;
    const TEvent<>* Copy = nullptr;
};

TEST(TEventTest, IsEmptyFromTheMomentThatItsTargetBeginsToGo)
{
    int calls = 0;
    auto target = std::make_unique<TTarget>(nullptr);
    const auto event = TEvent<>::Bind<&TTarget::Hear>(target.get()), copy = event;
    target->Calls = &calls;
    target->Copy = &copy;
    event();
    EXPECT_TRUE(event);
    target.reset();
    EXPECT_FALSE(event);
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace plotkit
