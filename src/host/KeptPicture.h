// The job of KeptPicture is to keep what a control tree was painted with, so that a part of it can be painted alone.
#pragma once

#include <optional>
#include <vector>

#include "host/WindowControl.h"

namespace plotkit {

/// A picture and who painted it, in their order.
struct TPaintLog
{
    struct TEntry
    {
        TControl* Control;
        TRect Clip;
        std::size_t First;      ///< command
        bool IsPainted = true;  ///< false: its commands are no longer all, it has to be painted again
    };

    TRecording Picture;
    std::vector<TEntry> Controls;
};

/// What to draw in a box of a finished picture, over its ground, so that it shows the tree as it is now.
struct TPicturePart
{
    TRect Box;
    TRecording Drawing;
};

class TKeptPicture
{
public:
    /// The settled picture of a root.
    const TRecording& Paint(TWindowControl& root);
    /// Lets go of the picture when nobody in the tree has asked for parts yet.
    void ReleaseUnwanted(const TWindowControl& root);
    /// The parts that look different since `Paint` or the last call; nothing when it takes a new picture. With each
    /// part drawn under a clip to its box, the pixels are those of a new picture: the same commands are drawn in the
    /// same order, but such as stay outside.
    std::optional<std::vector<TPicturePart>> Renew(TWindowControl& root);

private:
    std::optional<std::vector<TRect>> ChangedBoxes(TWindowControl& root);
    TPicturePart Part(TWindowControl& root, const TRect& box) const;

    TPaintLog FLog;
    std::vector<TRect> FReach;  ///< of each command, made when first needed
};

}  // namespace plotkit
