// Wide arguments, as names outside the ANSI code page are lost in the others.
#include "tools/hexlume/system/system.h"
#include "tools/hexlume/system/wide_text.h"

extern "C" int wmain(int argc, wchar_t** argv);

int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(hexlume::Utf8Text(argv[i]));
  return hexlume::RunTool(arguments);
}
