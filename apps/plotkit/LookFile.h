// The job of LookFile is to keep the look of a graph in a file and to give it to another graph.
#pragma once

#include <string>
#include <vector>

#include "graph/KxGraph2D.h"
#include "plotkit/fit/FitOptions.h"

namespace plotkit {

/// Writes the look into the file's sections "Graph" and "Graph.…", the fits into "Fits"; whatever else the file holds
/// stays. Axis captions and scalings that are those of `plain`, a graph of the same data without any look, are left
/// out: with other data they would be wrong. EFileError.
void SaveLook(TKx2DGraph& graph, TKx2DGraph& plain, const TFitOptions& fits, const std::string& fileName);

/// Gives the graph what the file says; what it does not mention stays as it is. Axes whose ends follow the data follow
/// their own. Returns a line for each value that could not be used, naming file, section and key. EFileError when there
/// is no such file, EConvertError when it holds no look.
std::vector<std::string> LoadLook(TKx2DGraph& graph, const std::string& fileName);

/// The fits that are to be made before the graph gets the look; `notes` say which of them cannot be read. EFileError
/// when there is no such file.
TFitOptions LoadFits(const std::string& fileName, std::vector<std::string>& notes);

}  // namespace plotkit
