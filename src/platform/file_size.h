// What is known of an open file.
#pragma once

#include <cstdint>
#include <cstdio>

namespace hexlume {

// In bytes. A pipe has none: 0 or less, or what it has at the moment.
int64_t SizeOfFile(std::FILE* file);

// Whether it can be read again from any place, as a pipe can not.
bool CanBeReadAgain(std::FILE* file);

}  // namespace hexlume
