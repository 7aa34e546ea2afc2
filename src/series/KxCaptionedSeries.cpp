#include "series/KxCaptionedSeries.h"

#include "foundation/KxLargeIni.h"
#include "graph/KxAttached.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

TKxCaptionedSeries::TKxCaptionedSeries(TComponent* owner)
    : TKxPlottable(owner), FCaptionIni(std::make_unique<TKxIniList>())
{}

TKxCaptionedSeries::~TKxCaptionedSeries() = default;

void TKxCaptionedSeries::KeepCaption()
{
    FCaptionIni->WriteString("Datapoints", "Caption", FCaption);
}

void TKxCaptionedSeries::SetCaption(const TKxCaption& caption)
{
    FCaption = caption;
    // Crossed on purpose: what is typed over an automatic caption becomes the user's one.
    (FDoUserCaption ? FAutoCaption : FUserCaption) = FCaption;
    UpdateLegend();
    KeepCaption();
}

void TKxCaptionedSeries::SetDoUserCaption(bool user)
{
    if (user == FDoUserCaption)
        return;
    FDoUserCaption = user;
    if (user)
        FCaption = FUserCaption;
    KeepCaption();
}

void TKxCaptionedSeries::SetUserCaption(const std::string& caption)
{
    if (caption == FUserCaption)
        return;
    FUserCaption = caption;
    if (FDoUserCaption)
        FCaption = FUserCaption;
    KeepCaption();
}

void TKxCaptionedSeries::SetAutoCaption(const std::string& caption)
{
    FAutoCaption = caption;
    if (!FDoUserCaption)
        FCaption = FAutoCaption;
    KeepCaption();
}

void TKxCaptionedSeries::SetIncludeInLegend(bool include)
{
    if (include == FIncludeInLegend)
        return;
    FIncludeInLegend = include;
    UpdateLegend();
}

void TKxCaptionedSeries::UpdateLegend()
{
    if (!FWorld)
        return;
    const TList<TKxAttachedLegend>& legends = FWorld->Graph().AttachedList();
    for (int i = 0; i < legends.Count(); ++i)
        legends[i]->ItemsModified();
}

void TKxCaptionedSeries::ShownChanged()
{
    UpdateLegend();
    if (FWorld)
        FWorld->Invalidate();
}

void TKxCaptionedSeries::SetWorld(TKxDrawingWorld* world)
{
    FWorld = world;
    WatchFor(world);
}

void TKxCaptionedSeries::WriteCaptionToIni(TKxIniList& list, const std::string& section) const
{
    list.WriteBool(section, "DoUserCaption", FDoUserCaption);
    list.WriteString(section, "UserCaption", FUserCaption);
    list.WriteBool(section, "IncludeInLegend", FIncludeInLegend);
}

void TKxCaptionedSeries::ReadCaptionFromIni(const TKxIniList& list, const std::string& section)
{
    FDoUserCaption = list.ReadBool(section, "DoUserCaption", FDoUserCaption);
    FUserCaption = list.ReadString(section, "UserCaption", FUserCaption);
    if (FDoUserCaption) {
        FCaption = FUserCaption;
        KeepCaption();
        UpdateLegend();
    }
    SetIncludeInLegend(list.ReadBool(section, "IncludeInLegend", true));
}

void TKxCaptionedSeries::Notification(TComponent* component, TOperation operation)
{
    TKxPlottable::Notification(component, operation);
    if (operation == opRemove && component == FWorld)
        FWorld = nullptr;
}

}  // namespace plotkit
