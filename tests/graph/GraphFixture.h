// The job of GraphFixture is what tests of the graph panel share: a graph on a form and a series that keeps a log.
#pragma once

#include <gtest/gtest.h>

#include "foundation/KxLargeIni.h"
#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "support/Commands.h"

namespace plotkit {

/// A series that writes down what the graph asks of it and draws a short line at its place.
class TFakeSeries : public TKxPlottable
{
public:
    TFakeSeries(TComponent* owner, std::string name, std::string* log = nullptr)
        : TKxPlottable(owner), FName(std::move(name)), FLog(log)
    {}

    ~TFakeSeries() noexcept override { BeginDestroy(); }

    void CalculatePoints() override { Say("calc"); }
    void DrawLine() override
    {
        Say("line");
        if (World) {
            Brush = World->Canvas().Brush.State();
            World->Canvas().MoveTo(1, 2);
            World->Canvas().LineTo(5, 2);
        }
    }
    bool HasPointSymbols() const override { return Points; }
    void DrawPoints() override { Say("points"); }
    void Modified() override { Say("modified"); }
    void WriteToIni(TKxIniList& list, const std::string& at) override { list.WriteString(at, "Name", FName); }
    void ReadFromIni(TKxIniList& list, const std::string& at) override { FName = list.ReadString(at, "Name", "?"); }
    TKxSeriesList& Childs() override { return FChilds; }
    TKxIniList& CaptionIni() override { return FCaptionIni; }
    const std::string& GetCaption() const override { return FName; }
    bool GetIncludeInLegend() const override { return true; }
    bool UsesAxis(const TKxAxis& axis) const override { return Axis == &axis; }

    TKxDrawingWorld* World = nullptr;
    const TKxAxis* Axis = nullptr;
    TBrushState Brush;
    bool Points = false;

private:
    void Say(const char* what)
    {
        if (FLog)
            *FLog += what + FName + " ";
    }

    std::string FName;
    std::string* FLog;
    TKxSeriesList FChilds;
    TKxIniList FCaptionIni;
};

/// A legend that counts what it is told, with a gap of 4 towards the data.
class TFakeLegend : public TKxAttachedLegend
{
public:
    using TKxAttachedLegend::TKxAttachedLegend;
    ~TFakeLegend() override { BeginDestroy(); }
    void ItemsModified() override { ++Refreshed; }
    TKxAxisPos GetInGraphPosition() const override { return Side; }
    int GetOutsideGap() const override { return 4; }
    void SaveOutfit(const std::string& section, TKxIniList& list) override { list.WriteInteger(section, "Side", Side); }
    void LoadOutfit(const std::string& section, TKxIniList& list) override
    {
        Side = list.ReadOrdinal(section, "Side", Side, AxisPosNames.size());
    }

    int Refreshed = 0;
    TKxAxisPos Side = AxRightPos;
};

struct TGraphTest : testing::Test
{
    TGraphTest() { Graph = AddGraph("Graph1"); }

    TKx2DGraph* AddGraph(const char* name)
    {
        auto* graph = new TKx2DGraph(&Form);
        graph->SetName(name);
        graph->SetParent(&Form);
        return graph;
    }

    TKxDrawingWorld& World() { return Graph->World(); }

    TForm Form{nullptr};
    TKx2DGraph* Graph;
    std::string Log;
};

}  // namespace plotkit
