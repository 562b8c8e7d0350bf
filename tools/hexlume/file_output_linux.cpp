#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "tools/hexlume/file_output.h"
#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

constexpr const char* temporaryPrefix = ".hexlume-";
constexpr const char* temporarySuffix = ".tmp";

[[noreturn]] void Fail(const std::string& path) {
  throw OutputError(path, std::strerror(errno));
}

void WriteAll(int descriptor, const std::vector<uint8_t>& bytes, const std::string& path) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = write(descriptor, bytes.data() + done, bytes.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) Fail(path);
    done += static_cast<size_t>(written);
  }
}

class Descriptor {
 public:
  explicit Descriptor(int opened) : number(opened) {}
  ~Descriptor() {
    if (number >= 0) close(number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number; }
  bool Close() {
    const int closed = number;
    number = -1;
    return close(closed) == 0;
  }

 private:
  int number;
};

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
  return real ? real.get() : path;
}

// A name of its own for each attempt, so a file that a crash has left isn't in the way.
void WriteBeside(const std::string& path, const std::vector<uint8_t>& bytes, const struct stat* earlier) {
  if (earlier && access(path.c_str(), W_OK) != 0) Fail(path);
  const std::string target = earlier ? BehindLinks(path) : path;
  const std::string temporary = target.substr(0, FileNameStart(target)) + TemporaryName();
  constexpr mode_t allowed = 0666;
  Descriptor file(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, allowed));
  if (file.Number() < 0) Fail(path);
  try {
    if (earlier && fchmod(file.Number(), earlier->st_mode & 07777) != 0) Fail(path);
    WriteAll(file.Number(), bytes, path);
    if (!file.Close() || rename(temporary.c_str(), target.c_str()) != 0) Fail(path);
  } catch (const OutputError&) {
    unlink(temporary.c_str());
    throw;
  }
}

void WriteDirectly(const std::string& path, const std::vector<uint8_t>& bytes) {
  Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
  if (file.Number() < 0) Fail(path);
  WriteAll(file.Number(), bytes, path);
  if (!file.Close()) Fail(path);
}

bool IsLeftover(const std::string& name, const std::string& prefix) {
  if (name.compare(0, prefix.size(), prefix) != 0) return false;
  const auto process = static_cast<pid_t>(std::strtol(name.c_str() + prefix.size(), nullptr, 10));
  return process > 0 && process != getpid() && kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

void WriteWholeFile(const std::string& path, const std::vector<uint8_t>& bytes) {
  struct stat earlier = {};
  const bool exists = stat(path.c_str(), &earlier) == 0;
  if (exists && S_ISDIR(earlier.st_mode)) {
    errno = EISDIR;
    Fail(path);
  }
  if (exists && !S_ISREG(earlier.st_mode))
    WriteDirectly(path, bytes);
  else
    WriteBeside(path, bytes, exists ? &earlier : nullptr);
}

void RemoveLeftovers(const std::string& folder) {
  const std::string prefix = temporaryPrefix + HostKey() + '-';
  const auto entries = EntriesOf(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries)
    if (IsLeftover(entry.name, prefix)) unlink((folder + '/' + entry.name).c_str());
}

}  // namespace hexlume
