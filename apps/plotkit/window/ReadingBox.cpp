#include "plotkit/window/ReadingBox.h"

#include <QFileInfo>
#include <QProgressDialog>
#include <algorithm>
#include <memory>

namespace plotkit {

TReadProgress NewReadingBox(QWidget& parent, const std::string& fileName)
{
    constexpr int steps = 1000, patience = 600;  // ms
    const QString name = QFileInfo(QString::fromStdString(fileName)).fileName();
    auto box = std::make_shared<QProgressDialog>(QObject::tr("Reading %1").arg(name), QObject::tr("Cancel"), 0, steps,
                                                 &parent);
    box->setWindowModality(Qt::WindowModal);
    box->setMinimumDuration(patience);
    box->setValue(0);
    return [box](std::uint64_t read, std::uint64_t total) {
        // Setting the value also serves the user's click on "Cancel".
        box->setValue(total ? static_cast<int>(std::min<std::uint64_t>(read * steps / total, steps - 1)) : 0);
        return !box->wasCanceled();
    };
}

}  // namespace plotkit
