// The job of FollowedPlot is to let a graph grow with the file that its columns were read from.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/Timer.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/GraphBuilder.h"
#include "plotkit/Options.h"
#include "plotkit/table/RowFollower.h"

namespace plotkit {

/// The abscissae, then the ordinates.
std::vector<TFollowedColumn> FollowedColumns(const TColumnChoice& choice);

class TFollowedPlot
{
public:
    /// `plot` was built with `options`, which say how often the follower of its columns looks, and outlives this
    /// object.
    TFollowedPlot(const TPlot& plot, std::unique_ptr<TRowFollower> follower, const TOptions& options);
    TFollowedPlot(const TFollowedPlot&) = delete;
    TFollowedPlot& operator=(const TFollowedPlot&) = delete;

    /// Starts looking on the clock of the host in force.
    void Start();
    /// Looks now.
    void Poll();

    /// Told of each thing in the file that could not be read, and of a file that was replaced.
    std::function<void(const std::string&)> OnNote;
    /// Called behind each change of the graph.
    std::function<void(const TFollowedRows&)> OnGrown;

private:
    std::unique_ptr<TRowFollower> FFollower;
    TForm* FForm;
    TKx2DGraph* FGraph;
    std::vector<TKxNotCalculatedSeries*> FSeries;
    std::vector<TKxCustomRealVector*> FExtras;
    TKxRealVector* FWeights;
    bool FIsXPositive, FIsYPositive;
    int FInterval;
    std::unique_ptr<TTimer> FTimer;
};

}  // namespace plotkit
