// The job of LookStates is to tell which values of a graph's look have changed, at a cost that lets every edit ask.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "design/LookProperty.h"

namespace plotkit {

class TKx2DGraph;

struct TLookDifference
{
    TComponent* Part;
    std::string Path;          ///< empty for what no property tells
    TLookValue Before, After;  ///< nullptr for a number that follows from others
};

class TLookStates
{
public:
    /// Takes in how the parts of the graph stand.
    void Follow(TKx2DGraph& graph) { static_cast<void>(Changes(graph)); }
    /// What has changed since it was asked or followed last; parts that have come or gone are left out.
    std::vector<TLookDifference> Changes(TKx2DGraph& graph);

private:
    struct TPart
    {
        TComponent* Part;
        std::weak_ptr<const void> Alive;
        const std::vector<TLookPath>* Paths;
        std::vector<TLookValue> Values;  ///< one for each path
        std::string Hidden;
    };

    TPart NewPart(TComponent& part);
    void FollowOutline(TKx2DGraph& graph);
    static void Compare(TPart& part, std::vector<TLookDifference>& differences);

    std::map<const TClassInfo*, std::vector<TLookPath>> FPaths;
    std::vector<TPart> FParts;
};

}  // namespace plotkit
