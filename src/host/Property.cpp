#include "host/Property.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>
#include <memory>

#include "host/Canvas.h"
#include "host/Component.h"
#include "host/Errors.h"
#include "host/PixelMath.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

const TPropertyRow* FindRow(std::span<const TPropertyRow> rows, std::string_view name)
{
    const auto row = std::ranges::find_if(rows, [name](const TPropertyRow& r) { return SameText(r.Name, name); });
    return row == rows.end() ? nullptr : &*row;
}

bool SameReal(double a, double b)
{
    // Zeros of different signs are different texts; all NaN are one.
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

bool SameValue(const TPropertyValue& a, const TPropertyValue& b)
{
    const double* realA = std::get_if<double>(&a);
    const double* realB = std::get_if<double>(&b);
    return realA && realB ? SameReal(*realA, *realB) : a == b;
}

double ScaleOf(const TPersistent& object)
{
    const auto* component = dynamic_cast<const TComponent*>(&object);
    return component ? component->StreamScale() : 1;
}

TPropertyValue Scaled(const TPropertyValue& value, double factor)
{
    if (factor == 1)
        return value;
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return std::int64_t{ScalePixels(SaturatePixel(*integer), factor)};
    if (const auto* real = std::get_if<double>(&value))
        return *real * factor;
    return value;
}

bool IsSubStored(const TPropertyRow& row, const TPersistent& object, const TPersistent& prototype, double scale)
{
    const TPersistent& sub = row.SubObject(const_cast<TPersistent&>(object));
    const TPersistent& unchanged = row.SubObject(const_cast<TPersistent&>(prototype));
    if (&sub.ClassInfo() != &unchanged.ClassInfo())
        return true;
    return std::ranges::any_of(AllProperties(sub.ClassInfo()), [&](const TPropertyRow& inner) {
        return IsStoredAtScale(inner, sub, unchanged, scale);
    });
}

}  // namespace

std::vector<TPropertyRow> AllProperties(const TClassInfo& info)
{
    std::vector<TPropertyRow> rows;
    if (info.Parent)
        rows = AllProperties(*info.Parent);
    for (const TPropertyRow& row : info.Properties) {
        if (const TPropertyRow* inherited = FindRow(rows, row.Name))
            rows[static_cast<std::size_t>(inherited - rows.data())] = row;
        else
            rows.push_back(row);
    }
    return rows;
}

const TPropertyRow* FindProperty(const TClassInfo& info, std::string_view name)
{
    for (const TClassInfo* level = &info; level; level = level->Parent)
        if (const TPropertyRow* row = FindRow(level->Properties, name))
            return row;
    return nullptr;
}

TPropertyValue PixelsToStored(const TPropertyValue& value, double scale)
{
    return Scaled(value, 1 / scale);
}

TPropertyValue StoredToPixels(const TPropertyValue& value, double scale)
{
    return Scaled(value, scale);
}

bool IsStored(const TPropertyRow& row, const TPersistent& object, const TPersistent& prototype)
{
    return IsStoredAtScale(row, object, prototype, ScaleOf(object));
}

bool IsStoredAtScale(const TPropertyRow& row, const TPersistent& object, const TPersistent& prototype, double scale)
{
    if (row.Kind == pkEvent)
        return false;
    if (row.StoredWhen)
        return row.StoredWhen(object);
    if (row.AlwaysStored)
        return true;
    switch (row.Kind) {
        case pkSub:
            return IsSubStored(row, object, prototype, scale);
        case pkReference:
            return row.GetReference(object) != row.GetReference(prototype);
        case pkBulk:
            return !std::ranges::equal(row.GetBulk(object), row.GetBulk(prototype), SameReal);
        default:
            break;
    }
    if (!row.InPixels)
        return !SameValue(row.Get(object), row.Get(prototype));
    return !SameValue(PixelsToStored(row.Get(object), scale), PixelsToStored(row.Get(prototype), ScaleOf(prototype)));
}

const TPersistent& Prototype(const TClassInfo& info)
{
    // Never destroyed: the components' ends may need other globals that the end of the process takes down first.
    static auto& prototypes = *new std::map<const TClassInfo*, std::unique_ptr<const TComponent>>;
    if (const auto known = prototypes.find(&info); known != prototypes.end())
        return *known->second;
    if (!info.Create)
        throw EComponentError("A " + std::string(info.Name) + " cannot be created");
    // Created before it is entered, since its constructor may ask for the prototypes of others.
    std::unique_ptr<const TComponent> prototype(info.Create(nullptr));
    return *prototypes.try_emplace(&info, std::move(prototype)).first->second;
}

void detail::RaiseOutsideOf(std::int64_t low, std::int64_t high)
{
    throw EConvertError("a number from " + std::to_string(low) + " to " + std::to_string(high) + " was expected");
}

}  // namespace plotkit
