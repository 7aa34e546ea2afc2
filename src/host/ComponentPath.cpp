#include "host/ComponentPath.h"

#include "host/Application.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

std::string PathInside(const TComponent& component, const TComponent& root)
{
    std::string path = component.GetName();
    const TComponent* owner = component.Owner();
    for (; owner && owner != &root; owner = owner->Owner())
        path = owner->GetName() + '.' + path;
    return owner ? path : std::string();
}

/// A path that begins with the name of `top`, or the path below it when it is unnamed.
TComponent* FindFrom(TComponent& top, std::string_view path)
{
    if (top.GetName().empty())
        return FindInside(top, path);
    const std::size_t dot = path.find('.');
    if (!SameText(path.substr(0, dot), top.GetName()))
        return nullptr;
    return dot == std::string_view::npos ? &top : FindInside(top, path.substr(dot + 1));
}

}  // namespace

TComponent* FindInside(const TComponent& outer, std::string_view path)
{
    const std::size_t dot = path.find('.');
    TComponent* found = outer.FindComponent(path.substr(0, dot));
    return found && dot != std::string_view::npos ? FindInside(*found, path.substr(dot + 1)) : found;
}

TComponent* FindReference(std::string_view path, TComponent& root)
{
    TComponent* top = &root;
    while (top->Owner())
        top = top->Owner();
    const bool isFull = path.starts_with('.');
    if (isFull)
        path.remove_prefix(1);
    else if (TComponent* inside = FindInside(root, path))
        return inside;
    else if (TComponent* below = FindFrom(root, path); below && !root.GetName().empty())
        return below;
    if (TComponent* beside = FindFrom(*top, path))
        return beside;
    return Application().FindByPath(path);
}

std::string ReferencePath(TComponent* component, TComponent& root)
{
    if (!component || component->GetName().empty())
        return "nil";
    const std::string full = component->NamePath();
    std::string path = component == &root ? root.GetName() : PathInside(*component, root);
    if (path.empty())
        path = full;
    for (const std::string& candidate : {path, full, '.' + full})
        if (!SameText(candidate, "nil") && FindReference(candidate, root) == component)
            return candidate;
    return path;
}

}  // namespace plotkit
