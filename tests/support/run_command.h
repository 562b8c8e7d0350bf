// Starts a program as a user's shell does.
#pragma once

#include <string>

namespace hexlume {

// Runs program with arguments, which may redirect its streams, and returns its exit status.
int RunCommand(const std::string& program, const std::string& arguments);

// A Japanese file name as the system's shell takes it.
std::string JapaneseName();

}  // namespace hexlume
