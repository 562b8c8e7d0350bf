#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "tools/hexlume/system.h"

namespace hexlume {

void UsePlainLineEnds() {
  _setmode(_fileno(stdout), _O_BINARY);
}

// From the ANSI code page, in which the command line comes.
std::string Utf8Text(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                                      wide.data(), static_cast<int>(wide.size()))));
  constexpr size_t mostBytesOfUnit = 3;
  std::string utf8(wide.size() * mostBytesOfUnit, '\0');
  utf8.resize(
      static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                              utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
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
