#include "tools/hexlume/drawing/exported_metafile.h"

namespace hexlume {

MetafileBytes BytesOf(ExportedMetafile metafile) {
  const HENHMETAFILE handle = metafile.get();
  return {EnhMetaFileBytes(handle), GetEnhMetaFileBits(handle, 0, nullptr),
          std::shared_ptr<const void>(std::move(metafile))};
}

bool SaveBySystem(const MetafileBytes&, WholeFile&) {
  return false;  // the bytes are in our own memory
}

}  // namespace hexlume
