#include "tools/hexlume/system/no_memory.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

#include "tools/hexlume/drawing/status.h"

namespace hexlume {
namespace {

const char* name = "";
std::terminate_handler earlier = nullptr;

[[noreturn]] void End() {
  try {
    if (const std::exception_ptr thrown = std::current_exception()) std::rethrow_exception(thrown);
  } catch (const std::bad_alloc&) {
    std::fputs(name, stderr);
    std::fputs(": there isn't enough memory\n", stderr);
    std::_Exit(StatusOf(noMemoryStatus).exit);
  } catch (...) {
  }
  earlier();
  std::abort();
}

}  // namespace

void EndWhereMemoryRunsOut(const char* program) {
  name = program;
  earlier = std::set_terminate(End);
}

}  // namespace hexlume
