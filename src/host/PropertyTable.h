// The job of PropertyTable is the rows that describe published properties and what their readers share.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace plotkit {

class TPersistent;
class TComponent;
struct TClassInfo;

enum TPropertyKind : std::uint8_t
{
    pkBoolean,
    pkInteger,
    pkReal,
    pkText,
    pkEnumeration,  ///< the value is the ordinal, the texts stand in `ValueNames`
    pkColor,        ///< the value is the colour's integer
    pkSub,          ///< an owned object with a table of its own
    pkReference,    ///< another component, written by name
    pkEvent,        ///< a bound callback; listed, never written
    pkBulk,         ///< a list of reals
};

/// A value of any of the first six kinds; enumerations and colours stand as integers.
using TPropertyValue = std::variant<bool, std::int64_t, double, std::string>;

/// One published property. Which of the routines are set depends on `Kind`.
struct TPropertyRow
{
    std::string_view Name;
    TPropertyKind Kind = pkBoolean;
    std::span<const std::string_view> ValueNames = {};
    TPropertyValue (*Get)(const TPersistent&) = nullptr;
    void (*Set)(TPersistent&, const TPropertyValue&) = nullptr;
    TPersistent& (*SubObject)(TPersistent&) = nullptr;
    TComponent* (*GetReference)(const TPersistent&) = nullptr;
    /// False when the component is of a class that the property does not take.
    bool (*SetReference)(TPersistent&, TComponent*) = nullptr;
    bool (*IsAssigned)(const TPersistent&) = nullptr;  ///< of an event
    std::vector<double> (*GetBulk)(const TPersistent&) = nullptr;
    void (*SetBulk)(TPersistent&, std::span<const double>) = nullptr;
    /// Overrules the comparison with the prototype.
    bool (*StoredWhen)(const TPersistent&) = nullptr;
    bool AlwaysStored = false;
    bool InPixels = false;  ///< device pixels in memory, 1/96 inch in a file

    constexpr TPropertyRow Always() const
    {
        TPropertyRow row = *this;
        row.AlwaysStored = true;
        return row;
    }
    constexpr TPropertyRow Pixels() const
    {
        TPropertyRow row = *this;
        row.InPixels = true;
        return row;
    }
};

/// What the library knows of a class. Constant-initialised; `Create` is empty for abstract classes and for objects that
/// are only parts of others.
struct TClassInfo
{
    std::string_view Name;
    const TClassInfo* Parent = nullptr;
    std::span<const TPropertyRow> Properties = {};
    TComponent* (*Create)(TComponent* owner) = nullptr;

    bool IsA(const TClassInfo& other) const
    {
        for (const TClassInfo* info = this; info; info = info->Parent)
            if (info == &other)
                return true;
        return false;
    }
};

/// The rows of a class: those of its ancestors first, each in the order of its table. A row that a descendant lists
/// again stands at the ancestor's place with the descendant's accessors.
std::vector<TPropertyRow> AllProperties(const TClassInfo& info);
/// Case-insensitive; nullptr when there is none.
const TPropertyRow* FindProperty(const TClassInfo& info, std::string_view name);

/// The text of a value as it stands in files: "True", "12", "0.1", "AxLog", "$00FF0000", quoted text with the escapes
/// \n, \t, \r, \", \\ and \xNN.
std::string PropertyText(const TPropertyRow& row, const TPropertyValue& value);
/// The reverse, letter case of names ignored; EConvertError says what was expected.
TPropertyValue ParsePropertyText(const TPropertyRow& row, std::string_view text);

/// A value of a row in pixels as it stands in a file, and back, at `scale` device pixels per 1/96 inch. Nothing but 0
/// becomes 0; what is beyond 32 bits saturates.
TPropertyValue PixelsToStored(const TPropertyValue& value, double scale);
TPropertyValue StoredToPixels(const TPropertyValue& value, double scale);

/// Whether a reader that saves has to write the row of `object`, whose unchanged counterpart is `prototype`.
bool IsStored(const TPropertyRow& row, const TPersistent& object, const TPersistent& prototype);

/// The same for an object that stands inside a component of the given `StreamScale`.
bool IsStoredAtScale(const TPropertyRow& row, const TPersistent& object, const TPersistent& prototype, double scale);

/// An ownerless, never designing object of the class, built on first use and kept. EComponentError when the class
/// cannot be created.
const TPersistent& Prototype(const TClassInfo& info);

}  // namespace plotkit
