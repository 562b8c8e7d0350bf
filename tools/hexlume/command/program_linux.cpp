#include <cstdio>
#include <new>

#include "tools/hexlume/drawing/status.h"
#include "tools/hexlume/system/system.h"

int main(int argc, char** argv) {
  try {
    return hexlume::RunTool(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  } catch (const std::bad_alloc&) {
    std::fputs("hexlume: there isn't enough memory\n", stderr);
    return hexlume::StatusOf(hexlume::noMemoryStatus).exit;
  }
}
