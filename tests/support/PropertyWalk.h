// The job of PropertyWalk is to try every published property of every class of a folder.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <numeric>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/Streaming.h"
#include "host/StringList.h"

namespace plotkit {

class TPropertyWalk
{
public:
    explicit TPropertyWalk(std::span<const TClassInfo* const> classes) : FClasses(classes) {}

    void Run()
    {
        for (const TClassInfo* info : FClasses) {
            SCOPED_TRACE(std::string(info->Name));
            ASSERT_TRUE(info->Create);
            CheckNames(*info);
            CheckFresh(*info);
            const TComponentPtr fresh(info->Create(nullptr));
            const TStops stops = StopsOf(*fresh);
            for (std::size_t i = 0; i < stops.size(); ++i) {
                SCOPED_TRACE(stops[i].Path);
                if (stops[i].Row.Kind == pkReference)
                    CheckReference(*info, i);
                else if (stops[i].Row.Kind == pkBulk)
                    CheckList(*info, i);
                else if (stops[i].Row.Kind != pkEvent)
                    CheckPlain(*info, i, *fresh, stops[i]);
            }
        }
    }

private:
    using TComponentPtr = std::unique_ptr<TComponent>;

    /// A class that no other knows.
    struct TStranger : TComponent
    {
        using TComponent::TComponent;
    };

    /// A row of an object or of one of its sub-objects.
    struct TStop
    {
        std::string Path;
        TPersistent* Object;
        TPropertyRow Row;
        bool IsConditional;  ///< it or the sub-object says itself when it is stored

        std::string Text() const
        {
            if (Row.Kind == pkReference)
                return std::to_string(reinterpret_cast<std::uintptr_t>(Row.GetReference(*Object)));
            if (Row.Kind == pkEvent)
                return Row.IsAssigned(*Object) ? "assigned" : "free";
            if (Row.Kind != pkBulk)
                return PropertyText(Row, Row.Get(*Object));
            std::string text;
            for (const double value : Row.GetBulk(*Object))
                text += FormatExact(value) + ' ';
            return text;
        }
        /// False when the property refuses the value with an error.
        bool TrySet(const TPropertyValue& value) const
        {
            try {
                Row.Set(*Object, value);
                return true;
            } catch (const EError&) {
                return false;
            }
        }
    };
    using TStops = std::vector<TStop>;

    static TStops StopsOf(TPersistent& object, const std::string& prefix = "", bool isConditional = false)
    {
        TStops stops;
        for (const TPropertyRow& row : AllProperties(object.ClassInfo())) {
            const std::string path = prefix + std::string(row.Name);
            const bool conditional = isConditional || row.StoredWhen;
            if (row.Kind == pkSub)
                std::ranges::copy(StopsOf(row.SubObject(object), path + '.', conditional), std::back_inserter(stops));
            else
                stops.push_back({path, &object, row, conditional});
        }
        return stops;
    }

    static std::map<std::string, std::string> Snapshot(TPersistent& object)
    {
        std::map<std::string, std::string> texts;
        for (const TStop& stop : StopsOf(object))
            texts[stop.Path] = stop.Text();
        return texts;
    }

    static std::vector<TPropertyValue> VariedValues(const TPropertyRow& row)
    {
        constexpr double Infinity = std::numeric_limits<double>::infinity();
        if (row.Kind == pkBoolean)
            return {false, true};
        if (row.Kind == pkReal)
            return {0.0, -0.1, 2.5, 1e300, 5e-324, Infinity, std::numeric_limits<double>::quiet_NaN()};
        if (row.Kind == pkText)
            return {std::string(), std::string("a \"b\"\\c\n\td = (1)"), std::string("\xC2\xB5m \xFF\x01\r")};
        std::vector<std::int64_t> numbers{0, 1, -1, 7, 90, 777};
        if (row.Kind == pkColor)
            numbers = {0xFF8000, ColorToInt(clWindowText)};
        if (row.Kind == pkEnumeration) {
            numbers.resize(row.ValueNames.size());
            std::iota(numbers.begin(), numbers.end(), 0);
        }
        return {numbers.begin(), numbers.end()};
    }

    static void CheckNames(const TClassInfo& info)
    {
        for (const TClassInfo* level = &info; level; level = level->Parent)
            for (std::size_t i = 0; i < level->Properties.size(); ++i)
                for (std::size_t k = 0; k < i; ++k)
                    EXPECT_FALSE(SameText(level->Properties[i].Name, level->Properties[k].Name))
                        << level->Name << '.' << level->Properties[i].Name << " is listed twice";
    }

    static void CheckFresh(const TClassInfo& info)
    {
        const TComponentPtr fresh(info.Create(nullptr));
        std::string expected = "object " + std::string(info.Name) + '\n';
        for (const TStop& stop : StopsOf(*fresh))
            if (stop.Row.AlwaysStored && !stop.IsConditional)
                expected += "  " + stop.Path + " = " + (stop.Row.Kind == pkReference ? "nil" : stop.Text()) + '\n';
        EXPECT_EQ(WriteComponentTree(*fresh), expected + "end\n");
    }

    static void ExpectSettingChangesNothing(TComponent& component, const TStop& stop)
    {
        const auto before = Snapshot(component);
        stop.Row.Set(*stop.Object, stop.Row.Get(*stop.Object));
        EXPECT_EQ(Snapshot(component), before) << "after setting " << stop.Path << " to what it is";
    }

