#include "platform/last_error.h"

#include <windows.h>

namespace hexlume {

void SetThreadError(uint32_t number) {
  SetLastError(number);
}

}  // namespace hexlume
