#include "platform/utf8_file.h"

#include <sys/stat.h>

#include <cerrno>

namespace hexlume {

namespace {

FileTrouble TroubleOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP: return FileTrouble::notFound;
    case ENOMEM: return FileTrouble::noMemory;
    default: return FileTrouble::notAllowed;
  }
}

}  // namespace

OpenedFile OpenUtf8File(const char* path) {
  struct stat facts;
  if (stat(path, &facts) != 0) return {nullptr, TroubleOf(errno), 0};
  // Not opened: a pipe without a writer would wait for one.
  if (!S_ISREG(facts.st_mode)) return {nullptr, FileTrouble::notAFile, 0};
  std::FILE* const file = std::fopen(path, "rb");
  if (!file) return {nullptr, TroubleOf(errno), 0};
  return {file, FileTrouble::none, facts.st_size};
}

}  // namespace hexlume
