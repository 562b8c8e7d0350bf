#include "linux/process_resources.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace hexlume {

// Counted page by page. The numbers in statm are kept for each processor and are updated late.
size_t WorkingSet() {
  std::ifstream file("/proc/self/smaps_rollup");
  for (std::string word; file >> word;) {
    size_t kilobytes;
    if (word == "Rss:" && file >> kilobytes) return kilobytes * 1024;
  }
  throw std::runtime_error("the system doesn't tell the process's memory");
}

}  // namespace hexlume
