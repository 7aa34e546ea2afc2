// The job of ControlProperties is the rows that control classes publish alike.
#pragma once

#include <algorithm>

#include "host/WindowControl.h"

namespace plotkit {

/// The rows of several tables in one, in order.
template <std::size_t... Counts>
constexpr auto JoinRows(const std::array<TPropertyRow, Counts>&... tables)
{
    std::array<TPropertyRow, (Counts + ...)> joined{};
    auto at = joined.begin();
    ((at = std::copy(tables.begin(), tables.end(), at)), ...);
    return joined;
}

constexpr TPropertyRow ControlFontRow()
{
    constexpr auto font = static_cast<TFont& (TControl::*)()>(&TControl::GetFont);
    TPropertyRow row = Sub<font>("Font");
    row.StoredWhen = detail::Asking<&TControl::IsFontStored>();
    return row;
}

/// Colour and font come before the flags that make them follow the parent, so that reading ends with the flags as
/// written.
inline constexpr std::array ControlLookRows{
    Property<&TControl::GetColor, &TControl::SetColor, &TControl::IsColorStored>("Color"),
    ControlFontRow(),
    Property<&TControl::GetParentColor, &TControl::SetParentColor>("ParentColor"),
    Property<&TControl::GetParentFont, &TControl::SetParentFont>("ParentFont"),
    Property<&TControl::GetEnabled, &TControl::SetEnabled>("Enabled"),
    Property<&TControl::GetVisible, &TControl::SetVisible>("Visible"),
    Reference<&TControl::GetPopupMenu, &TControl::SetPopupMenu>("PopupMenu"),
};

inline constexpr std::array ControlEventRows{
    Event<TControl, &TControl::OnClick>("OnClick"),
    Event<TControl, &TControl::OnContextPopup>("OnContextPopup"),
    Event<TControl, &TControl::OnDblClick>("OnDblClick"),
    Event<TControl, &TControl::OnMouseDown>("OnMouseDown"),
    Event<TControl, &TControl::OnMouseMove>("OnMouseMove"),
    Event<TControl, &TControl::OnMouseUp>("OnMouseUp"),
    Event<TControl, &TControl::OnMouseWheel>("OnMouseWheel"),
};

}  // namespace plotkit
