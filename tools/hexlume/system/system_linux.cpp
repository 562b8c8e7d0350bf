#include "tools/hexlume/system/system.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <new>
#include <thread>

namespace hexlume {
namespace {

FileKind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return FileKind::file;
  return S_ISDIR(mode) ? FileKind::folder : FileKind::other;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// The kind that a folder gives without a look at the file, if it does.
FileKind KindOfEntry(const std::string& folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return FileKind::file;
  if (entry.d_type == DT_DIR) return FileKind::folder;
  const std::string path = folder + '/' + entry.d_name;
  struct stat file = {};
  if (lstat(path.c_str(), &file) != 0) return FileKind::other;
  if (!S_ISLNK(file.st_mode)) return KindOf(file.st_mode);
  return stat(path.c_str(), &file) == 0 && S_ISREG(file.st_mode) ? FileKind::file : FileKind::other;
}

}  // namespace

void UsePlainLineEnds() {}

bool StandardOutputIsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

bool StandardErrorIsTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

void PrintError(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

std::optional<FileStamp> StampOf(const std::string& path) {
  constexpr int64_t nanosecondsInASecond = 1000000000;
  struct stat file = {};
  if (stat(path.c_str(), &file) != 0) return std::nullopt;
  return FileStamp{KindOf(file.st_mode), file.st_size,
                   file.st_mtim.tv_sec * nanosecondsInASecond + file.st_mtim.tv_nsec};
}

File OpenFile(const std::string& path, const char* mode) {
  return File(std::fopen(path.c_str(), (std::string(mode) + 'e').c_str()));
}

bool SeekFile(std::FILE* file, int64_t place, int origin) {
  return fseeko(file, place, origin) == 0;
}

std::FILE* PlainStandardInput() {
  return stdin;
}

size_t FileNameStart(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? 0 : slash + 1;
}

bool IsAbsolutePath(const std::string& path) {
  return path.compare(0, 1, "/") == 0;
}

std::string AbsolutePath(const std::string& path) {
  static const std::filesystem::path here = [] {
    std::error_code error;
    return std::filesystem::current_path(error);
  }();
  return (here / path).lexically_normal().string();
}

std::string PathKey(const std::string& path) {
  std::error_code error;
  std::string key = std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error).string();
  if (key.empty()) key = path;
  for (char& letter : key) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return key;
}

bool NamesIgnoreCase() {
  return false;
}

std::optional<std::vector<FolderEntry>> EntriesOf(const std::string& folder) {
  const std::unique_ptr<DIR, CloseFolder> opened(opendir(folder.c_str()));
  if (!opened && errno == ENOMEM) throw std::bad_alloc();
  if (!opened) return std::nullopt;
  std::vector<FolderEntry> entries;
  errno = 0;
  while (const dirent* const entry = readdir(opened.get())) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") entries.push_back({name, KindOfEntry(folder, *entry)});
    errno = 0;
  }
  if (errno != 0) return std::nullopt;
  return entries;
}

bool MakeFolders(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  errno = error.value();
  return !error;
}

std::optional<std::string> LibraryPath(const std::string& path) {
  return path;
}

int32_t ProcessorCount() {
  const unsigned count = std::thread::hardware_concurrency();
  return count == 0 ? 1 : static_cast<int32_t>(count);
}

}  // namespace hexlume
