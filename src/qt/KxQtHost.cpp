#include "qt/KxQtHost.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <iostream>

#include "host/Metafile.h"
#include "qt/KxPictureCopy.h"
#include "qt/KxQtDevice.h"
#include "qt/KxQtLocale.h"

namespace plotkit {

namespace {

constexpr int LargestPicture = 8192;
/// Marks, with the process, what this program put on the clipboard, to tell when something else took its place.
const auto OwnFormat = QStringLiteral("application/x-plotkit-picture");

QByteArray OwnMark()
{
    return QByteArray::number(QCoreApplication::applicationPid());
}

std::optional<std::string> FolderOf(QStandardPaths::StandardLocation location)
{
    const QString folder = QStandardPaths::writableLocation(location);
    return folder.isEmpty() ? std::nullopt : std::optional(folder.toStdString());
}

QImage ImageOf(const TMetafile& metafile)
{
    const auto side = [](int length) { return std::clamp(length, 1, LargestPicture); };
    QImage image(side(metafile.Width), side(metafile.Height), QImage::Format_ARGB32_Premultiplied);
    image.fill(metafile.Transparent ? Qt::transparent : Qt::white);
    QPainter painter(&image);
    TQtDevice device(painter, metafile.PixelScale);
    metafile.Recording.Replay(device);
    return image;
}

/// The palette's role of a system-colour code.
std::optional<QPalette::ColorRole> RoleOf(TColor color)
{
    switch (static_cast<std::uint32_t>(ColorToInt(color)) & 0x7FFFFFFFU) {
        case 0x04:  // menu
        case 0x0F:  // button face
            return QPalette::Window;
        case 0x05:  // window
            return QPalette::Base;
        case 0x07:  // menu text
            return QPalette::WindowText;
        case 0x08:  // window text
        case 0x11:  // grey text, which is that of disabled ones
            return QPalette::Text;
        case 0x0D:  // highlight
            return QPalette::Highlight;
        case 0x0E:  // highlight text
            return QPalette::HighlightedText;
        case 0x10:  // button shadow
            return QPalette::Dark;
        case 0x12:  // button text
            return QPalette::ButtonText;
        case 0x14:  // button highlight
            return QPalette::Light;
        case 0x15:  // dark shadow
            return QPalette::Shadow;
        case 0x16:  // light
            return QPalette::Midlight;
        case 0x17:  // tip text
            return QPalette::ToolTipText;
        case 0x18:  // tip background
            return QPalette::ToolTipBase;
        default:
            return std::nullopt;
    }
}

}  // namespace

Qt::CursorShape CursorShapeOf(TCursor cursor)
{
    switch (cursor) {
        case crHourGlass:
            return Qt::WaitCursor;
        case crSizeWestEast:
            return Qt::SizeHorCursor;
        case crCross:
            return Qt::CrossCursor;
        case crHand:
            return Qt::PointingHandCursor;
        case crText:
            return Qt::IBeamCursor;
        default:
            return Qt::ArrowCursor;
    }
}

TQtHost::TQtHost() : FLocale(LocaleFormatsOf(QLocale::system()))
{
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &FContext, [this] { ClipboardChanged(); });
}

std::string TQtHost::ExecutableName() const
{
    return QCoreApplication::applicationFilePath().toStdString();
}

std::optional<std::string> TQtHost::AppDataFolder() const
{
    return FolderOf(QStandardPaths::GenericConfigLocation);
}

std::optional<std::string> TQtHost::DocumentsFolder() const
{
    return FolderOf(QStandardPaths::DocumentsLocation);
}

int TQtHost::StartTimer(std::chrono::milliseconds interval, std::function<void()> onTimer)
{
    auto* timer = new QTimer(&FContext);
    QObject::connect(timer, &QTimer::timeout, &FContext, [this, callback = std::move(onTimer)] { Call(callback); });
    timer->start(std::max(interval, std::chrono::milliseconds(1)));
    FTimers[++FLastTimer] = timer;
    return FLastTimer;
}

void TQtHost::StopTimer(int timer)
{
    const auto place = FTimers.find(timer);
    if (place == FTimers.end())
        return;
    // It may be the one whose callback runs.
    place->second->stop();
    place->second->deleteLater();
    FTimers.erase(place);
}

void TQtHost::Call(const std::function<void()>& callback)
{
    // Qt's event loop lets no exception through.
    try {
        callback();
    } catch (const std::exception& error) {
        HandleError(error);
    }
}

void TQtHost::Beep()
{
    QApplication::beep();
}

std::string TQtHost::ClipboardText() const
{
    return QGuiApplication::clipboard()->text().toStdString();
}

void TQtHost::SetClipboardText(const std::string& text)
{
    THost::SetClipboardText(text);
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void TQtHost::SetClipboardMetafile(const TMetafile& metafile)
{
    std::unique_ptr<QMimeData> data = MimeDataOf(metafile, ImageOf(metafile));
    data->setData(OwnFormat, OwnMark());
    // The clipboard takes it.
    QGuiApplication::clipboard()->setMimeData(data.release());
    THost::SetClipboardMetafile(metafile);
}

void TQtHost::ClipboardChanged()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || data->data(OwnFormat) != OwnMark())
        THost::SetClipboardText({});
}

void TQtHost::SetScreenCursor(TCursor cursor)
{
    if (cursor == FCursor)
        return;
    if (FCursor != crDefault)
        QGuiApplication::restoreOverrideCursor();
    FCursor = cursor;
    if (FCursor != crDefault)
        QGuiApplication::setOverrideCursor(CursorShapeOf(cursor));
}

TRect TQtHost::ScreenRect() const
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return THost::ScreenRect();
    const QRect usable = screen->availableGeometry();
    return {usable.left(), usable.top(), usable.left() + usable.width(), usable.top() + usable.height()};
}

TQtPaletteScope::TQtPaletteScope(const QPalette& palette) : FOwn(palette), FHost(dynamic_cast<TQtHost*>(&Host()))
{
    if (FHost)
        FBefore = std::exchange(FHost->FPalette, &FOwn);
}

TQtPaletteScope::~TQtPaletteScope()
{
    if (FHost)
        FHost->FPalette = FBefore;
}

TColor TQtHost::ResolveColor(TColor color) const
{
    const auto role = IsSystemColor(color) ? RoleOf(color) : std::nullopt;
    if (!role)
        return THost::ResolveColor(color);
    const QPalette palette = FPalette ? *FPalette : QGuiApplication::palette();
    const bool isGray = color == clGrayText;
    const QColor shown = palette.color(isGray ? QPalette::Disabled : QPalette::Active, *role);
    return RgbColor(static_cast<std::uint8_t>(shown.red()), static_cast<std::uint8_t>(shown.green()),
                    static_cast<std::uint8_t>(shown.blue()));
}

void TQtHost::HandleError(const std::exception& error)
{
    if (FLastMessage != error.what())
        std::cerr << "error: " << error.what() << '\n';
    FLastMessage = error.what();
    if (OnError)
        OnError(error);
}

}  // namespace plotkit
