// Our table beside the system's own.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/code_page_932.h"

namespace hexlume {

namespace {

std::u16string SystemsText(const char* text, int length) {
  wchar_t characters[8] = {};
  const int count = MultiByteToWideChar(932, 0, text, length, characters, 8);
  return std::u16string(characters, characters + count);
}

TEST(CodePage932Windows, every_byte_is_what_the_system_has) {
  for (int byte = 0; byte <= 0xFF; ++byte) {
    const char text[] = {static_cast<char>(byte)};
    EXPECT_EQ(Utf16Text(text, 1), SystemsText(text, 1)) << byte;
  }
}

TEST(CodePage932Windows, every_two_bytes_are_what_the_system_has) {
  for (int first = 0; first <= 0xFF; ++first) {
    for (int second = 0; second <= 0xFF; ++second) {
      const char text[] = {static_cast<char>(first), static_cast<char>(second)};
      EXPECT_EQ(Utf16Text(text, 2), SystemsText(text, 2)) << first << ' ' << second;
    }
  }
}

}  // namespace

}  // namespace hexlume
