#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/replacing_file_linux.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

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
  ReplacingFile file;
};

WholeFile::WholeFile(const std::string& path) : target(new Target{ReplacingFile::Named(path)}) {}

WholeFile::~WholeFile() = default;

void WholeFile::Write(const void* bytes, size_t size) {
  const char* at = static_cast<const char*>(bytes);
  while (size > 0) {
    const ssize_t written = write(target->file.Descriptor(), at, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw OutputError(target->file.Path(), std::strerror(errno));
    at += written;
    size -= static_cast<size_t>(written);
  }
}

void WholeFile::Commit() {
  target->file.Commit();
}

void RemoveLeftovers(const std::string& folder) {
  const std::string prefix = TemporaryPrefix();
  const auto entries = EntriesOf(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries)
    if (IsLeftover(entry.name, prefix)) unlink((folder + '/' + entry.name).c_str());
}

}  // namespace hexlume
