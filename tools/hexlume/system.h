// The system's files and streams, as far as the tool needs them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace hexlume {

// Turns off the conversion of \n on standard output, so that a listing is the same on every system.
void UsePlainLineEnds();

// A text of the command line in UTF-8.
std::string Utf8Text(const std::string& text);

// Returns the size in bytes, or none if there is no such file, or if it is a folder or a device.
std::optional<uint64_t> FileSize(const std::string& path);

// Returns the index at which the file's name begins in a path.
size_t FileNameStart(const std::string& path);

// Returns the same key for two paths of one file, whether it exists or not. The key is absolute and in upper
// case, because some file systems ignore case.
std::string PathKey(const std::string& path);

}  // namespace hexlume
