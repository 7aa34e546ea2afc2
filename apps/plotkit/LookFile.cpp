#include "plotkit/LookFile.h"

#include "foundation/KxLargeIniFile.h"
#include "graph/KxAxis.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr const char* Section = "Graph";

/// The ends that a file names are those of the data it was made with.
void FollowOwnData(TKx2DGraph& graph)
{
    for (TKxAxis* axis : {graph.GetPrimaryXAxis(), graph.GetPrimaryYAxis()})
        if (axis && (axis->GetStartEnd() != AxFixed || axis->GetStopEnd() != AxFixed))
            axis->RedoRanges();
}

}  // namespace

void SaveLook(TKx2DGraph& graph, const std::string& fileName)
{
    TKxLargeIniFile file(fileName);
    graph.SaveOutfit(Section, file);
    file.Save();
}

std::vector<std::string> LoadLook(TKx2DGraph& graph, const std::string& fileName)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(fileName, error))
        throw EFileError("Cannot read \"" + fileName + "\": there is no such file");
    TKxLargeIniFile file(fileName);
    if (!file.SectionExists(Section))
        throw EConvertError(fileName + ": no look of a graph, there is no section [" + Section + "]");
    std::vector<TKxIniProblem> problems;
    file.SetProblems(&problems);
    graph.LoadOutfit(Section, file);
    FollowOwnData(graph);
    std::vector<std::string> lines;
    for (const TKxIniProblem& problem : problems)
        lines.push_back(fileName + ": [" + problem.Section + "] " + problem.Ident + ": \"" + problem.Value +
                        "\" cannot be used");
    return lines;
}

}  // namespace plotkit
