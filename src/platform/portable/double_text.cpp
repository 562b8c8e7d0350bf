#include "platform/double_text.h"

namespace hexlume {

std::from_chars_result ParseDouble(const char* first, const char* last, double& value) {
  return std::from_chars(first, last, value);
}

}  // namespace hexlume
