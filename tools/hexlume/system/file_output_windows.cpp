#include <windows.h>

#include <algorithm>
#include <utility>

#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/system.h"
#include "tools/hexlume/system/wide_text.h"

namespace hexlume {
namespace {

constexpr const char* temporaryPrefix = ".hexlume-";

[[noreturn]] void Fail(const std::string& path) {
  throw OutputError(path, WordsOfError(GetLastError()));
}

// The machine doesn't share its numbers of processes with others.
std::string HostKey() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  GetComputerNameW(name, &size);
  uint32_t hash = 2166136261;
  for (const wchar_t* letter = name; *letter != L'\0'; ++letter) hash = (hash ^ *letter) * 16777619;
  return std::to_string(hash);
}

std::string TemporaryName() {
  static int count = 0;
  return temporaryPrefix + HostKey() + '-' + std::to_string(GetCurrentProcessId()) + '-' +
         std::to_string(++count) + ".tmp";
}

bool IsRunning(DWORD process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (!handle) return GetLastError() == ERROR_ACCESS_DENIED;
  const bool runs = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return runs;
}

bool IsLeftover(const std::string& name, const std::string& prefix) {
  if (name.compare(0, prefix.size(), prefix) != 0) return false;
  const auto process = static_cast<DWORD>(std::strtoul(name.c_str() + prefix.size(), nullptr, 10));
  return process != 0 && process != GetCurrentProcessId() && !IsRunning(process);
}

}  // namespace

struct WholeFile::Target {
  explicit Target(const std::string& given) : path(given) {
    const auto earlier = StampOf(path);
    const bool isDevice = earlier && earlier->kind == FileKind::other;
    std::wstring name = WidePath(isDevice ? path : path.substr(0, FileNameStart(path)) + TemporaryName());
    file = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, isDevice ? OPEN_EXISTING : CREATE_NEW,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) Fail(path);
    if (!isDevice) temporary = std::move(name);  // can't fail, so that the file is removed in any case
  }

  ~Target() {
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (!temporary.empty()) DeleteFileW(temporary.c_str());
  }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  std::string path;
  std::wstring temporary;  // empty once it is renamed, and for a pipe or a device
  HANDLE file = INVALID_HANDLE_VALUE;
};

WholeFile::WholeFile(const std::string& path) : target(std::make_unique<Target>(path)) {}

WholeFile::~WholeFile() = default;

void WholeFile::Write(const void* bytes, size_t size) {
  constexpr size_t most = 1 << 24;
  const char* at = static_cast<const char*>(bytes);
  while (size > 0) {
    DWORD written = 0;
    if (!WriteFile(target->file, at, static_cast<DWORD>(std::min(size, most)), &written, nullptr) ||
        written == 0)
      Fail(target->path);
    at += written;
    size -= written;
  }
}

// The function can open the file only while nobody else has it open.
bool WholeFile::FillBy(const std::function<bool(const wchar_t* path)>& fill, size_t size) {
  if (target->temporary.empty()) return false;
  if (!CloseHandle(std::exchange(target->file, INVALID_HANDLE_VALUE))) Fail(target->path);
  const bool isFilled = fill(target->temporary.c_str());
  target->file = CreateFileW(target->temporary.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
  if (target->file == INVALID_HANDLE_VALUE) Fail(target->path);
  if (isFilled && GetFileSize(target->file, nullptr) == size) return true;
  if (!SetEndOfFile(target->file)) Fail(target->path);
  return false;
}

void WholeFile::Commit() {
  if (!CloseHandle(std::exchange(target->file, INVALID_HANDLE_VALUE))) Fail(target->path);
  if (target->temporary.empty()) return;
  if (!MoveFileExW(target->temporary.c_str(), WidePath(target->path).c_str(), MOVEFILE_REPLACE_EXISTING))
    Fail(target->path);
  target->temporary.clear();
}

void RemoveLeftovers(const std::string& folder) {
  const std::string prefix = temporaryPrefix + HostKey() + '-';
  const auto entries = EntriesOf(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries)
    if (IsLeftover(entry.name, prefix)) DeleteFileW(WidePath(folder + "\\" + entry.name).c_str());
}

}  // namespace hexlume
