#include <QFileDialog>
#include <QFileInfo>

#include "foundation/KxLargeIniFile.h"
#include "graph/KxGraph2D.h"
#include "host/Errors.h"
#include "widgets/KxLookEditor.h"

namespace plotkit {

namespace {

constexpr const char* Section = "Graph";
constexpr const char* LookFiles = "Looks (*.ini)";

std::vector<std::string> LoadOutfit(TKx2DGraph& graph, const std::string& fileName)
{
    TKxLargeIniFile file(fileName);
    if (!file.SectionExists(Section))
        throw EConvertError(fileName + ": no look of a graph, there is no section [" + Section + "]");
    std::vector<TKxIniProblem> problems;
    file.SetProblems(&problems);
    graph.LoadOutfit(Section, file);
    std::vector<std::string> lines;
    for (const TKxIniProblem& problem : problems)
        lines.push_back("[" + problem.Section + "] " + problem.Ident + ": \"" + problem.Value + "\" cannot be used");
    return lines;
}

void SaveOutfit(TKx2DGraph& graph, const std::string& fileName)
{
    TKxLargeIniFile file(fileName);
    graph.SaveOutfit(Section, file);
    file.Save();
}

}  // namespace

void TKxLookEditor::LoadFrom(const std::string& fileName)
{
    if (!Graph())
        return;
    const std::string step = "Look from " + QFileInfo(QString::fromStdString(fileName)).fileName().toStdString();
    QStringList notes;
    Try([&] {
        FHistory->Perform(step, [&] {
            for (const std::string& note : OnLoad ? OnLoad(fileName) : LoadOutfit(*Graph(), fileName))
                notes << QString::fromStdString(note);
        });
    });
    if (!notes.isEmpty())
        Say(notes.join('\n'));
}

void TKxLookEditor::SaveTo(const std::string& fileName)
{
    if (!Graph())
        return;
    Try([&] {
        if (OnSave)
            OnSave(fileName);
        else
            SaveOutfit(*Graph(), fileName);
    });
}

void TKxLookEditor::AskWhatToLoad()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Load look"), FFolder, tr(LookFiles));
    if (file.isEmpty())
        return;
    FFolder = QFileInfo(file).absolutePath();
    LoadFrom(file.toStdString());
}

void TKxLookEditor::AskWhereToSave()
{
    QFileDialog dialog(this, tr("Save look"), FFolder, tr(LookFiles));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("ini");
    // Saving changes only the look in a file that is there.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (dialog.exec() == QDialog::Accepted)
        SaveTo(dialog.selectedFiles().front().toStdString());
}

}  // namespace plotkit
