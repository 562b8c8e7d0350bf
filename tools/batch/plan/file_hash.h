#pragma once

#include <optional>
#include <string>

namespace hexlume::batch {

// The SHA-256 of a file in hexadecimal digits, read in pieces. None if the file can't be read.
std::optional<std::string> HashOfFile(const std::string& path);

}  // namespace hexlume::batch
