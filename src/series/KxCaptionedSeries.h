// The job of KxCaptionedSeries is what a series is called: its captions, its place in legends, the graph that shows it.
#pragma once

#include <memory>
#include <string>

#include "graph/KxCaption.h"
#include "graph/KxPlottable.h"

namespace plotkit {

class TKxDrawingWorld;

class TKxCaptionedSeries : public TKxPlottable
{
public:
    explicit TKxCaptionedSeries(TComponent* owner);
    ~TKxCaptionedSeries() override;

    /// The plotting area that the series is drawn on.
    TKxDrawingWorld* World() const { return FWorld; }

    /// The caption that is shown. Setting it also stores it as the automatic caption while `DoUserCaption` is on and as
    /// the user's otherwise. Every change is written to `CaptionIni`, section "Datapoints", key "Caption".
    const std::string& GetCaption() const override { return FCaption; }
    void SetCaption(const TKxCaption& caption);
    bool GetDoUserCaption() const { return FDoUserCaption; }
    /// Switching on shows the user's caption, switching off leaves what is shown.
    void SetDoUserCaption(bool user);
    const std::string& GetUserCaption() const { return FUserCaption; }
    void SetUserCaption(const std::string& caption);
    const std::string& GetAutoCaption() const { return FAutoCaption; }
    void SetAutoCaption(const std::string& caption);
    bool GetIncludeInLegend() const override { return FIncludeInLegend; }
    void SetIncludeInLegend(bool include);
    TKxIniList& CaptionIni() override { return *FCaptionIni; }

protected:
    /// Every legend of the graph is told that its items changed.
    void UpdateLegend();
    void SetWorld(TKxDrawingWorld* world);
    void WriteCaptionToIni(TKxIniList& list, const std::string& section) const;
    void ReadCaptionFromIni(const TKxIniList& list, const std::string& section);
    void ShownChanged() override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    void KeepCaption();

    TKxDrawingWorld* FWorld = nullptr;
    std::unique_ptr<TKxIniList> FCaptionIni;
    std::string FCaption, FUserCaption, FAutoCaption;
    bool FDoUserCaption = false;
    bool FIncludeInLegend = true;
};

}  // namespace plotkit
