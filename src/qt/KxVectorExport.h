// The job of KxVectorExport is to turn a control tree into a picture of lines and letters: SVG, PDF or a printed page.
#pragma once

#include <QPageLayout>
#include <optional>
#include <string>

#include "qt/KxPicture.h"

class QPrinter;

namespace plotkit {

/// Vector pictures are laid out with so many device pixels per 1/96 inch: fine enough that curves show no steps in
/// print, nor on a screen enlarged some twenty times.
inline constexpr int VectorScale = 16;

struct TVectorOptions
{
    double Width = 600;  ///< in `Unit`; pixels are 1/96 inches
    double Height = 400;
    TLengthUnit Unit = luInch96;
    bool LightBackground = false;  ///< a picture on dark ground in colours for white paper
    std::string Title{};           ///< of the document
};

/// The root's scale and bounds are afterwards as before. ERangeError when a side is not from 1 to 19200 1/96 inches,
/// the largest page that PDF has.
TMetafile RenderVector(TWindowControl& root, const TVectorOptions& options);
std::string RenderSvg(TWindowControl& root, const TVectorOptions& options);
/// A page as large as the picture, text as text with its fonts.
std::string RenderPdf(TWindowControl& root, const TVectorOptions& options);
/// Into a file, whole or not at all. EFileError names the file and the reason.
void ExportSvg(TWindowControl& root, const std::string& fileName, const TVectorOptions& options);
void ExportPdf(TWindowControl& root, const std::string& fileName, const TVectorOptions& options);

/// A page as large as the picture.
std::string PdfFile(const TMetafile& picture, const std::string& title);

struct TPageOptions
{
    /// The graph is laid out as large as the page's inner part; otherwise it keeps its layout and is enlarged or made
    /// smaller until it fits, in the middle.
    bool Fill = false;
    bool LightBackground = false;
    std::string Title{};
};

/// On paper, between its margins. The graph that is fitted has the root's present size.
std::string RenderPdfPage(TWindowControl& root, const QPageLayout& paper, const TPageOptions& options);
/// On the printer's page. EFileError when it cannot be reached.
void PrintGraph(TWindowControl& root, QPrinter& printer, const TPageOptions& options);

}  // namespace plotkit
