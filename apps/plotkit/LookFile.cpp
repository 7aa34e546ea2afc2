#include "plotkit/LookFile.h"

#include "design/LookFiles.h"
#include "foundation/KxLargeIniFile.h"
#include "graph/KxAxis.h"
#include "host/Errors.h"
#include "host/StringList.h"

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

void EraseEntry(TKxIniList& list, const std::string& section, const std::string& ident)
{
    bool isInside = false;
    for (int i = 0; i < list.Count(); ++i) {
        const std::string line = list[i];
        if (line.starts_with('['))
            isInside = SameText(line, "[" + section + "]");
        else if (isInside && SameText(line.substr(0, line.find('=')), ident))
            list.Delete(i--);
    }
}

void EraseWhatIsPlain(TKxIniList& look, TKx2DGraph& plain)
{
    TKxIniList own;
    plain.SaveOutfit(Section, own);
    TStringList sections;
    own.ReadSections(sections);
    for (const std::string& axis : sections.Lines())
        if (axis.find("Axis") != std::string::npos)
            for (const char* ident : {"UserCaption", "ShowCaption", "Scaling"})
                if (look.ReadString(axis, ident, {}) == own.ReadString(axis, ident, {}))
                    EraseEntry(look, axis, ident);
}

void CheckLook(const std::string& fileName)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(fileName, error))
        throw EFileError("Cannot read \"" + fileName + "\": there is no such file");
}

}  // namespace

void SaveLook(TKx2DGraph& graph, TKx2DGraph& plain, const TFitOptions& fits, const std::string& fileName)
{
    CheckLookTarget(fileName);
    TKxLargeIniFile file(fileName);
    graph.SaveOutfit(Section, file);
    EraseWhatIsPlain(file, plain);
    WriteFits(file, fits);
    file.Save();
}

std::vector<std::string> LoadLook(TKx2DGraph& graph, const std::string& fileName)
{
    std::vector<std::string> problems = LoadLookFrom(fileName, graph);
    FollowOwnData(graph);
    return problems;
}

TFitOptions LoadFits(const std::string& fileName, std::vector<std::string>& notes)
{
    CheckLook(fileName);
    const TKxLargeIniFile file(fileName);
    std::vector<std::string> problems;
    TFitOptions fits = ReadFits(file, problems);
    for (const std::string& problem : problems)
        notes.push_back(fileName + ": " + problem);
    return fits;
}

}  // namespace plotkit
