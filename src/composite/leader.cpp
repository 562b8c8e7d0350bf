#include "composite/leader.h"

namespace hexlume {

int32_t DrawLeader(const HeaderVars&, TextStream&, Canvas, const ViewRect&, int32_t, int32_t, int32_t) {
  return 0;
}

}  // namespace hexlume
