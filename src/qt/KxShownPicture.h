// The job of KxShownPicture is to keep what a control tree shows as pixels and to paint anew only what changed.
#pragma once

#include <QImage>
#include <QRegion>
#include <utility>
#include <vector>

#include "host/KeptPicture.h"

namespace plotkit {

/// The tree is painted into an image of exactly its pixels. The overlay is drawn on a copy of it, so that its
/// exclusive-or shapes work on every platform and what it leaves is there again.
class TKxShownPicture
{
public:
    void PictureChanged() { FPictureStale = true; }
    void PartsChanged() { FPartsStale = true; }
    void OverlayChanged() { FOverlayStale = true; }

    /// Follows all changes of a root.
    void Update(TWindowControl& root);
    /// As brought up to date last.
    const QImage& Image() const { return FOverlay.empty() ? FPicture : FWithOverlay; }
    /// The pixels that have changed since the last call.
    QRegion TakeChanged() { return std::exchange(FChanged, {}); }

private:
    using TBoxes = std::vector<TRect>;

    void PaintPicture(TWindowControl& root);
    void PaintParts(const TWindowControl& root, const std::vector<TPicturePart>& parts, TBoxes& painted);
    void PaintOverlay(TWindowControl& root, TBoxes painted);
    void RenewOverlay(TWindowControl& root, const TRect& box);
    void CopyToOverlay(const TRect& box);
    TRect Whole() const { return {0, 0, FPicture.width(), FPicture.height()}; }

    TKeptPicture FKept;
    QImage FPicture, FWithOverlay;
    std::vector<TDrawCommand> FOverlay;  ///< as drawn
    QRegion FChanged;
    bool FPictureStale = true, FPartsStale = false, FOverlayStale = true;
};

}  // namespace plotkit
