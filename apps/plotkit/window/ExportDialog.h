// The job of ExportDialog is to ask for the file, size and resolution of a picture.
#pragma once

#include <QString>
#include <optional>

#include "plotkit/PictureFile.h"

class QWidget;

namespace plotkit {

/// A picture that the user wants written; the end of the file's name says which kind.
struct TExportWish
{
    QString File;
    TPictureWish Picture;
};

/// Nothing when the user cancels. `wish` is what the dialog begins with.
std::optional<TExportWish> AskForPicture(QWidget* parent, const TExportWish& wish);

}  // namespace plotkit
