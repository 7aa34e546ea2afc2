// The job of KxLookField is to make the widget that edits one property of a part's look.
#pragma once

#include <QWidget>
#include <functional>

#include "design/LookPages.h"

namespace plotkit {

class TKxRecentColors;

struct TKxLookField
{
    QWidget* Widget = nullptr;
    bool HasOwnText = false;  ///< says itself what it is for, as a check box does
    /// Shows a value of the property without telling of it.
    std::function<void(const TLookValue&)> Show;
    bool IsWide = false;  ///< takes what room there is
};

struct TKxLookFieldWish
{
    TKx2DGraph& Graph;
    TComponent& Part;
    std::string Path;
    const TLookRow& Row;
    TKxRecentColors* Recent;
    /// The user has given another value; it joins those before while he types or turns on.
    std::function<void(const TLookValue&, bool joins)> OnEdited;
};

/// The widget does not show a value yet.
TKxLookField NewLookField(const TKxLookFieldWish& wish, QWidget* parent);

}  // namespace plotkit
