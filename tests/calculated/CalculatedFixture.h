// The job of CalculatedFixture is a graph with a parent series, and calculated series that tests look into.
#pragma once

#include <cmath>

#include "calculated/KxCalculatedSeries.h"
#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxResultLabel.h"
#include "host/Form.h"
#include "series/SeriesFixture.h"
#include "support/MessageOf.h"

namespace plotkit {

/// The square of x, sampled at each pixel.
class TSquares : public TKxCalculatedSeries
{
public:
    using TKxCalculatedSeries::TKxCalculatedSeries;
    ~TSquares() override { BeginDestroy(); }

    double GetY(double x) override { return ++Samples, x * x; }
    std::string GetFormula() const override { return "x^2"; }
    std::string CalculationID() const override { return "My Squares"; }
    void CalculateFunction() override
    {
        ++Calculations;
        if (!Fault.empty())
            throw EMathError(Fault);
        GetContinousLine();
    }

    std::string Fault;
    int Calculations = 0;
    int Samples = 0;
};

/// The names of a section's entries, a blank behind each.
inline std::string KeysOf(const TKxIniList& list, const std::string& section)
{
    TStringList names;
    list.ReadSection(section, names);
    std::string keys;
    for (const std::string& name : names.Lines())
        keys += name + ' ';
    return keys;
}

class TCalculatedTest : public TSeriesTest
{
protected:
    TCalculatedTest() { Parent->SetName("Parent"); }

    template <class T>
    T* MakeChild(const char* name)
    {
        auto* const child = new T(Form.get());
        child->SetName(name);
        child->SetParentSeries(Parent);
        return child;
    }
    TKxResultLabel* MakeLabel(TKxCalculatedSeries* series, const char* identifier)
    {
        auto* const label = new TKxResultLabel(Form.get());
        label->SetParent(Graph);
        label->SetIdentifier(identifier);
        label->SetSeries(series);
        return label;
    }

    TKxDataSeries* Parent = MakeSeries<TKxDataSeries>();
};

}  // namespace plotkit
