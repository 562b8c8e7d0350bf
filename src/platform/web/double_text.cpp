#include "platform/double_text.h"

#include <fast_float/fast_float.h>

namespace hexlume {

std::from_chars_result ParseDouble(const char* first, const char* last, double& value) {
  const fast_float::from_chars_result result = fast_float::from_chars(first, last, value);
  return {result.ptr, result.ec};
}

}  // namespace hexlume
