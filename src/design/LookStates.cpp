#include "design/LookStates.h"

#include <algorithm>
#include <unordered_map>

#include "design/LookHidden.h"
#include "design/LookTree.h"

namespace plotkit {

namespace {

TLookValue ValueAt(TComponent& part, const TLookPath& path)
{
    const TLookProperty property = path.In(part);
    return property.IsDerived() ? TLookValue(nullptr) : property.Value();
}

}  // namespace

TLookStates::TPart TLookStates::NewPart(TComponent& part)
{
    const auto [known, isNew] = FPaths.try_emplace(&part.ClassInfo());
    if (isNew)
        known->second = LookPaths(part);
    TPart states{&part, part.Lifeline().Watch(), &known->second, {}, HiddenLook(part)};
    states.Values.reserve(known->second.size());
    for (const TLookPath& path : known->second)
        states.Values.push_back(ValueAt(part, path));
    return states;
}

void TLookStates::FollowOutline(TKx2DGraph& graph)
{
    const std::vector<TComponent*> outline = LookParts(graph);
    const auto stands = [](const TPart& known, const TComponent* part) {
        return known.Part == part && !known.Alive.expired();
    };
    if (std::ranges::equal(FParts, outline, stands))
        return;
    std::unordered_map<const TComponent*, TPart*> known;
    for (TPart& part : FParts)
        if (!part.Alive.expired())
            known.emplace(part.Part, &part);
    std::vector<TPart> parts;
    parts.reserve(outline.size());
    for (TComponent* part : outline) {
        const auto old = known.find(part);
        parts.push_back(old == known.end() ? NewPart(*part) : std::move(*old->second));
    }
    FParts = std::move(parts);
}

void TLookStates::Compare(TPart& part, std::vector<TLookDifference>& differences)
{
    for (std::size_t i = 0; i < part.Values.size(); ++i) {
        const TLookPath& path = (*part.Paths)[i];
        TLookValue value = ValueAt(*part.Part, path);
        if (value == part.Values[i])
            continue;
        differences.push_back({part.Part, path.Text, std::move(part.Values[i]), value});
        part.Values[i] = std::move(value);
    }
    std::string hidden = HiddenLook(*part.Part);
    if (hidden == part.Hidden)
        return;
    differences.push_back({part.Part, "", TPropertyValue(std::move(part.Hidden)), TPropertyValue(hidden)});
    part.Hidden = std::move(hidden);
}

std::vector<TLookDifference> TLookStates::Changes(TKx2DGraph& graph)
{
    FollowOutline(graph);
    std::vector<TLookDifference> differences;
    for (TPart& part : FParts)
        Compare(part, differences);
    return differences;
}

}  // namespace plotkit
