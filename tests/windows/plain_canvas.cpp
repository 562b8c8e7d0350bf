#include "support/plain_canvas.h"

namespace hexlume {

HDC CreatePlainCanvas() {
  return CreateCompatibleDC(nullptr);
}

}  // namespace hexlume
