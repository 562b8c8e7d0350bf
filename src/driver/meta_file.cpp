#include "driver/meta_file.h"

#include "canvas/left_objects.h"
#include "platform/reference_dc.h"
#include "platform/run_objects.h"

namespace hexlume {

MetaFile::~MetaFile() {
  if (canvas) DeleteEnhMetaFile(EndMetaFile(*this));
}

void BeginMetaFile(MetaFile& metaFile, const RECT& frame) {
  metaFile.reference = DefaultPrinterDC();
  metaFile.canvas = CreateEnhMetaFileA(metaFile.reference, nullptr, &frame, nullptr);
}

HENHMETAFILE EndMetaFile(MetaFile& metaFile) {
  const HENHMETAFILE handle = CloseEnhMetaFile(metaFile.canvas);
  DeleteLeftObjects();
  DeleteDC(metaFile.reference);
  DeleteRunObjects();
  metaFile.canvas = nullptr;
  metaFile.reference = nullptr;
  return handle;
}

}  // namespace hexlume
