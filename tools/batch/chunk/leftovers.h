// Files that a worker has left half written, because it or its machine was ended.
#pragma once

#include <set>
#include <string>

#include "tools/hexlume/archive/job_plan.h"

namespace hexlume::batch {

class Leftovers {
 public:
  // Removes those of ended processes of this machine. Each folder is looked at once.
  void CleanFoldersOf(const Job& job);

  // Removes from the same folders what has been left since, and what is older than any conversion can be, of whatever
  // machine.
  void CleanAgain(int32_t timeLimit) const;

 private:
  std::set<std::string> folders;
};

}  // namespace hexlume::batch
