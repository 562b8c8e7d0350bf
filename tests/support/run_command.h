// What the tests of the tool need of the system.
#pragma once

#include <cstdint>
#include <string>

namespace hexlume {

// Runs program with arguments, which may redirect its streams, as a user's shell does. Returns its exit
// status.
int RunCommand(const std::string& program, const std::string& arguments);

// Makes a file so large, without taking that room on the disk.
void GrowFile(const std::string& file, int64_t size);

// A Japanese file name as the system's shell takes it.
std::string JapaneseName();

// The same name as the tool prints it, in UTF-8.
std::string JapaneseMessage();

}  // namespace hexlume
