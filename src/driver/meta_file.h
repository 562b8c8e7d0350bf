// The metafile of a conversion, from its creation to its handle.
#pragma once

#include "canvas/canvas.h"
#include "platform/gdi.h"

namespace hexlume {

// A metafile being drawn, with the printer's DC that it is measured against. One that a fault leaves
// unfinished is discarded with the object.
struct MetaFile {
  MetaFile() = default;
  MetaFile(const MetaFile&) = delete;
  MetaFile& operator=(const MetaFile&) = delete;
  ~MetaFile();

  HDC reference = nullptr;
  Canvas canvas = nullptr;
};

// Begins a metafile whose frame is in hundredths of a millimetre.
void BeginMetaFile(MetaFile& metaFile, const RECT& frame);

// Ends it. The handle is the caller's.
HENHMETAFILE EndMetaFile(MetaFile& metaFile);

}  // namespace hexlume
