#include "tools/hexlume/drawing/streamed_metafile.h"

namespace hexlume {

std::unique_ptr<StreamedMetafile> StreamOf(const Job&, const Options&) {
  return nullptr;
}

}  // namespace hexlume
