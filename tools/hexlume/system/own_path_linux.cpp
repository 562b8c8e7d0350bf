#include <sys/auxv.h>

#include <filesystem>
#include <system_error>

#include "tools/hexlume/system/own_path.h"

namespace hexlume {

// A bare chroot may have no /proc. The system keeps the path by which the program was started, too.
std::string OwnPath() {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) return path.string();
  return std::filesystem::canonical(reinterpret_cast<const char*>(getauxval(AT_EXECFN)), error).string();
}

}  // namespace hexlume
