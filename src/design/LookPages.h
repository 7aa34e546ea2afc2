// The job of LookPages is to say which properties of a part make up its look, under which names, and how they are
// edited.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "design/LookProperty.h"

namespace plotkit {

class TKx2DGraph;

/// How a property is shown; `leByKind` follows the kind of its row.
enum TLookEditor : std::uint8_t
{
    leByKind,
    leCaption,  ///< text with rich markup
    leFontName,
    leLineStyle,    ///< pen style by its picture
    leFillStyle,    ///< brush style by its picture
    lePointSymbol,  ///< symbol by its picture
    leAxisValue,    ///< a real, or a date and time where the axis shows dates
    leTenths,       ///< an integer in tenths of what is shown
    leResult,       ///< name of a result of the label's series
};

struct TLookRow
{
    std::string_view Path;  ///< below the prefix of the page
    std::string_view Text;
    TLookEditor Editor = leByKind;
    double Min = std::numeric_limits<std::int32_t>::min();
    double Max = std::numeric_limits<std::int32_t>::max();
    std::span<const std::string_view> Choices = {};  ///< texts for the values of an enumeration
    std::string_view Needs = {};                     ///< has an effect only while this property, below the prefix too,
    std::string_view NeedsValue = {};                ///< has this value, written as in files
    std::string_view Unit = {};
};

struct TLookPage
{
    std::string_view Text;
    std::string_view Prefix;  ///< of the paths: empty, or "LineStyle." and the like
    std::span<const TLookRow> Rows;

    std::string PathOf(const TLookRow& row) const { return std::string(Prefix) + std::string(row.Path); }
};

/// The pages of a part, those for what is most often changed first; only such as the part has properties for.
std::vector<TLookPage> LookPages(TComponent& component);
/// Whether the part has the property: the pages of a family serve all its classes.
bool HasLookRow(TComponent& component, const TLookPage& page, const TLookRow& row);
/// Whether the property has an effect as the part stands.
bool IsLookRowEnabled(TComponent& component, const TLookPage& page, const TLookRow& row);

/// What a property is called in messages: "Width (Line)"; the path itself for one that no page shows.
std::string LookRowName(TComponent& component, std::string_view path);

/// Names of the results that a label can show.
std::vector<std::string> LookResults(const TComponent& label);

/// Components of the graph that a link of one of its parts can be set to, in the order of the outline.
std::vector<TComponent*> LookCandidates(TKx2DGraph& graph, TComponent& component, const std::string& path);

}  // namespace plotkit