    static void CheckText(const TStop& stop, const TPropertyValue& value)
    {
        const std::string text = PropertyText(stop.Row, value);
        EXPECT_EQ(text, PropertyText(stop.Row, ParsePropertyText(stop.Row, text)));
        EXPECT_TRUE(value != value || ParsePropertyText(stop.Row, text) == value) << text;
    }

    void CheckPlain(const TClassInfo& info, std::size_t i, TComponent& fresh, const TStop& original)
    {
        ExpectSettingChangesNothing(fresh, original);
        CheckText(original, original.Row.Get(*original.Object));
        for (const TPropertyValue& value : VariedValues(original.Row)) {
            SCOPED_TRACE(PropertyText(original.Row, value));
            CheckText(original, value);
            const TComponentPtr changed(info.Create(nullptr));
            const TStop stop = StopsOf(*changed)[i];
            if (!stop.TrySet(value))
                continue;
            ExpectSettingChangesNothing(*changed, stop);
            ExpectKept(*changed, i, !stop.IsConditional && stop.Text() != original.Text());
        }
    }

    void CheckList(const TClassInfo& info, std::size_t i)
    {
        const TComponentPtr changed(info.Create(nullptr));
        const TStops stops = StopsOf(*changed);
        const std::vector<double> values{0, 0.1, 1e300, -std::numeric_limits<double>::infinity(), std::nan("")};
        stops[i].Row.SetBulk(*stops[i].Object, values);
        EXPECT_EQ(stops[i].Row.GetBulk(*stops[i].Object).size(), values.size());
        // Whatever switch makes the list a stored one.
        for (const TStop& stop : stops)
            if (stop.Row.Kind == pkBoolean && !stops[i].Row.StoredWhen(*stops[i].Object))
                stop.TrySet(true);
        ExpectKept(*changed, i, true);
    }

    /// That row `i` is the same in a copy made by way of the text, and that the copy gives the same text.
    void ExpectKept(TComponent& changed, std::size_t i, bool mustBeWritten)
    {
        const TStop stop = StopsOf(changed)[i];
        const std::string text = WriteComponentTree(changed);
        const bool isWritten = text.find("\n  " + stop.Path + " = ") != std::string::npos;
        EXPECT_TRUE(isWritten || !mustBeWritten) << text;
        if (!isWritten)
            return;
        const TReadResult result = ReadComponentTree(text, FClasses);
        const TComponentPtr copy(result.Root);
        for (const TReadProblem& problem : result.Problems)
            ADD_FAILURE() << "line " << problem.Line << ": " << problem.Message << '\n' << text;
        ASSERT_TRUE(copy);
        EXPECT_EQ(StopsOf(*copy)[i].Text(), stop.Text());
        EXPECT_EQ(WriteComponentTree(*copy), text);
    }

    void CheckReference(const TClassInfo& info, std::size_t i)
    {
        const bool takesAny = CheckLink(info, i, &CreateComponent<TStranger>);
        for (const TClassInfo* other : FClasses) {
            SCOPED_TRACE(std::string(other->Name));
            EXPECT_TRUE(CheckLink(info, i, other->Create) || !takesAny);
        }
    }

    /// A link to what `create` makes ends with nullptr and with whichever goes first. False when the class is refused.
    static bool CheckLink(const TClassInfo& info, std::size_t i, TComponent* (*create)(TComponent*))
    {
        for (const bool targetGoesFirst : {true, false}) {
            TComponentPtr holder(info.Create(nullptr)), target(create(nullptr));
            const TStop stop = StopsOf(*holder)[i];
            const auto set = [&](TComponent* link) { return stop.Row.SetReference(*stop.Object, link); };
            const auto link = [&] { return stop.Row.GetReference(*stop.Object); };
            const TComponent* const before = link();
            const bool isTaken = set(target.get());
            EXPECT_EQ(link(), isTaken ? target.get() : before);
            EXPECT_TRUE(set(nullptr) && !link());
            if (!set(target.get()))
                return false;
            const auto holderLives = holder->Lifeline().Watch();
            (targetGoesFirst ? target : holder).reset();
            if (targetGoesFirst && holderLives.expired())
                static_cast<void>(holder.release());  // the target owns what links to it
            EXPECT_FALSE(targetGoesFirst && holder && link()) << "the target is gone";
        }
        for (const bool targetIsOlder : {true, false}) {
            TStranger owner(nullptr);
            TComponent* const older = (targetIsOlder ? create : info.Create)(&owner);
            TComponent* const younger = (targetIsOlder ? info.Create : create)(&owner);
            const TStop stop = StopsOf(targetIsOlder ? *younger : *older)[i];
            stop.Row.SetReference(*stop.Object, targetIsOlder ? older : younger);
        }
        return true;
    }

    std::span<const TClassInfo* const> FClasses;
};

/// For each class: rows are named once; a fresh object writes only its always-stored rows; setting a row to what it is
/// changes nothing; every value survives its text; what was changed is written and read back; references take nullptr,
/// refuse strangers and never dangle.
inline void WalkProperties(std::span<const TClassInfo* const> classes)
{
    TPropertyWalk(classes).Run();
}

}  // namespace plotkit
