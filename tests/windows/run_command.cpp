#include <cstdlib>

#include "support/run_command.h"

namespace hexlume {

int RunCommand(const std::string& program, const std::string& arguments) {
  // The shell takes away the outermost pair of quotes.
  const std::string command = "\"\"" + program + "\" " + arguments + "\"";
  return std::system(command.c_str());
}

std::string JapaneseName() {
  // In code page 932; the second byte of the last character is that of a backslash.
  return "\x90\x7D\x96\xCA\x95\x5C";
}

}  // namespace hexlume
