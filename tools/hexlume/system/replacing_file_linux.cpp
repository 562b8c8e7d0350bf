#include "tools/hexlume/system/replacing_file_linux.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

constexpr mode_t allowed = 0666;

[[noreturn]] void Fail(const std::string& path) {
  throw OutputError(path, std::strerror(errno));
}

[[noreturn]] void Fail(const std::string& path, int error) {
  errno = error;
  Fail(path);
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

std::string TemporaryName() {
  static const std::string prefix = TemporaryPrefix();
  static int count = 0;
  return prefix + std::to_string(getpid()) + '-' + std::to_string(++count) + ".tmp";
}

// The file that a link leads to is replaced, not the link.
std::string BehindLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), std::free);
  if (!real) Fail(path);
  return real.get();
}

}  // namespace

std::string TemporaryPrefix() {
  return ".hexlume-" + HostKey() + '-';
}

ReplacingFile ReplacingFile::Named(const std::string& path) {
  return {path, false};
}

ReplacingFile ReplacingFile::Nameless(const std::string& path) {
  return {path, true};
}

ReplacingFile::ReplacingFile(const std::string& given, bool isNameless) : path(given) {
  struct stat earlier = {};
  const bool exists = stat(path.c_str(), &earlier) == 0;
  if (exists && S_ISDIR(earlier.st_mode)) Fail(path, EISDIR);
  if (exists && !S_ISREG(earlier.st_mode)) {
    if (isNameless) Fail(path, ESPIPE);
    descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  } else {
    if (exists && access(path.c_str(), W_OK) != 0) Fail(path);
    final = exists ? BehindLinks(path) : path;
    if (isNameless) OpenNameless();
    if (descriptor < 0) OpenNamed();
  }
  if (descriptor < 0) Fail(path);
  // The new file has the permissions of the one that it replaces. Where the system refuses that, it is still the user's
  // own.
  if (exists && !final.empty()) fchmod(descriptor, earlier.st_mode & 07777);
}

ReplacingFile::~ReplacingFile() {
  if (descriptor >= 0) close(descriptor);
  if (!temporary.empty()) unlink(temporary.c_str());
}

std::string ReplacingFile::Folder() const {
  return final.substr(0, FileNameStart(final));
}

void ReplacingFile::OpenNameless() {
  const std::string folder = Folder();
  descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, allowed);
}

void ReplacingFile::OpenNamed() {
  std::string name = Folder() + TemporaryName();
  descriptor = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, allowed);
  if (descriptor >= 0) temporary = std::move(name);  // can't fail, so that the file is removed in any case
}

// A name can't be taken if it is there, so that of the file is taken in a second step.
void ReplacingFile::TakeName() {
  const std::string nameless = "/proc/self/fd/" + std::to_string(descriptor);
  std::string name = Folder() + TemporaryName();
  if (linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) Fail(path);
  temporary = std::move(name);
}

void ReplacingFile::Commit() {
  if (!final.empty() && temporary.empty()) TakeName();
  if (close(std::exchange(descriptor, -1)) != 0) Fail(path);
  if (final.empty()) return;
  if (rename(temporary.c_str(), final.c_str()) != 0) Fail(path);
  temporary.clear();
}

}  // namespace hexlume
