#include "plotkit/FollowedPlot.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/KxVector.h"
#include "plotkit/KeptView.h"
#include "plotkit/LogColumns.h"
#include "series/KxNotCalculatedSeries.h"

namespace plotkit {
namespace {

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

std::vector<TFollowedColumn> FollowedColumns(const TColumnChoice& choice)
{
    std::vector<TFollowedColumn> columns{{choice.X.Name, choice.X.Sources}};
    for (const TChosenColumn& column : choice.Ys)
        columns.push_back({column.Name, column.Sources});
    for (const TExtraColumn& extra : choice.Extras)
        columns.push_back({extra.Column.Name, extra.Column.Sources});
    if (choice.Weights)
        columns.push_back({choice.Weights->Name, choice.Weights->Sources});
    return columns;
}

TFollowedPlot::TFollowedPlot(const TPlot& plot, std::unique_ptr<TRowFollower> follower, const TOptions& options)
    : FFollower(std::move(follower)),
      FForm(plot.Form.get()),
      FGraph(plot.Graph),
      FSeries(plot.Series),
      FExtras(plot.Extras),
      FWeights(plot.Weights),
      FIsXPositive(NeedsPositive(options.XScale)),
      FIsYPositive(NeedsPositive(options.YScale)),
      FInterval(static_cast<int>(std::lround(options.Follow.value_or(1) * 1000)))
{}

void TFollowedPlot::Start()
{
    FFollower->OnNews = [this] { Poll(); };
    FTimer = std::make_unique<TTimer>(FInterval, TEvent<>([this] { Poll(); }));
}

void TFollowedPlot::Poll()
{
    TFollowedRows rows = FFollower->Poll();
    const bool isNew = rows.RowCount > 0 || rows.IsRestart;
    if (isNew) {
        for (std::size_t i = 0; i < rows.Values.size(); ++i)
            if (i <= FSeries.size() && (i == 0 ? FIsXPositive : FIsYPositive))
                KeepPositive(rows.Values[i]);
        const TKeptView view(*FGraph);
        for (std::size_t i = 0; i < FSeries.size(); ++i) {
            Put(FSeries[i]->GetXData(), rows.Values[0], rows.IsRestart);
            Put(FSeries[i]->GetYData(), rows.Values[i + 1], rows.IsRestart);
        }
        for (std::size_t i = 0; i < FExtras.size(); ++i)
            Put(FExtras[i], rows.Values[FSeries.size() + 1 + i], rows.IsRestart);
        if (FWeights)
            Put(FWeights, rows.Values.back(), rows.IsRestart);
        // The axes look at values that were replaced when they are painted, and then show all of them.
        if (rows.IsRestart && rows.IsSameTable && view.IsZoomed())
            FForm->Picture();
        if (!rows.IsRestart || rows.IsSameTable)
            view.GiveTo(*FGraph);
    }
    if (OnNote)
        for (const std::string& note : rows.Notes)
            OnNote(note);
    if (OnGrown && isNew)
        OnGrown(rows);
}

}  // namespace plotkit
