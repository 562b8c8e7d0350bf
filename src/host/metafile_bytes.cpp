#include "host/metafile_bytes.h"

#include "platform/metafile_handle.h"

namespace hexlume {

namespace {

// A host can have more small ones than a process can have blocks of pages.
constexpr size_t leastKept = 1 << 20;

}  // namespace

MetafileBytes::MetafileBytes(Metafile metafile) : count(GetEnhMetaFileBits(metafile.get(), 0, nullptr)) {
  start = BytesInPlace(metafile.get());
  if (start && count >= leastKept) {
    kept = std::move(metafile);
    return;
  }
  copied = std::unique_ptr<uint8_t[]>(new uint8_t[count]);
  start = copied.get();
  GetEnhMetaFileBits(metafile.get(), static_cast<UINT>(count), start);
}

}  // namespace hexlume
