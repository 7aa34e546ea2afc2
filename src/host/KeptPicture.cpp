#include "host/KeptPicture.h"

#include <algorithm>

#include "host/CommandBox.h"
#include "host/PixelMath.h"
#include "host/Restore.h"

namespace plotkit {

const TRecording& TKeptPicture::Paint(TWindowControl& root)
{
    FReach.clear();
    root.SettledPicture(&FLog);
    if (root.FPartsWanted)
        root.FKeeper = this;
    return FLog.Picture;
}

void TKeptPicture::ReleaseUnwanted(const TWindowControl& root)
{
    if (root.FKeeper != this)
        FLog = {};
}

std::optional<std::vector<TRect>> TKeptPicture::ChangedBoxes(TWindowControl& root)
{
    std::vector<TRect> boxes;
    while (!root.FChangedParts.empty()) {
        TControl* const control = root.FChangedParts.back();
        root.FChangedParts.pop_back();
        const auto entry = std::find_if(FLog.Controls.begin(), FLog.Controls.end(),
                                        [control](const TPaintLog::TEntry& e) { return e.Control == control; });
        const auto part = control->ChangedPart();
        if (entry == FLog.Controls.end() || !part || root.FNeedsPaint)
            return std::nullopt;
        entry->IsPainted = false;
        const TRect box = MoveBox(*part, control->OriginInRoot()).Intersected(entry->Clip);
        if (!box.IsEmpty())
            boxes.push_back(box);
    }
    return boxes;
}

std::optional<std::vector<TPicturePart>> TKeptPicture::Renew(TWindowControl& root)
{
    if (root.FKeeper != this || root.FNeedsPaint)
        return std::nullopt;
    const TRestore settling(root.FSettling, true);
    std::optional<std::vector<TRect>> boxes;
    try {
        boxes = ChangedBoxes(root);
    } catch (const std::exception&) {
        // The paint of the whole picture meets the same error and reports it by its rule.
    }
    if (!boxes)
        return std::nullopt;
    if (FReach.empty() && !boxes->empty())
        for (const TDrawCommand& command : FLog.Picture.Commands)
            FReach.push_back(CommandBox(command));
    std::vector<TPicturePart> parts;
    for (const TRect& box : *boxes) {
        parts.push_back(Part(root, box));
        // Somebody wants more than was told.
        if (root.FNeedsPaint)
            return std::nullopt;
    }
    return parts;
}

TPicturePart TKeptPicture::Part(TWindowControl& root, const TRect& box) const
{
    TPicturePart part{box, {}};
    std::size_t at = 0;
    const auto takeUpTo = [&](std::size_t end) {
        for (; at < end; ++at)
            if (!FReach[at].Intersected(box).IsEmpty())
                part.Drawing.Commands.push_back(FLog.Picture.Commands[at]);
    };
    for (std::size_t i = 0; i < FLog.Controls.size() && !root.FNeedsPaint; ++i) {
        const TPaintLog::TEntry& entry = FLog.Controls[i];
        if (entry.IsPainted)
            continue;
        takeUpTo(entry.First);
        at = i + 1 < FLog.Controls.size() ? FLog.Controls[i + 1].First : FReach.size();
        const TRect clip = entry.Clip.Intersected(box);
        if (!clip.IsEmpty())
            root.PaintAlone(*entry.Control, part.Drawing, clip);
    }
    takeUpTo(FReach.size());
    return part;
}

}  // namespace plotkit
