// Our table beside the system's own.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <string>

#include "platform/code_page_932.h"

namespace hexlume {

namespace {

std::u16string SystemsText(const char* text, int length) {
  wchar_t characters[8] = {};
  const int count = MultiByteToWideChar(932, 0, text, length, characters, 8);
  return std::u16string(characters, characters + count);
}

uint16_t SystemsBytes(wchar_t unit) {
  char bytes[2] = {};
  const int count = WideCharToMultiByte(932, 0, &unit, 1, bytes, 2, nullptr, nullptr);
  const uint16_t first = static_cast<uint8_t>(bytes[0]);
  return count == 2 ? static_cast<uint16_t>(first << 8 | static_cast<uint8_t>(bytes[1])) : first;
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

TEST(CodePage932Windows, every_utf16_unit_has_the_bytes_that_the_system_has) {
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    EXPECT_EQ(CodePage932Bytes(static_cast<char16_t>(unit)), SystemsBytes(static_cast<wchar_t>(unit)))
        << unit;
  }
}

}  // namespace

}  // namespace hexlume
