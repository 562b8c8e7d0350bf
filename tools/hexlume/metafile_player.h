// Plays an enhanced metafile on cairo: the records that our recorder writes, with the same meaning as in GDI.
// Other records are skipped.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>

namespace hexlume {

// The frame of a metafile, in hundredths of a millimetre.
struct MetafileFrame {
  int32_t left, top, right, bottom;
};

// The target of a metafile. The frame is scaled to width by height units of the context, which must
// have no transformation.
struct PlayerTarget {
  cairo_t* context;
  double width, height;
  double hairline;  // width of the thinnest pen
  // Whether the units are pixels. If so, the edges of regions are rounded to the edges of pixels, and thin
  // horizontal and vertical lines to their middle.
  bool hasPixels;
};

// Reads the frame. Returns false if the bytes (of GetEnhMetaFileBits) don't start with a metafile header.
bool ReadMetafileFrame(const uint8_t* bytes, size_t size, MetafileFrame& frame);

// Plays a metafile. Returns false if it is malformed; the valid records are played in any case. Nothing is
// drawn for an empty frame.
bool PlayMetafile(const uint8_t* bytes, size_t size, const PlayerTarget& target);

}  // namespace hexlume
