// The job of LookFiles is to keep the look of a graph in a file and to take it from there.
#pragma once

#include <string>
#include <vector>

namespace plotkit {

class TKx2DGraph;

/// In the section "Graph" and those below it. Loading returns what could not be used, a line each. EFileError,
/// EConvertError, both with the name of the file; nothing has changed then.
std::vector<std::string> LoadLookFrom(const std::string& fileName, TKx2DGraph& graph);
/// Into a file that is not there, is empty or holds sections, the others of which stay. EFileError for other files.
void CheckLookTarget(const std::string& fileName);
void SaveLookTo(const std::string& fileName, TKx2DGraph& graph);

}  // namespace plotkit
