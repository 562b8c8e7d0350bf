// What the tool needs to know of the system's files and streams.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace hexlume {

// Lets a line on standard output end in \n alone, so that a listing is the same on every system.
void UsePlainLineEnds();

// A text of the command line in UTF-8.
std::string Utf8Text(const std::string& text);

// In bytes; none if there is no such file, or if it is a folder or a device.
std::optional<uint64_t> FileSize(const std::string& path);

// Where the file's name begins in a path.
size_t FileNameStart(const std::string& path);

// The same for two paths of one file, whether it exists or not: absolute, and without the difference of upper
// and lower case, which some file systems don't make either.
std::string PathKey(const std::string& path);

}  // namespace hexlume
