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

// Returns the code point at a place in a UTF-8 text, and moves the place on. What isn't UTF-8 is U+FFFD.
inline uint32_t NextCodePoint(const std::string& text, size_t& place) {
  constexpr uint32_t replacement = 0xFFFD;
  const auto lead = static_cast<uint8_t>(text[place++]);
  if (lead < 0x80) return lead;
  const int followers = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4) return replacement;
  uint32_t codePoint = lead & (0x3Fu >> followers);
  for (int i = 0; i < followers; ++i) {
    if (place == text.size() || (static_cast<uint8_t>(text[place]) & 0xC0) != 0x80) return replacement;
    codePoint = codePoint << 6 | (static_cast<uint8_t>(text[place++]) & 0x3F);
  }
  constexpr uint32_t least[] = {0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
  return codePoint < least[followers] || codePoint > 0x10FFFF || isSurrogate ? replacement : codePoint;
}

// Half of a surrogate pair is U+FFFD.
inline std::u16string Utf16Of(uint32_t codePoint) {
  constexpr char16_t replacement = 0xFFFD;
  if (IsHighSurrogate(codePoint) || IsLowSurrogate(codePoint)) return {replacement};
  if (codePoint < 0x10000) return {static_cast<char16_t>(codePoint)};
  return {static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10)),
          static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF))};
}

inline std::u16string Utf16Of(const std::string& utf8) {
  std::u16string text;
  for (size_t place = 0; place < utf8.size();) text += Utf16Of(NextCodePoint(utf8, place));
  return text;
}

}  // namespace hexlume
