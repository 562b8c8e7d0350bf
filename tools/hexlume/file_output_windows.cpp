#include <windows.h>

#include <algorithm>

#include "tools/hexlume/file_output.h"
#include "tools/hexlume/system.h"
#include "tools/hexlume/wide_text.h"

namespace hexlume {
namespace {

constexpr const char* temporaryPrefix = ".hexlume-";

[[noreturn]] void Fail(const std::string& path) {
  throw OutputError(path, WordsOfError(GetLastError()));
}

void WriteAll(HANDLE file, const std::vector<uint8_t>& bytes, const std::string& path) {
  constexpr size_t most = 1 << 24;
  size_t done = 0;
  while (done < bytes.size()) {
    const DWORD part = static_cast<DWORD>(std::min(bytes.size() - done, most));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data() + done, part, &written, nullptr) || written == 0) Fail(path);
    done += written;
  }
}

// Closes the file, also where the writing fails. The error of the failure stays.
void WriteNew(const std::wstring& name, DWORD creation, const std::vector<uint8_t>& bytes,
              const std::string& path) {
  const HANDLE file =
      CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) Fail(path);
  try {
    WriteAll(file, bytes, path);
  } catch (const OutputError&) {
    CloseHandle(file);
    throw;
  }
  if (!CloseHandle(file)) Fail(path);
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

void WriteWholeFile(const std::string& path, const std::vector<uint8_t>& bytes) {
  const auto earlier = StampOf(path);
  if (earlier && earlier->kind == FileKind::other)
    return WriteNew(WidePath(path), OPEN_EXISTING, bytes, path);
  const std::wstring target = WidePath(path);
  const std::wstring temporary = WidePath(path.substr(0, FileNameStart(path)) + TemporaryName());
  try {
    WriteNew(temporary, CREATE_NEW, bytes, path);
    if (!MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)) Fail(path);
  } catch (const OutputError&) {
    DeleteFileW(temporary.c_str());
    throw;
  }
}

void RemoveLeftovers(const std::string& folder) {
  const std::string prefix = temporaryPrefix + HostKey() + '-';
  const auto entries = EntriesOf(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries)
    if (IsLeftover(entry.name, prefix)) DeleteFileW(WidePath(folder + "\\" + entry.name).c_str());
}

}  // namespace hexlume
