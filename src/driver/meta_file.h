// The metafile of a conversion, from its creation to its handle.
#pragma once

#include "canvas/canvas.h"
#include "platform/gdi.h"

namespace hexlume {

// A metafile that is being recorded, and the printer's DC that is its reference. The destructor discards a
// metafile that a fault has left unfinished.
struct MetaFile {
  MetaFile() = default;
  MetaFile(const MetaFile&) = delete;
  MetaFile& operator=(const MetaFile&) = delete;
  ~MetaFile();

  HDC reference = nullptr;
  Canvas canvas = nullptr;
};

// Starts a metafile. The frame is in hundredths of a millimetre.
void BeginMetaFile(MetaFile& metaFile, const RECT& frame);

// Closes the metafile. The caller owns the handle.
HENHMETAFILE EndMetaFile(MetaFile& metaFile);

}  // namespace hexlume
