#include "design/LookFiles.h"

#include <algorithm>

#include "foundation/KxLargeIniFile.h"
#include "graph/KxGraph2D.h"
#include "host/Errors.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

constexpr const char* Section = "Graph";

}  // namespace

std::vector<std::string> LoadLookFrom(const std::string& fileName, TKx2DGraph& graph)
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
    std::vector<std::string> lines;
    for (const TKxIniProblem& problem : problems)
        lines.push_back(fileName + ": [" + problem.Section + "] " + problem.Ident + ": \"" + problem.Value +
                        "\" cannot be used");
    return lines;
}

void CheckLookTarget(const std::string& fileName)
{
    std::error_code error;
    if (!std::filesystem::exists(fileName, error))
        return;
    const TKxLargeIniFile file(fileName);
    TStringList sections;
    file.ReadSections(sections);
    const bool isBinary = file.Text().find('\0') != std::string::npos;
    const bool isEmpty = std::ranges::all_of(file.Lines(), &std::string::empty);
    if (isBinary || (!isEmpty && sections.Lines().empty()))
        throw EFileError("\"" + fileName + "\" holds something else than settings: it was left as it is");
}

void SaveLookTo(const std::string& fileName, TKx2DGraph& graph)
{
    CheckLookTarget(fileName);
    TKxLargeIniFile file(fileName);
    graph.SaveOutfit(Section, file);
    file.Save();
}

}  // namespace plotkit
