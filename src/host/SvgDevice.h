// The job of SvgDevice is to write a picture as SVG 1.1 that librsvg, Inkscape and browsers draw alike.
#pragma once

#include <map>
#include <string>

#include "host/Metafile.h"
#include "host/VectorDevice.h"

namespace plotkit {

/// Makes the elements inside a document, in device pixels. Text stays text.
class TSvgDevice : public TVectorDevice
{
public:
    using TVectorDevice::TVectorDevice;

    /// What was drawn so far; the device is empty afterwards.
    std::string TakeElements();

protected:
    void DrawPath(const TVectorPath& path, const TVectorPen* pen, const TVectorFill* fill, const TRect* clip) override;
    void DrawOval(const TVectorBox& box, const TVectorPen* pen, const TVectorFill* fill) override;
    void DrawRun(const TTextRun& run, const TRect* clip) override;
    void DrawStamps(const TRecording& shape, std::span<const TPoint> points) override;

private:
    /// Puts what follows into a group with these attributes, the one that is open if it has them.
    void SetStyle(std::string style);
    /// As an attribute; "" for none.
    std::string ClipAttribute(const TRect* clip);
    std::string ShapeName(const TRecording& shape);

    std::string FText;
    std::string FStyle;
    bool FInSymbol = false;                     ///< which names nothing, its names would meet those outside
    std::map<std::string, std::string> FNames;  ///< of what stands in `defs`, by its content
};

/// A whole document of the picture's size, its length unit 1/96 inch. Exclusive-or areas show as nearly as blending
/// can what exclusive-or showed. The measurer is the one that the picture was painted with.
std::string SvgDocument(const TMetafile& picture, const TTextMeasurer& measurer, std::string_view title = {});

}  // namespace plotkit
