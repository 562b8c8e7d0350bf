#include "tools/batch/chunk/leftovers.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>

#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

bool IsTemporary(const std::string& name) {
  const std::string start = ".hexlume-", end = ".tmp";
  return name.size() > start.size() + end.size() && name.compare(0, start.size(), start) == 0 &&
         name.compare(name.size() - end.size(), end.size(), end) == 0;
}

void RemoveOlderThan(int64_t oldest, const std::string& folder) {
  constexpr int64_t unitsInASecond = 1000000000;
  for (const FolderEntry& entry : EntriesOf(folder).value_or(std::vector<FolderEntry>())) {
    if (!IsTemporary(entry.name)) continue;
    const std::string path = Joined(folder, entry.name);
    const auto stamp = StampOf(path);
    if (stamp && stamp->modified / unitsInASecond < oldest) unlink(path.c_str());
  }
}

}  // namespace

void Leftovers::CleanFoldersOf(const Job& job) {
  for (const std::string& folder : FoldersOf(job))
    if (folders.insert(folder).second) RemoveLeftovers(folder);
}

void Leftovers::CleanAgain(int32_t timeLimit) const {
  constexpr int64_t hour = 3600;
  const int64_t oldest = std::time(nullptr) - std::max<int64_t>(hour, 2 * timeLimit);
  for (const std::string& folder : folders) {
    RemoveLeftovers(folder);
    RemoveOlderThan(oldest, folder);
  }
}

}  // namespace hexlume::batch
