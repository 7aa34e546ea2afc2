#include "design/LookProperty.h"

#include <algorithm>
#include <array>

#include "calculated/KxCalculatedSeries.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::array<std::string_view, 12> DataLinks{"XData",     "YData",   "Weight", "ParentSeries",
                                                     "PopupMenu", "Tag",     "dXPlus", "dYPlus",
                                                     "dXMinus",   "dYMinus", "dXData", "dYData"};

void AddPaths(TPersistent& object, const TLookPath& outer, std::vector<TLookPath>& paths)
{
    for (const TPropertyRow& inherited : AllProperties(object.ClassInfo())) {
        const TPropertyRow& row = *FindProperty(object.ClassInfo(), inherited.Name);
        if (outer.Rows.empty() && std::ranges::find(DataLinks, row.Name) != DataLinks.end())
            continue;
        TLookPath path = outer;
        path.Text += (outer.Rows.empty() ? "" : ".") + std::string(row.Name);
        path.Rows.push_back(&row);
        if (row.Kind == pkSub)
            AddPaths(row.SubObject(object), path, paths);
        else if (row.Kind != pkEvent && row.Kind != pkBulk)
            paths.push_back(std::move(path));
    }
}

double ScaleOf(const TPersistent& object)
{
    const auto* component = dynamic_cast<const TComponent*>(&object);
    return component ? component->StreamScale() : 1;
}

}  // namespace

bool TLookProperty::IsDerived() const
{
    if (Row->Kind != pkReal || !Row->StoredWhen)
        return false;
    const auto* series = dynamic_cast<const TKxCalculatedSeries*>(Object);
    const bool coupled = series && series->GetCoupleCalculationAndDisplay() && Row->Name.starts_with("Display");
    return coupled || !Row->StoredWhen(*Object);
}

TLookValue TLookProperty::Value() const
{
    if (Row->Kind == pkReference)
        return Row->GetReference(*Object);
    return Row->InPixels ? PixelsToStored(Row->Get(*Object), ScaleOf(*Object)) : Row->Get(*Object);
}

void TLookProperty::SetValue(const TLookValue& value) const
{
    if (Row->InPixels)
        Row->Set(*Object, StoredToPixels(std::get<TPropertyValue>(value), ScaleOf(*Object)));
    else if (Row->Kind != pkReference)
        Row->Set(*Object, std::get<TPropertyValue>(value));
    else if (!Row->SetReference(*Object, std::get<TComponent*>(value)))
        throw EConvertError(std::string(Row->Name) + " does not take a component of this kind");
}

TLookProperty TLookPath::In(TComponent& component) const
{
    TPersistent* object = &component;
    for (std::size_t i = 0; i + 1 < Rows.size(); ++i)
        object = &Rows[i]->SubObject(*object);
    return {object, Rows.back()};
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

std::vector<TLookPath> LookPaths(TComponent& component)
{
    std::vector<TLookPath> paths;
    AddPaths(component, {}, paths);
    return paths;
}

}  // namespace plotkit
