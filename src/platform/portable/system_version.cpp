#include "platform/system_version.h"

namespace hexlume {

// The portable GDI draws arcs like all versions of Windows except 4.10, so this reports a current one.
SystemVersion GetSystemVersion() {
  return {10, 0};
}

}  // namespace hexlume
