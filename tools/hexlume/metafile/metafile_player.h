// Plays an enhanced metafile on a canvas: the records that our recorder writes, with the same meaning as in GDI.
// Other records are skipped.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

class PlayerCanvas;

// The frame of a metafile, in hundredths of a millimetre.
struct MetafileFrame {
  int32_t left, top, right, bottom;
};

// Reads the frame. Returns false if the bytes (of GetEnhMetaFileBits) don't start with a metafile header.
bool ReadMetafileFrame(const uint8_t* bytes, size_t size, MetafileFrame& frame);

// Plays a metafile. Returns false if it is malformed; the valid records are played in any case. Nothing is
// drawn for an empty frame.
bool PlayMetafile(const uint8_t* bytes, size_t size, PlayerCanvas& canvas);

}  // namespace hexlume
