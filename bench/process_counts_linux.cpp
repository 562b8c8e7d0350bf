#include <filesystem>
#include <iterator>

#include "bench/process_counts.h"
#include "linux/process_resources.h"

namespace hexlume {

ProcessCounts CountProcess() {
  ProcessCounts counts;
  counts.memory = WorkingSet();
  const std::filesystem::directory_iterator files("/proc/self/fd");
  counts.handles = static_cast<size_t>(std::distance(begin(files), end(files)));
  return counts;
}

}  // namespace hexlume
