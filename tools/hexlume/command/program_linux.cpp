#include "tools/hexlume/system/system.h"

int main(int argc, char** argv) {
  return hexlume::RunTool(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
