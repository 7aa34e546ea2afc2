// The job of KxQtVectorDevice is to draw on painters whose target keeps shapes instead of pixels: PDF and printers.
#pragma once

#include <QPainter>

#include "host/Metafile.h"
#include "host/VectorDevice.h"

namespace plotkit {

/// Text stays text, in the fonts that it is measured with. The painter is active for the device's whole life.
class TQtVectorDevice : public TVectorDevice
{
public:
    TQtVectorDevice(QPainter& painter, const TRect& page, double scale, const TTextMeasurer& measurer);

protected:
    void DrawPath(const TVectorPath& path, const TVectorPen* pen, const TVectorFill* fill, const TRect* clip) override;
    void DrawOval(const TVectorBox& box, const TVectorPen* pen, const TVectorFill* fill) override;
    void DrawRun(const TTextRun& run, const TRect* clip) override;

private:
    void Prepare(const TVectorPen* pen, const TVectorFill* fill);

    QPainter& FPainter;
};

/// Draws a picture so that it fills `target`, in the painter's coordinates.
void DrawVectorPicture(QPainter& painter, const TMetafile& picture, const QRectF& target);

}  // namespace plotkit
