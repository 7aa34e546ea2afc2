#include <algorithm>

#include "host/ComponentPath.h"
#include "host/Errors.h"
#include "host/StreamText.h"
#include "host/Streaming.h"
#include "host/StringList.h"
#include "host/ValueText.h"

namespace plotkit {

namespace {

constexpr std::size_t DeepestNesting = 100;

std::string Quoted(std::string_view text)
{
    return '"' + Excerpt(text) + '"';
}

/// A component that was made from the text. A setter or `Loaded` of another one may destroy it.
struct TReadComponent
{
    TComponent* Component = nullptr;
    std::weak_ptr<const void> Life;
    int Line = 0;

    TReadComponent(TComponent* component, int line)
        : Component(component), Life(component->Lifeline().Watch()), Line(line)
    {}
    bool IsAlive() const { return !Life.expired(); }
};

/// The object and the row that a dotted name leads to.
struct TPlace
{
    TPersistent* Object = nullptr;
    const TPropertyRow* Row = nullptr;
};

/// A reference is set when all components that it may name are there.
struct TPendingReference
{
    TReadComponent Holder;
    TPlace Place;
    std::string_view Name;
    std::string_view Path;
    int Line = 0;
};

class TTreeReader
{
public:
    TTreeReader(std::string_view text, std::span<const TClassInfo* const> classes, TComponent* owner, TComponent* root)
        : FStatements(text), FClasses(classes), FOwner(owner), FGivenRoot(root)
    {}

    TReadResult Read()
    {
        TStatement statement;
        while (FStatements.Next(statement)) {
            FLastLine = statement.Line;
            if (FEnded) {
                Report(statement.Line, "Text after the end of the outermost object");
                break;
            }
            Take(statement);
        }
        Finish();
        std::ranges::stable_sort(FResult.Problems, {}, &TReadProblem::Line);
        return std::move(FResult);
    }

private:
    void Report(int line, std::string message) { FResult.Problems.push_back({line, std::move(message)}); }

    /// Runs what may raise; the message of an error becomes a problem.
    template <class TAction>
    bool Try(int line, std::string_view subject, TAction action)
    {
        try {
            action();
            return true;
        } catch (const std::exception& error) {
            Report(line, std::string(subject) + (subject.empty() ? "" : ": ") + error.what());
            return false;
        }
    }

    void Take(const TStatement& statement)
    {
        if (FSkipped > 0) {
            if (statement.Kind == skObject)
                ++FSkipped;
            if (statement.Kind == skEnd)
                --FSkipped;
            FEnded = FSkipped == 0 && FOpen.empty();
            return;
        }
        switch (statement.Kind) {
            case skObject:
                BeginObject(statement);
                break;
            case skEnd:
                EndObject(statement.Line);
                break;
            case skProperty:
                ReadProperty(statement);
                break;
            default:
                Report(statement.Line,
                       "A property, \"object\" or \"end\" was expected, not " + Excerpt(statement.Value));
        }
    }

    void BeginObject(const TStatement& statement)
    {
        TComponent* component = nullptr;
        if (FOpen.size() >= DeepestNesting)
            Report(statement.Line, "Objects are nested deeper than " + std::to_string(DeepestNesting));
        else if (FOpen.empty())
            component = RootFor(statement);
        else if (FOpen.front().IsAlive())
            component = Created(statement, FResult.Root);
        if (!component) {
            FSkipped = 1;
            FSkipLine = statement.Line;
            return;
        }
        component->SetLoading();
        if (FOpen.empty())
            FResult.Root = component;
        else if (FOpen.back().IsAlive())
            Try(statement.Line, statement.Name, [&] { component->SetStreamedInside(FOpen.back().Component); });
        FOpen.emplace_back(component, statement.Line);
        if (!statement.Name.empty())
            Try(statement.Line, "", [&] { component->SetName(statement.Name); });
    }

    TComponent* RootFor(const TStatement& statement)
    {
        if (!FGivenRoot)
            return Created(statement, FOwner);
        const std::string_view wanted = FGivenRoot->ClassInfo().Name;
        if (SameText(statement.Class, wanted))
            return FGivenRoot;
        Report(statement.Line, "The text holds a " + Excerpt(statement.Class) + ", not a " + std::string(wanted));
        return nullptr;
    }

    TComponent* Created(const TStatement& statement, TComponent* owner)
    {
        const auto info = std::ranges::find_if(
            FClasses, [&](const TClassInfo* known) { return known->Create && SameText(known->Name, statement.Class); });
        TComponent* component = nullptr;
        if (info == FClasses.end())
            Report(statement.Line, "Unknown class " + Quoted(statement.Class));
        else
            Try(statement.Line, (*info)->Name, [&] { component = (*info)->Create(owner); });
        return component;
    }

    void EndObject(int line)
    {
        if (FOpen.empty()) {
            Report(line, "\"end\" without an object");
            return;
        }
        FRead.push_back(FOpen.back());
        FOpen.pop_back();
        FEnded = FOpen.empty();
    }

