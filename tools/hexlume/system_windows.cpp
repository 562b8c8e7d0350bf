#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "tools/hexlume/system.h"

namespace hexlume {

void UsePlainLineEnds() {
  _setmode(_fileno(stdout), _O_BINARY);
}

std::optional<uint64_t> FileSize(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA file = {};
  if (!GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &file)) return std::nullopt;
  if (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) return std::nullopt;
  return uint64_t{file.nFileSizeHigh} << 32 | file.nFileSizeLow;
}

size_t FileNameStart(const std::string& path) {
  size_t start = 0;
  for (size_t i = 0; i < path.size(); ++i) {
    // The second byte of a Japanese character can equal a backslash.
    if (IsDBCSLeadByte(static_cast<BYTE>(path[i]))) {
      ++i;
    } else if (path[i] == '\\' || path[i] == '/' || path[i] == ':') {
      start = i + 1;
    }
  }
  return start;
}

std::string PathKey(const std::string& path) {
  const DWORD size = GetFullPathNameA(path.c_str(), 0, nullptr, nullptr);
  std::string key(size, '\0');
  key.resize(size == 0 ? 0 : GetFullPathNameA(path.c_str(), size, key.data(), nullptr));
  if (key.empty()) key = path;
  CharUpperBuffA(key.data(), static_cast<DWORD>(key.size()));
  return key;
}

}  // namespace hexlume
