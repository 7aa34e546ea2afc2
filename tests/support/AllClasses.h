// The job of AllClasses is the list of every class that a component tree can be made of.
#pragma once

#include <vector>

#include "calculated/CalculatedClasses.h"
#include "controls/ControlsClasses.h"
#include "data/DataClasses.h"
#include "graph/GraphClasses.h"
#include "host/Streaming.h"
#include "series/SeriesClasses.h"

namespace plotkit {

inline std::vector<const TClassInfo*> AllClasses()
{
    std::vector<const TClassInfo*> classes;
    for (const auto folder :
         {HostClasses(), DataClasses(), GraphClasses(), ControlsClasses(), SeriesClasses(), CalculatedClasses()})
        classes.insert(classes.end(), folder.begin(), folder.end());
    return classes;
}

}  // namespace plotkit
