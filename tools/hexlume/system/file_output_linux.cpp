#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

constexpr const char* temporaryPrefix = ".hexlume-";
constexpr const char* temporarySuffix = ".tmp";

[[noreturn]] void Fail(const std::string& path) {
  throw OutputError(path, std::strerror(errno));
}

// Of the machine, as folders can be shared by several.
std::string HostKey() {
  char name[256] = "";
  gethostname(name, sizeof name - 1);
  uint32_t hash = 2166136261;
  for (const char* letter = name; *letter != '\0'; ++letter)
    hash = (hash ^ static_cast<uint8_t>(*letter)) * 16777619;
  return std::to_string(hash);
}

// Begins with the prefix, the machine and the process, each with a hyphen after it.
std::string TemporaryName() {
  static const std::string host = HostKey();
  static int count = 0;
  return temporaryPrefix + host + '-' + std::to_string(getpid()) + '-' + std::to_string(++count) +
         temporarySuffix;
}

// The file that a link leads to is replaced, not the link.
std::string BehindLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), std::free);
  if (!real) Fail(path);
  return real.get();
}

// A process that has ended keeps its number until another one has asked for its status, which can take for ever.
bool HasEnded(pid_t process) {
  if (kill(process, 0) != 0) return errno == ESRCH;
  const File file = OpenFile("/proc/" + std::to_string(process) + "/stat", "r");
  char state = ' ';
  return file && std::fscanf(file.get(), "%*d (%*[^)]) %c", &state) == 1 && state == 'Z';
}

bool IsLeftover(const std::string& name, const std::string& prefix) {
  if (name.compare(0, prefix.size(), prefix) != 0) return false;
  const auto process = static_cast<pid_t>(std::strtol(name.c_str() + prefix.size(), nullptr, 10));
  return process > 0 && process != getpid() && HasEnded(process);
}

}  // namespace

struct WholeFile::Target {
  explicit Target(const std::string& given) : path(given) {
    struct stat earlier = {};
    const bool exists = stat(path.c_str(), &earlier) == 0;
    if (exists && S_ISDIR(earlier.st_mode)) {
      errno = EISDIR;
      Fail(path);
    }
    if (exists && !S_ISREG(earlier.st_mode))
      descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    else
      OpenBeside(exists ? &earlier : nullptr);
    if (descriptor < 0) Fail(path);
  }

  ~Target() {
    if (descriptor >= 0) close(descriptor);
    if (!temporary.empty()) unlink(temporary.c_str());
  }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  // The new file has the permissions of the one that it replaces.
  void OpenBeside(const struct stat* earlier) {
    if (earlier && access(path.c_str(), W_OK) != 0) Fail(path);
    final = earlier ? BehindLinks(path) : path;
    std::string name = final.substr(0, FileNameStart(final)) + TemporaryName();
    constexpr mode_t allowed = 0666;
    descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, allowed);
    if (descriptor < 0) return;
    temporary = std::move(name);  // can't fail, so that the file is removed in any case
    // Where the system refuses that, the file is still the user's own.
    if (earlier) fchmod(descriptor, earlier->st_mode & 07777);
  }

  std::string path;       // as the user gave it
  std::string final;      // after links
  std::string temporary;  // empty once it is renamed, and for a pipe or a device
  int descriptor = -1;
};

WholeFile::WholeFile(const std::string& path) : target(std::make_unique<Target>(path)) {}

WholeFile::~WholeFile() = default;

void WholeFile::Write(const void* bytes, size_t size) {
  const char* at = static_cast<const char*>(bytes);
  while (size > 0) {
    const ssize_t written = write(target->descriptor, at, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) Fail(target->path);
    at += written;
    size -= static_cast<size_t>(written);
  }
}

void WholeFile::Commit() {
  const int descriptor = std::exchange(target->descriptor, -1);
  if (close(descriptor) != 0) Fail(target->path);
  if (target->temporary.empty()) return;
  if (rename(target->temporary.c_str(), target->final.c_str()) != 0) Fail(target->path);
  target->temporary.clear();
}

void RemoveLeftovers(const std::string& folder) {
  const std::string prefix = temporaryPrefix + HostKey() + '-';
  const auto entries = EntriesOf(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries)
    if (IsLeftover(entry.name, prefix)) unlink((folder + '/' + entry.name).c_str());
}

}  // namespace hexlume
