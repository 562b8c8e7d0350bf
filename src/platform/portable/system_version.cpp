#include "platform/system_version.h"

namespace hexlume {

// The portable GDI draws arcs as every Windows does but version 4.10, so it tells a version of today.
SystemVersion GetSystemVersion() {
  return {10, 0};
}

}  // namespace hexlume
