#include <utility>
#include <vector>

#include "calculated/KxCalculatedSeries.h"
#include "foundation/KxLargeIni.h"
#include "graph/KxResultLabel.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr const char* NoResult = "...";

}  // namespace

void TKxCalculatedSeries::EraseResults(TKxIniList& list, std::optional<std::string>& section)
{
    if (!section)
        return;
    list.EraseSection(*section);
    section.reset();
    // Sections are made at the end, behind an empty line: one would stay behind each time.
    while (list.Count() > 0 && list[list.Count() - 1].empty())
        list.Delete(list.Count() - 1);
}

std::string TKxCalculatedSeries::GetOwnIndex() const
{
    int number = 1;
    if (FParentSeries)
        for (const TKxPlottable* const child : FParentSeries->Childs()) {
            if (child == this)
                break;
            if (&child->ClassInfo() == &ClassInfo())
                ++number;
        }
    return number > 1 ? " (" + std::to_string(number) + ")" : std::string();
}

std::string TKxCalculatedSeries::ParentSection() const
{
    std::string section = CalculationID() + GetOwnIndex();
    std::erase(section, ' ');
    return section;
}

void TKxCalculatedSeries::WriteResults(TKxIniList& list, const std::string& section)
{
    list.WriteString(section, "Calculation", CalculationID());
    list.WriteString(section, "Caption", GetCaption());
    list.WriteString(section, "Formula", GetFormula());
    WriteLimits(list, section);
}

void TKxCalculatedSeries::Publish()
{
    if (FParentSeries) {
        const bool hasMoved = FParentSection && *FParentSection != ParentSection();
        if (hasMoved)
            RenumberResultsOf(*FParentSeries);
        EraseResults(FParentSeries->CaptionIni(), FParentSection);
        FParentSection = ParentSection();
        WriteResults(FParentSeries->CaptionIni(), *FParentSection);
    }
    EraseResults(CaptionIni(), FOwnSection);
    FOwnSection = GetName();
    WriteResults(CaptionIni(), *FOwnSection);
    RefreshLabels();
}

void TKxCalculatedSeries::RenumberResultsOf(TKxSeries& parent)
{
    std::vector<TKxCalculatedSeries*> moved;
    for (TKxPlottable* const child : parent.Childs())
        if (auto* const series = dynamic_cast<TKxCalculatedSeries*>(child))
            if (series->FParentSection && *series->FParentSection != series->ParentSection())
                moved.push_back(series);
    for (TKxCalculatedSeries* const series : moved)
        EraseResults(parent.CaptionIni(), series->FParentSection);
    for (TKxCalculatedSeries* const series : moved) {
        series->FParentSection = series->ParentSection();
        series->WriteResults(parent.CaptionIni(), *series->FParentSection);
    }
}

void TKxCalculatedSeries::Withdraw()
{
    ClearResult();
    Modified();
    if (FParentSeries)
        EraseResults(FParentSeries->CaptionIni(), FParentSection);
    EraseResults(CaptionIni(), FOwnSection);
    RefreshLabels();
}

void TKxCalculatedSeries::RefreshLabels()
{
    for (TKxResultLabel* const label : std::vector(FResultLabels.Items()))
        if (FResultLabels.IndexOf(label) >= 0)
            label->SetResult();
}

std::string TKxCalculatedSeries::ResultText(const std::string& identifier) const
{
    auto& list = const_cast<TKxCalculatedSeries*>(this)->CaptionIni();
    return FOwnSection ? list.ReadString(*FOwnSection, identifier, NoResult) : NoResult;
}

void TKxCalculatedSeries::AddResultLabel(TKxResultLabel* label)
{
    if (FResultLabels.IndexOf(label) < 0)
        FResultLabels.Add(label);
}

void TKxCalculatedSeries::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxSeries::WriteToIni(list, section);
    list.WriteComponentRef(section, "ParentSeries", FParentSeries);
    list.WriteBool(section, "ParentWeight", FParentWeight);
    list.WriteBool(section, "AutoStart", GetAutoStart());
    list.WriteBool(section, "AutoStop", GetAutoStop());
    list.WriteBool(section, "CoupleCalcAndDisplay", GetCoupleCalculationAndDisplay());
    list.WriteBool(section, "DisplayAutoStart", GetDisplayAutoStart());
    list.WriteBool(section, "DisplayAutoStop", GetDisplayAutoStop());
    list.WriteString(section, "Calculation", CalculationID());
    list.WriteString(section, "Formula", GetFormula());
    WriteLimits(list, section);
}

void TKxCalculatedSeries::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxSeries::ReadFromIni(list, section);
    TKxNotCalculatedSeries* parent = FParentSeries;
    const bool isMoved = list.ReadComponentRef(section, "ParentSeries", parent);
    FParentWeight = list.ReadBool(section, "ParentWeight", FParentWeight);
    ReadLimits(list, section);
    if (isMoved) {
        const TRestore<bool> reading(FIsReading, true);
        SetParentSeries(parent);
    }
    SettingsChanged();
}

}  // namespace plotkit
