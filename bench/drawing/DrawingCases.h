// The job of DrawingCases is the cases that each library goes through.
#pragma once

#include "drawing/Plot.h"

namespace bench {

void RegisterCases(const TLibrary& library);

/// Instead of benchmarks: "--memory LIBRARY" draws ten million points once, for the one who measures the process;
/// "--pictures FOLDER" leaves a picture of each look to be looked at; "--bare" does nothing at all. False for other
/// arguments.
bool RunInstead(int count, char** arguments, const std::vector<TLibrary>& libraries);

}  // namespace bench
