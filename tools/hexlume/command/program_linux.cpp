#include <new>

#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/system.h"

int main(int argc, char** argv) {
  try {
    return hexlume::RunTool(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  } catch (const std::bad_alloc&) {
    return hexlume::StatusOf(hexlume::noMemoryStatus).exit;
  }
}
