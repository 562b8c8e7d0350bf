// UTF-16, the encoding of texts in metafiles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace hexlume {

inline bool IsHighSurrogate(uint32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

inline bool IsLowSurrogate(uint32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

// Returns the character of a surrogate pair.
inline uint32_t JoinSurrogates(uint32_t high, uint32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

inline void AppendUtf8(std::string& text, uint32_t codePoint) {
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
    return;
  }
  const int followers = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
  constexpr uint32_t leads[] = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(leads[followers] | codePoint >> (6 * followers));
  for (int shift = 6 * (followers - 1); shift >= 0; shift -= 6) {
    text += static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
  }
}

}  // namespace hexlume
