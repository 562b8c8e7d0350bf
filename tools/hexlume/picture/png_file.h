// Writes PNG files.
#pragma once

#include <cstdint>

#include "tools/hexlume/picture/byte_sink.h"
#include "tools/hexlume/picture/stroke_raster.h"

namespace hexlume {

// Throws PictureError or std::bad_alloc, or what the sink throws.
void WritePng(const RasterImage& image, int32_t dotsPerMetre, const ByteSink& sink);

}  // namespace hexlume
