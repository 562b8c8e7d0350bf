// Calls the host library over and over in one process, and reports whether its memory grows:
// hexlume_host_soak [CALLS]
#include <cstdio>
#include <cstdlib>

#include "host/host_calls.h"
#include "linux/process_resources.h"

int main(int argc, char** argv) {
  const int calls = argc > 1 ? std::atoi(argv[1]) : 100000;
  const int warmUp = calls / 10;
  const hexlume::HostCalls host;
  host.Run(0, warmUp);
  const size_t before = hexlume::WorkingSet();
  host.Run(warmUp, calls);
  const size_t after = hexlume::WorkingSet();
  std::printf("%zu KB after %d calls, %zu KB after %d\n", before / 1024, warmUp, after / 1024, calls);
  return after > before + 256 * 1024 ? 1 : 0;
}
