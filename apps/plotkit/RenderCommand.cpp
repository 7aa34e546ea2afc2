#include "plotkit/RenderCommand.h"

#include <iostream>

#include "plotkit/GraphBuilder.h"
#include "qt/KxPngExport.h"

namespace plotkit {

QImage DrawPlot(const TColumnChoice& choice, const TOptions& options)
{
    const TPlot plot = BuildPlot(choice, options);
    for (const std::string& note : plot.Notes)
        std::cerr << "plotkit: " << note << std::endl;
    TPngOptions png;
    png.Width = options.Width;
    png.Height = options.Height;
    png.Dpi = options.Dpi;
    png.Antialias = options.Antialias;
    return RenderImage(*plot.Form, png);
}

}  // namespace plotkit
