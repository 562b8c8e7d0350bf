#include "support/plain_canvas.h"

namespace hexlume {

// The portable GDI has no other canvas than that of a metafile.
HDC CreatePlainCanvas() {
  return CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
}

}  // namespace hexlume
