#include "design/LookProperty.h"

#include <algorithm>
#include <array>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::array<std::string_view, 6> DataLinks{"XData", "YData", "Weight", "ParentSeries", "PopupMenu", "Tag"};

void AddPaths(TPersistent& object, const std::string& prefix, std::vector<std::string>& paths)
{
    for (const TPropertyRow& row : AllProperties(object.ClassInfo())) {
        if (prefix.empty() && std::ranges::find(DataLinks, row.Name) != DataLinks.end())
            continue;
        const std::string path = prefix + std::string(row.Name);
        if (row.Kind == pkSub)
            AddPaths(row.SubObject(object), path + ".", paths);
        else if (row.Kind != pkEvent && row.Kind != pkBulk)
            paths.push_back(path);
    }
}

}  // namespace

TLookValue TLookProperty::Value() const
{
    if (Row->Kind == pkReference)
        return Row->GetReference(*Object);
    return Row->Get(*Object);
}

void TLookProperty::SetValue(const TLookValue& value) const
{
    if (Row->Kind != pkReference)
        Row->Set(*Object, std::get<TPropertyValue>(value));
    else if (!Row->SetReference(*Object, std::get<TComponent*>(value)))
        throw EConvertError(std::string(Row->Name) + " does not take a component of this kind");
}

TLookProperty FindLookProperty(TComponent& component, std::string_view path)
{
    TLookProperty found{&component, nullptr};
    while (true) {
        const std::size_t dot = path.find('.');
        found.Row = FindProperty(found.Object->ClassInfo(), path.substr(0, dot));
        if (dot == path.npos || !found.Row)
            return found.Row && found.Row->Kind == pkSub ? TLookProperty{} : found;
        if (found.Row->Kind != pkSub)
            return {};
        found.Object = &found.Row->SubObject(*found.Object);
        path.remove_prefix(dot + 1);
    }
}

std::vector<std::string> LookPaths(TComponent& component)
{
    std::vector<std::string> paths;
    AddPaths(component, "", paths);
    return paths;
}

}  // namespace plotkit
