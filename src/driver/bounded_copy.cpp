#include "driver/bounded_copy.h"

#include <cstring>

namespace hexlume {

void BoundedCopy(char* destination, size_t size, const char* source) {
  const size_t length = std::strlen(source);
  if (length >= size) throw textTooLongCode;
  std::memcpy(destination, source, length + 1);
}

}  // namespace hexlume
