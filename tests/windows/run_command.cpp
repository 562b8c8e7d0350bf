#include <cstdlib>

#include "support/run_command.h"

namespace hexlume {

int RunCommand(const std::string& program, const std::string& arguments) {
  // The shell takes away the outermost pair of quotes.
  const std::string command = "\"\"" + program + "\" " + arguments + "\"";
  return std::system(command.c_str());
}

}  // namespace hexlume
