#include "platform/last_error.h"

#include <cerrno>

namespace hexlume {

void SetThreadError(uint32_t number) {
  errno = static_cast<int>(number);
}

}  // namespace hexlume
