#include "qt/KxShownPicture.h"

#include <QPainter>
#include <algorithm>
#include <cstring>

#include "host/CommandBox.h"
#include "qt/KxQtDevice.h"

namespace plotkit {

namespace {

/// More are not worth being looked at one by one.
constexpr std::size_t MostBoxes = 64;

QRect ToQRect(const TRect& box)
{
    return {box.Left, box.Top, box.Width(), box.Height()};
}

/// Of commands that are the same in whatever order they are drawn.
bool AreToggles(std::span<const TDrawCommand> commands)
{
    return std::all_of(commands.begin(), commands.end(), [](const TDrawCommand& command) {
        return std::holds_alternative<TFocusRectCommand>(command) ||
               std::visit([](const auto& c) { return c.State.Mode == dmXor; }, command);
    });
}

/// Boxes around the commands that only one of the two has.
void AddDifferences(std::span<const TDrawCommand> before, std::span<const TDrawCommand> now, std::vector<TRect>& boxes)
{
    for (const auto& [these, others] : {std::pair(before, now), std::pair(now, before)})
        for (const TDrawCommand& command : these)
            if (std::find(others.begin(), others.end(), command) == others.end())
                AddCommandBoxes(command, boxes);
}

}  // namespace

void TKxShownPicture::Update(TWindowControl& root)
{
    TBoxes painted;
    if (!FPictureStale && std::exchange(FPartsStale, false)) {
        if (const auto parts = FKept.Renew(root))
            PaintParts(root, *parts, painted);
        else
            FPictureStale = true;
    }
    if (FPictureStale) {
        PaintPicture(root);
        painted = {Whole()};
    }
    if (FOverlayStale || !painted.empty())
        PaintOverlay(root, std::move(painted));
}

void TKxShownPicture::PaintPicture(TWindowControl& root)
{
    FPictureStale = FPartsStale = false;
    const QSize size(root.GetWidth(), root.GetHeight());
    // Somebody may have the last one still.
    if (FPicture.size() != size || !FPicture.isDetached())
        FPicture = QImage(size, QImage::Format_RGB32);
    FPicture.fill(QtColor(root.GetColor()));
    {
        const TRecording& picture = FKept.Paint(root);
        QPainter painter(&FPicture);
        TQtDevice device(painter, root.OwnPixelScale());
        picture.Replay(device);
    }
    FKept.ReleaseUnwanted(root);
}

void TKxShownPicture::PaintParts(const TWindowControl& root, const std::vector<TPicturePart>& parts, TBoxes& painted)
{
    for (const TPicturePart& part : parts) {
        QPainter painter(&FPicture);
        painter.setClipRect(ToQRect(part.Box));
        painter.fillRect(ToQRect(part.Box), QtColor(root.GetColor()));
        TQtDevice device(painter, root.OwnPixelScale());
        part.Drawing.Replay(device);
        painted.push_back(part.Box);
    }
}

void TKxShownPicture::CopyToOverlay(const TRect& box)
{
    const auto bytes = static_cast<std::size_t>(box.Width()) * sizeof(QRgb);
    const qsizetype offset = box.Left * static_cast<qsizetype>(sizeof(QRgb));
    for (int y = box.Top; y < box.Bottom; ++y)
        std::memcpy(FWithOverlay.scanLine(y) + offset, FPicture.constScanLine(y) + offset, bytes);
}

void TKxShownPicture::PaintOverlay(TWindowControl& root, TBoxes painted)
{
    FOverlayStale = false;
    const TRecording& overlay = root.Overlay();
    const bool isNew = FOverlay.empty() || FWithOverlay.size() != FPicture.size();
    const bool areToggles = AreToggles(FOverlay) && AreToggles(overlay.Commands);
    TBoxes boxes = std::move(painted);
    AddDifferences(FOverlay, overlay.Commands, boxes);
    FOverlay = overlay.Commands;
    if (FOverlay.empty()) {
        FWithOverlay = {};
    } else if (isNew || !areToggles || boxes.size() > MostBoxes) {
        if (isNew)
            FWithOverlay = QImage(FPicture.size(), FPicture.format());
        boxes = {Whole()};
    }
    for (const TRect& box : boxes) {
        const TRect seen = box.Intersected(Whole());
        FChanged += ToQRect(seen);
        if (FChanged.rectCount() > static_cast<int>(MostBoxes))
            FChanged = FChanged.boundingRect();
        if (!FOverlay.empty() && !seen.IsEmpty())
            RenewOverlay(root, seen);
    }
}

void TKxShownPicture::RenewOverlay(TWindowControl& root, const TRect& box)
{
    CopyToOverlay(box);
    QPainter painter(&FWithOverlay);
    painter.setClipRect(ToQRect(box));
    TQtDevice device(painter, root.OwnPixelScale());
    root.Overlay().Replay(device);
}

}  // namespace plotkit
