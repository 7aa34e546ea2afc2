#include "plotkit/FollowedPlot.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/KxVector.h"
#include "plotkit/KeptView.h"
#include "plotkit/LogColumns.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

std::vector<TFollowedColumn> FollowedColumns(const TColumnChoice& choice)
{
    std::vector<TFollowedColumn> columns{{choice.X.Name, choice.X.Sources}};
    for (const TChosenColumn& column : choice.Ys)
        columns.push_back({column.Name, column.Sources});
    if (choice.Weights)
        columns.push_back({choice.Weights->Name, choice.Weights->Sources});
    return columns;
}

void Put(TKxCustomRealVector* data, std::vector<double> values, bool isRestart)
{
    // The user may have given the series other data meanwhile.
    auto* vector = dynamic_cast<TKxRealVector*>(data);
    if (!vector)
        return;
    if (isRestart)
        vector->Take(std::move(values));
    else
        vector->Append(values);
}

}  // namespace

TFollowedPlot::TFollowedPlot(const TPlot& plot, const TCsvTable& table, const TColumnChoice& choice,
                             const TOptions& options)
    : FFollower(table, FollowedColumns(choice), options.Reading),
      FGraph(plot.Graph),
      FSeries(plot.Series),
      FWeights(plot.Weights),
      FIsXPositive(NeedsPositive(options.XScale)),
      FIsYPositive(NeedsPositive(options.YScale)),
      FInterval(static_cast<int>(std::lround(options.Follow.value_or(1) * 1000)))
{}

void TFollowedPlot::Start()
{
    FTimer = std::make_unique<TTimer>(FInterval, TEvent<>([this] { Poll(); }));
}

void TFollowedPlot::Poll()
{
    TFollowedRows rows = FFollower.Poll();
    if (rows.RowCount > 0) {
        for (std::size_t i = 0; i <= FSeries.size(); ++i)
            if (i == 0 ? FIsXPositive : FIsYPositive)
                KeepPositive(rows.Values[i]);
        const TKeptView view(*FGraph);
        for (std::size_t i = 0; i < FSeries.size(); ++i) {
            Put(FSeries[i]->GetXData(), rows.Values[0], rows.IsRestart);
            Put(FSeries[i]->GetYData(), rows.Values[i + 1], rows.IsRestart);
        }
        if (FWeights)
            Put(FWeights, rows.Values.back(), rows.IsRestart);
        if (!rows.IsRestart)
            view.GiveTo(*FGraph);
    }
    if (OnNote)
        for (const std::string& note : rows.Notes)
            OnNote(note);
    if (OnGrown && rows.RowCount > 0)
        OnGrown(rows);
}

}  // namespace plotkit
