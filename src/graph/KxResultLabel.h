// The job of KxResultLabel is a label that shows one named result of a series.
#pragma once

#include <string>

#include "graph/KxLabel.h"
#include "graph/KxResultSource.h"

namespace plotkit {

/// The name of a result.
using TKxIDString = std::string;

class TKxResultLabel : public TKxCustomLabel
{
public:
    using TKxCustomLabel::TKxCustomLabel;
    ~TKxResultLabel() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKxResultSource* GetSeries() const { return FSeries; }
    /// The series lists the label among its result labels as long as the link stands.
    void SetSeries(TKxResultSource* series);
    const TKxIDString& GetIdentifier() const { return FIdentifier; }
    void SetIdentifier(const TKxIDString& identifier);
    int GetDigits() const { return FDigits; }
    /// Digits of a number that is shown, 0 to 18, values outside are clamped; 0 means all.
    void SetDigits(int digits);

    /// Reads the result again. Series call it whenever their results change.
    void SetResult();

    /// As all labels, then the digits; which result is shown belongs to the form.
    void SaveOutfit(const std::string& section, TKxIniList& list) override;
    void LoadOutfit(const std::string& section, TKxIniList& list) override;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    TKxResultSource* FSeries = nullptr;
    TComponent* FSeriesComponent = nullptr;  ///< the same object; may be asked for its address while it goes
    TKxIDString FIdentifier;
    int FDigits = 0;
};

}  // namespace plotkit