    void ReadProperty(const TStatement& statement)
    {
        if (FOpen.empty()) {
            Report(statement.Line, "A property outside of all objects");
            return;
        }
        const TReadComponent& holder = FOpen.back();
        if (!holder.IsAlive())
            return;
        const TPlace place = Find(*holder.Component, statement.Name);
        if (!place.Row)
            Report(statement.Line, "Unknown property " + Quoted(statement.Name) + " of " +
                                       std::string(holder.Component->ClassInfo().Name));
        else if (place.Row->Kind == pkReference)
            FReferences.push_back({holder, place, statement.Name, statement.Value, statement.Line});
        else if (place.Row->Kind == pkBulk)
            SetList(place, statement);
        else
            Try(statement.Line, statement.Name, [&] { SetValue(place, *holder.Component, statement); });
    }

    static TPlace Find(TPersistent& object, std::string_view name)
    {
        const std::size_t dot = name.find('.');
        const TPropertyRow* row = FindProperty(object.ClassInfo(), name.substr(0, dot));
        if (!row || dot == std::string_view::npos)
            return {&object, row};
        return row->Kind == pkSub ? Find(row->SubObject(object), name.substr(dot + 1)) : TPlace{};
    }

    static void SetValue(const TPlace& place, const TComponent& holder, const TStatement& statement)
    {
        const TPropertyRow& row = *place.Row;
        if (row.Kind == pkSub)
            throw EConvertError("one of its own properties was expected, as in " + std::string(row.Name) +
                                ".Name = Value");
        if (row.Kind == pkEvent)
            throw EConvertError("events cannot be read");
        const TPropertyValue value = ParsePropertyText(row, statement.Value);
        row.Set(*place.Object, row.InPixels ? StoredToPixels(value, holder.StreamScale()) : value);
    }

    void SetList(const TPlace& place, const TStatement& statement)
    {
        int line = statement.Line;
        try {
            std::vector<double> values;
            for (const TListElement& element : SplitList(statement.Value)) {
                const auto value = ParseExactReal(element.Text);
                if (!value) {
                    line += element.Line;
                    throw EConvertError("a number was expected, not " + Quoted(element.Text));
                }
                values.push_back(*value);
            }
            place.Row->SetBulk(*place.Object, values);
        } catch (const std::exception& error) {
            Report(line, std::string(statement.Name) + ": " + error.what());
        }
    }

    void SetReference(const TPendingReference& pending)
    {
        if (!pending.Holder.IsAlive())
            return;
        TComponent* component = nullptr;
        if (!SameText(pending.Path, "nil")) {
            component = FindReference(pending.Path, *FResult.Root);
            if (!component)
                throw EConvertError("there is no component " + Quoted(pending.Path));
        }
        if (!pending.Place.Row->SetReference(*pending.Place.Object, component))
            throw EConvertError("a " + std::string(component->ClassInfo().Name) + " like " + Quoted(pending.Path) +
                                " does not fit");
    }

    void Finish()
    {
        if (FSkipped > 0)
            Report(FSkipLine, "The object has no \"end\"");
        for (; !FOpen.empty(); FOpen.pop_back()) {
            Report(FOpen.back().Line, "The object has no \"end\"");
            FRead.push_back(FOpen.back());
        }
        if (FRead.empty()) {
            if (FResult.Problems.empty())
                Report(std::max(FLastLine, 1), "The text holds no object");
            return;
        }
        for (const TPendingReference& pending : FReferences)
            Try(pending.Line, pending.Name, [&] { SetReference(pending); });
        for (const TReadComponent& read : FRead)
            if (read.IsAlive())
                Try(read.Line, read.Component->GetName(), [&] { read.Component->Loaded(); });
        if (!FRead.back().IsAlive())
            FResult.Root = nullptr;
    }

    TStatementReader FStatements;
    std::span<const TClassInfo* const> FClasses;
    TComponent* FOwner;
    TComponent* FGivenRoot;
    TReadResult FResult;
    std::vector<TReadComponent> FOpen;  ///< from the root inwards
    std::vector<TReadComponent> FRead;  ///< inner ones first
    std::vector<TPendingReference> FReferences;
    int FSkipped = 0;  ///< depth inside an object that is left out
    int FSkipLine = 0;
    int FLastLine = 0;
    bool FEnded = false;
};

}  // namespace

TReadResult ReadComponentTree(std::string_view text, std::span<const TClassInfo* const> classes, TComponent* owner)
{
    return TTreeReader(text, classes, owner, nullptr).Read();
}

std::vector<TReadProblem> ReadIntoComponent(std::string_view text, std::span<const TClassInfo* const> classes,
                                            TComponent& root)
{
    return TTreeReader(text, classes, nullptr, &root).Read().Problems;
}

}  // namespace plotkit
