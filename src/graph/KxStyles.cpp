#include "graph/KxStyles.h"

#include "graph/KxGraph2D.h"
#include "graph/KxPlottable.h"

namespace plotkit {

namespace {

constexpr std::array LineStyleProperties{
    Property<&TKxLineStyle::GetVisible, &TKxLineStyle::SetVisible>("Visible").Always(),
    Property<&TKxLineStyle::GetColor, &TKxLineStyle::SetColor>("Color").Always(),
    Property<&TKxLineStyle::GetStyle, &TKxLineStyle::SetStyle>("Style").Always(),
    Property<&TKxLineStyle::GetWidth, &TKxLineStyle::SetWidth>("Width").Always(),
};

constexpr std::array AreaStyleProperties{
    Property<&TKxAreaStyle::GetVisible, &TKxAreaStyle::SetVisible>("Visible").Always(),
    Property<&TKxAreaStyle::GetDrawXOred, &TKxAreaStyle::SetDrawXOred>("DrawXOred").Always(),
    Property<&TKxAreaStyle::GetColor, &TKxAreaStyle::SetColor>("Color").Always(),
    Property<&TKxAreaStyle::GetStyle, &TKxAreaStyle::SetStyle>("Style").Always(),
};

constexpr std::array PointStyleProperties{
    Property<&TKxPointStyle::GetVisible, &TKxPointStyle::SetVisible>("Visible").Always(),
    Property<&TKxPointStyle::GetColor, &TKxPointStyle::SetColor>("Color").Always(),
    Property<&TKxPointStyle::GetStyle, &TKxPointStyle::SetStyle>("Style").Always(),
    Property<&TKxPointStyle::GetSize, &TKxPointStyle::SetSize>("Size").Always(),
    Property<&TKxPointStyle::GetWidth, &TKxPointStyle::SetWidth>("Width").Always(),
};

}  // namespace

constinit const TClassInfo TKxLineStyle::Class{"TKxLineStyle", &TPersistent::Class, LineStyleProperties};
constinit const TClassInfo TKxAreaStyle::Class{"TKxAreaStyle", &TPersistent::Class, AreaStyleProperties};
constinit const TClassInfo TKxPointStyle::Class{"TKxPointStyle", &TPersistent::Class, PointStyleProperties};

void TKxStyle::TellOwner()
{
    if (auto* series = dynamic_cast<TKxPlottable*>(FOwner))
        series->Modified();
    else if (auto* graph = dynamic_cast<TKx2DGraph*>(FOwner))
        graph->Modified();
    else if (auto* control = dynamic_cast<TControl*>(FOwner))
        control->Invalidate();
}

void TKxLineStyle::Assign(const TPersistent& source)
{
    const auto* style = dynamic_cast<const TKxLineStyle*>(&source);
    if (!style)
        return TPersistent::Assign(source);
    Change(FValues, style->FValues);
}

void TKxAreaStyle::Assign(const TPersistent& source)
{
    const auto* style = dynamic_cast<const TKxAreaStyle*>(&source);
    if (!style)
        return TPersistent::Assign(source);
    Change(FValues, style->FValues);
}

void TKxPointStyle::Assign(const TPersistent& source)
{
    const auto* style = dynamic_cast<const TKxPointStyle*>(&source);
    if (!style)
        return TPersistent::Assign(source);
    Change(FValues, style->FValues);
}

}  // namespace plotkit
