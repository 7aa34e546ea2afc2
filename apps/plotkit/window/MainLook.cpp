#include <QFileDialog>

#include "plotkit/window/MainWindow.h"
#include "widgets/KxLookEditor.h"
#include "widgets/KxLookOpener.h"

namespace plotkit {

namespace {

const char* const LookFiles = "Looks (*.ini)";

}  // namespace

void TMainWindow::AskForLook()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Load look"), Folder(), tr(LookFiles));
    if (!file.isEmpty())
        UseLook(file.toStdString());
}

void TMainWindow::AskWhereToSaveLook()
{
    QFileDialog dialog(this, tr("Save look"), Folder(), tr(LookFiles));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("ini");
    // Saving changes only the look in a file that is there.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (dialog.exec() == QDialog::Accepted)
        FDocument->SaveLookAs(dialog.selectedFiles().front().toStdString());
}

void TMainWindow::UseLook(const std::string& fileName)
{
    Rebuild([&] { FDocument->UseLook(fileName); });
}

void TMainWindow::EditLook(TComponent* part)
{
    if (!FLook) {
        FLook = new TKxLookEditor(this);
        FLook->SetFolder(Folder());
        FLook->OnLoad = [this](const std::string& fileName) { return FDocument->Wear(fileName); };
        FLook->OnSave = [this](const std::string& fileName) { FDocument->SaveLookAs(fileName); };
        FLook->SetGraph(FDocument->Plot().Graph);
    }
    if (!part)
        part = FLook->Part() ? FLook->Part() : FDocument->Plot().Graph;
    FLook->Open(*part);
}

void TMainWindow::ServeLook()
{
    TKx2DGraph& graph = *FDocument->Plot().Graph;
    if (FLook) {
        FLook->SetFolder(Folder());
        FLook->SetGraph(&graph);
    }
    new TKxLookOpener(*FView, graph, [this](TComponent& part) { EditLook(&part); });
    FInteraction->Menu()->addSeparator();
    FInteraction->Menu()->addAction(FEditLook);
}

void TMainWindow::KeepEditedLook()
{
    if (FLook && FLook->Graph() == FDocument->Plot().Graph && FLook->History()->CanUndo())
        FDocument->KeepLook(FKept.filePath("look.ini").toStdString());
}

void TMainWindow::RefreshDates()
{
    if (HasGraph())
        Try([this] { FDocument->RefreshDates(); });
}

}  // namespace plotkit
