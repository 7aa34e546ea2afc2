#include <QFileDialog>

#include "graph/KxAxis.h"
#include "plotkit/ColourScheme.h"
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
        ShowLookOf(*FDocument->Plot().Graph);
    }
    if (!part)
        part = FLook->Part() ? FLook->Part() : FDocument->Plot().Graph;
    FLook->Open(*part);
}

void TMainWindow::ShowLookOf(TKx2DGraph& graph)
{
    const TSchemeChoice scheme = FDocument->Options().Scheme;
    const auto schemeOf = [](TSchemeChoice choice) { return choice == ccDark ? DarkScheme() : LightScheme(); };
    const auto exchange = [from = schemeOf(FLookScheme), to = schemeOf(scheme)](TColor colour) {
        return Counterpart(colour, from, to);
    };
    if (std::exchange(FLookGoesOn, false))
        FLook->GoOnWith(graph, scheme == FLookScheme ? std::function<TColor(TColor)>() : exchange);
    else
        FLook->SetGraph(&graph);
    FLookScheme = scheme;
}

void TMainWindow::ServeLook()
{
    TKx2DGraph& graph = *FDocument->Plot().Graph;
    if (FLook) {
        FLook->SetFolder(Folder());
        ShowLookOf(graph);
    }
    auto* opener = new TKxLookOpener(*FView, graph, [this](TComponent& part) { EditLook(&part); });
    FInteraction->Menu()->addSeparator();
    QAction* const look = FInteraction->Menu()->addAction(FEditLook->text());
    connect(look, &QAction::triggered, this,
            [this, opener] { Try([&] { opener->OpenAt(FInteraction->MenuPlace()); }); });
}

bool TMainWindow::HasEditedLook() const
{
    return FLook && FLook->Graph() == FDocument->Plot().Graph &&
           (FLook->History()->CanUndo() || FLook->History()->CanRedo());
}

void TMainWindow::KeepEditedLook(bool always)
{
    const bool isEdited = HasEditedLook();
    if (!isEdited && !always)
        return;
    FDocument->KeepLook(FKept.filePath("look.ini").toStdString());
    if (!isEdited)
        return;
    FLook->History()->Hold();
    FLookGoesOn = true;
}

void TMainWindow::SetScale(bool isX, TScaleChoice scale)
{
    TKx2DGraph* const graph = FDocument->Plot().Graph;
    TKxAxis& axis = isX ? *graph->GetPrimaryXAxis() : *graph->GetPrimaryYAxis();
    const TKxAxScaling before = axis.GetScaling();
    Rebuild([&] {
        try {
            // A scale of the look is not to stand in the way.
            axis.SetScaling(FDocument->ScalingFor(isX, scale));
            KeepEditedLook(!FDocument->Options().LookFile.empty());
            const TOptions& options = FDocument->Options();
            FDocument->SetScales(isX ? scale : options.XScale, isX ? options.YScale : scale);
        } catch (...) {
            if (FDocument->Plot().Graph == graph)
                axis.SetScaling(before);
            throw;
        }
    });
}

void TMainWindow::RefreshDates()
{
    if (HasGraph())
        Try([this] { FDocument->RefreshDates(); });
}

}  // namespace plotkit
