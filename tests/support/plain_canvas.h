// A canvas whose drawing nobody asks for.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// Without a metafile where the system has such canvases, so that long walks cost no memory. DeleteDC gives it
// back.
HDC CreatePlainCanvas();

}  // namespace hexlume
