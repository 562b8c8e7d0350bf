#include "platform/utf8_file.h"

#include <io.h>
#include <windows.h>

#include <string>

namespace hexlume {

namespace {

// Empty if the path isn't UTF-8.
std::wstring WidePath(const char* path) {
  const int size = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, nullptr, 0);
  std::wstring wide(size > 0 ? static_cast<size_t>(size) : 0, L'\0');
  if (size > 0) MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, wide.data(), size);
  return wide;
}

FileTrouble TroubleOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_INVALID_DRIVE: return FileTrouble::notFound;
    default: return FileTrouble::notAllowed;
  }
}

}  // namespace

OpenedFile OpenUtf8File(const char* path) {
  const std::wstring wide = WidePath(path);
  if (wide.empty()) return {nullptr, FileTrouble::notFound, 0};
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return {nullptr, TroubleOf(GetLastError()), 0};
  if (attributes & FILE_ATTRIBUTE_DIRECTORY) return {nullptr, FileTrouble::notAFile, 0};
  std::FILE* const file = _wfopen(wide.c_str(), L"rb");
  if (!file) return {nullptr, FileTrouble::notAllowed, 0};
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
  if (GetFileType(handle) != FILE_TYPE_DISK) {
    std::fclose(file);
    return {nullptr, FileTrouble::notAFile, 0};
  }
  return {file, FileTrouble::none, _filelengthi64(_fileno(file))};
}

}  // namespace hexlume
