#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cerrno>
#include <cstdio>

#include "tools/hexlume/system/system.h"
#include "tools/hexlume/system/wide_text.h"

namespace hexlume {
namespace {

bool IsTerminal(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

int64_t Joined(DWORD high, DWORD low) {
  return static_cast<int64_t>(uint64_t{high} << 32 | low);
}

bool IsSeparator(char letter) {
  return letter == '\\' || letter == '/';
}

// In the ANSI code page of the process; none if a character isn't in it.
std::optional<std::string> AnsiText(const std::wstring& wide) {
  constexpr size_t mostBytesOfUnit = 4;
  std::string text(wide.size() * mostBytesOfUnit + 1, '\0');
  const bool isUtf8 = GetACP() == CP_UTF8;
  BOOL lacks = FALSE;
  const int size = WideCharToMultiByte(CP_ACP, isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, wide.data(),
                                       static_cast<int>(wide.size()), text.data(),
                                       static_cast<int>(text.size()), nullptr, isUtf8 ? nullptr : &lacks);
  if (lacks || (size == 0 && !wide.empty())) return std::nullopt;
  text.resize(static_cast<size_t>(size));
  return text;
}

std::wstring ShortPath(const std::wstring& path) {
  const DWORD size = GetShortPathNameW(path.c_str(), nullptr, 0);
  std::wstring brief(size, L'\0');
  brief.resize(size == 0 ? 0 : GetShortPathNameW(path.c_str(), brief.data(), size));
  return brief;
}

FileKind KindOf(const WIN32_FIND_DATAW& found) {
  if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) return FileKind::file;
  return found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT ? FileKind::other : FileKind::folder;
}

// A pipe or a device, which has no attributes.
bool IsDevice(const std::string& path) {
  return path.compare(0, 4, "\\\\.\\") == 0 || path.compare(0, 4, "//./") == 0;
}

}  // namespace

void UsePlainLineEnds() {
  _setmode(_fileno(stdout), _O_BINARY);
}

bool StandardOutputIsTerminal() {
  return IsTerminal(STD_OUTPUT_HANDLE);
}

bool StandardErrorIsTerminal() {
  return IsTerminal(STD_ERROR_HANDLE);
}

void PrintError(const std::string& text) {
  if (!StandardErrorIsTerminal()) {
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
    return;
  }
  const std::wstring wide = WideText(text);
  DWORD written = 0;
  WriteConsoleW(GetStdHandle(STD_ERROR_HANDLE), wide.data(), static_cast<DWORD>(wide.size()), &written,
                nullptr);
}

std::optional<FileStamp> StampOf(const std::string& path) {
  if (IsDevice(path)) return FileStamp{FileKind::other, 0, 0};
  WIN32_FILE_ATTRIBUTE_DATA file = {};
  if (!GetFileAttributesExW(WidePath(path).c_str(), GetFileExInfoStandard, &file)) return std::nullopt;
  const bool isFolder = file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
  return FileStamp{isFolder ? FileKind::folder : FileKind::file,
                   Joined(file.nFileSizeHigh, file.nFileSizeLow),
                   Joined(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime)};
}

File OpenFile(const std::string& path, const char* mode) {
  return File(_wfopen(WidePath(path).c_str(), WideText(mode).c_str()));
}

bool SeekFile(std::FILE* file, int64_t place, int origin) {
  return fseeko64(file, place, origin) == 0;
}

std::FILE* PlainStandardInput() {
  _setmode(_fileno(stdin), _O_BINARY);
  return stdin;
}

size_t FileNameStart(const std::string& path) {
  const size_t before = path.find_last_of("\\/:");
  return before == std::string::npos ? 0 : before + 1;
}

bool IsAbsolutePath(const std::string& path) {
  return (path.size() > 2 && path[1] == ':' && IsSeparator(path[2])) ||
         (!path.empty() && IsSeparator(path[0]));
}

std::string AbsolutePath(const std::string& path) {
  const std::wstring wide = WideText(path);
  const DWORD size = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
  std::wstring full(size, L'\0');
  full.resize(size == 0 ? 0 : GetFullPathNameW(wide.c_str(), size, full.data(), nullptr));
  return full.empty() ? path : Utf8Text(full);
}

std::string PathKey(const std::string& path) {
  std::wstring key = WideText(AbsolutePath(path));
  CharUpperBuffW(key.data(), static_cast<DWORD>(key.size()));
  return Utf8Text(key);
}

bool NamesIgnoreCase() {
  return true;
}

std::optional<std::vector<FolderEntry>> EntriesOf(const std::string& folder) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(WidePath(folder + "\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return std::nullopt;
  std::vector<FolderEntry> entries;
  do {
    const std::string name = Utf8Text(found.cFileName);
    if (name != "." && name != "..") entries.push_back({name, KindOf(found)});
  } while (FindNextFileW(search, &found));
  const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
  FindClose(search);
  if (!isWhole) return std::nullopt;
  return entries;
}

bool MakeFolders(const std::string& folder) {
  const std::optional<FileStamp> stamp = StampOf(folder);
  if (stamp && stamp->kind == FileKind::folder) return true;
  const size_t start = FileNameStart(folder);
  if (start > 0 && start < folder.size() && folder[start - 1] != ':' &&
      !MakeFolders(folder.substr(0, start - 1)))
    return false;
  if (CreateDirectoryW(WidePath(folder).c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS)
    return true;
  errno = GetLastError() == ERROR_ACCESS_DENIED ? EACCES : ENOENT;
  return false;
}

std::optional<std::string> LibraryPath(const std::string& path) {
  const std::wstring wide = WideText(path);
  if (const auto ansi = AnsiText(wide)) return ansi;
  const std::wstring brief = ShortPath(wide);
  return brief.empty() ? std::nullopt : AnsiText(brief);
}

int32_t ProcessorCount() {
  SYSTEM_INFO system = {};
  GetSystemInfo(&system);
  return system.dwNumberOfProcessors == 0 ? 1 : static_cast<int32_t>(system.dwNumberOfProcessors);
}

}  // namespace hexlume
