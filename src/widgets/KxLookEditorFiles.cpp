#include <QFileDialog>
#include <QFileInfo>

#include "design/LookFiles.h"
#include "widgets/KxLookEditor.h"

namespace plotkit {

namespace {

constexpr const char* LookFiles = "Looks (*.ini)";

}  // namespace

void TKxLookEditor::LoadFrom(const std::string& fileName)
{
    if (!Graph())
        return;
    const std::string step = "Look from " + QFileInfo(QString::fromStdString(fileName)).fileName().toStdString();
    QStringList notes;
    Try([&] {
        FHistory->Perform(step, [&] {
            for (const std::string& note : OnLoad ? OnLoad(fileName) : LoadLookFrom(fileName, *Graph()))
                notes << QString::fromStdString(note);
        });
    });
    constexpr int mostNotes = 4;
    const int rest = static_cast<int>(notes.size()) - mostNotes;
    if (rest > 1)
        notes = notes.mid(0, mostNotes) << tr("... and %1 more").arg(rest);
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
            SaveLookTo(fileName, *Graph());
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
    if (dialog.exec() != QDialog::Accepted)
        return;
    FFolder = dialog.directory().absolutePath();
    SaveTo(dialog.selectedFiles().front().toStdString());
}

}  // namespace plotkit
