#include "tools/hexlume/drawing/exported_metafile.h"

namespace hexlume {

MetafileBytes BytesOf(ExportedMetafile metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile.get(), 0, nullptr));
  bytes.resize(GetEnhMetaFileBits(metafile.get(), static_cast<UINT>(bytes.size()), bytes.data()));
  return MetafileBytes(std::move(bytes));
}

}  // namespace hexlume
