// The job of Metafile is a picture of known size that can be drawn again anywhere.
#pragma once

#include "host/Recording.h"

namespace plotkit {

class TMetafile
{
public:
    int Width = 0;  ///< device pixels of the recording
    int Height = 0;
    double PixelScale = 1;  ///< device pixels per 1/96 inch
    /// Nothing lies behind the drawing; otherwise it stands on white.
    bool Transparent = false;
    TRecording Recording;

    void Clear() { *this = TMetafile(); }
    bool IsEmpty() const { return Recording.Commands.empty(); }
};

}  // namespace plotkit
