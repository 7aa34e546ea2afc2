// The job of KxGraphUpdate is to keep a graph from calculating and drawing series for the length of a scope.
#pragma once

namespace plotkit {

class TKx2DGraph;

/// Balances `BeginUpdate` and `EndUpdate`; nullptr is no graph.
class TKxGraphUpdate
{
public:
    explicit TKxGraphUpdate(TKx2DGraph* graph);
    TKxGraphUpdate(const TKxGraphUpdate&) = delete;
    TKxGraphUpdate& operator=(const TKxGraphUpdate&) = delete;
    ~TKxGraphUpdate();

private:
    TKx2DGraph* FGraph;
};

}  // namespace plotkit
