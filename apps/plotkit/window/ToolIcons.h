// The job of ToolIcons is the signs on the window's buttons, drawn in the colour of the text at any resolution.
#pragma once

#include <QIcon>

namespace plotkit {

enum TToolIcon
{
    tiOpen,
    tiExport,
    tiPrint,
    tiCopy,
    tiReload,
    tiFollow,
    tiHome,
    tiBack,
    tiForward,
    tiZoom,
    tiZoomIn,
    tiZoomOut,
    tiPan,
    tiCursor,
    tiMarkers,
    tiClose
};

QIcon ToolIcon(TToolIcon icon);

}  // namespace plotkit
