#include "platform/system_version.h"

#include "platform/gdi.h"

namespace hexlume {

SystemVersion GetSystemVersion() {
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = sizeof version;
  GetVersionExA(&version);
  return {version.dwMajorVersion, version.dwMinorVersion};
}

}  // namespace hexlume
