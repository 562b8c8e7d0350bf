#include "fuzz/target.h"

#include <cstdio>
#include <cstdlib>

// Processor faults go to the sanitizer and not to the library's own guard, which would hide them. Short histories of
// allocations and memory that isn't given back save half of the time.
extern "C" const char* __asan_default_options() {
  return "handle_segv=2:handle_sigbus=2:handle_sigfpe=2:handle_sigill=2:handle_sigtrap=2:"
         "malloc_context_size=4:quarantine_size_mb=16:allocator_release_to_os_interval_ms=-1";
}

// Fontconfig refers to memory by offsets, which the leak checker can't follow.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}

void hexlume::Check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "The contract is broken: %s\n", what);
  std::abort();
}
