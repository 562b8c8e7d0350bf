// Plays an enhanced metafile onto cairo: the records that our recorder writes, with the meaning that they
// have for GDI. Other records are passed over.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>

namespace hexlume {

// The metafile's frame in hundredths of a millimetre.
struct MetafileFrame {
  int32_t left, top, right, bottom;
};

// Where a metafile is played to: its frame fills width by height units of the context, which has no
// transformation.
struct PlayerTarget {
  cairo_t* context;
  double width, height;
  double hairline;  // the width of the thinnest pen
  // The units are pixels: the edges of regions go to the edges of pixels, and a thin line along an axis to
  // their middle.
  bool hasPixels;
};

// False if the bytes (those of GetEnhMetaFileBits) don't begin as a metafile does.
bool ReadMetafileFrame(const uint8_t* bytes, size_t size, MetafileFrame& frame);

// False if the metafile is malformed; what could be read is played in any case. An empty frame shows nothing.
bool PlayMetafile(const uint8_t* bytes, size_t size, const PlayerTarget& target);

}  // namespace hexlume
