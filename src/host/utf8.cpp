#include "host/utf8.h"

#include "platform/code_page_932.h"

namespace hexlume {

namespace {

constexpr char32_t lastOfPlane0 = 0xFFFF;

void AppendUtf8(char16_t unit, std::string& text) {
  if (unit < 0x80) {
    text += static_cast<char>(unit);
  } else if (unit < 0x800) {
    text += static_cast<char>(0xC0 | unit >> 6);
    text += static_cast<char>(0x80 | (unit & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | unit >> 12);
    text += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (unit & 0x3F));
  }
}

// Bytes of a character of the code page, or of the one that is most like it, '?' if there is none.
uint16_t NearestBytes(char32_t character) {
  return character > lastOfPlane0 ? '?' : CodePage932Bytes(static_cast<char16_t>(character));
}

// Whether these bytes are that character itself.
bool AreBytesOf(char32_t character, uint16_t bytes) {
  const char text[] = {static_cast<char>(bytes >> 8), static_cast<char>(bytes)};
  return bytes > 0xFF ? Utf16Character(text, 2) == character : Utf16Character(text + 1, 1) == character;
}

// How many bytes a character has that begins with this one; 0 if none does.
size_t LengthFrom(uint8_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

// Not written longer than needed, no half of a pair, not beyond the last character.
bool IsSound(char32_t character, size_t length) {
  constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
  return character >= least[length] && character <= 0x10FFFF && !(character >= 0xD800 && character <= 0xDFFF);
}

}  // namespace

Utf8Character FirstCharacter(std::string_view text) {
  const auto first = static_cast<uint8_t>(text[0]);
  const size_t length = LengthFrom(first);
  if (length == 0 || length > text.size()) return {0, 0};
  if (length == 1) return {first, 1};
  char32_t character = first & (0xFF >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<uint8_t>(text[i]);
    if ((byte & 0xC0) != 0x80) return {0, 0};
    character = character << 6 | (byte & 0x3F);
  }
  return IsSound(character, length) ? Utf8Character{character, length} : Utf8Character{0, 0};
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const size_t bytes = FirstCharacter(text).bytes;
    if (bytes == 0) return false;
    text.remove_prefix(bytes);
  }
  return true;
}

std::string ToUtf8(std::string_view text) {
  std::string converted;
  converted.reserve(text.size());
  for (const char16_t unit : Utf16Text(text.data(), text.size())) AppendUtf8(unit, converted);
  return converted;
}

int64_t AppendCodePage932(std::string_view text, std::string& converted) {
  int64_t substituted = 0;
  while (!text.empty()) {
    const Utf8Character next = FirstCharacter(text);
    if (next.bytes == 0) break;
    const uint16_t bytes = NearestBytes(next.character);
    if (bytes > 0xFF) converted += static_cast<char>(bytes >> 8);
    converted += static_cast<char>(bytes & 0xFF);
    if (!AreBytesOf(next.character, bytes)) ++substituted;
    text.remove_prefix(next.bytes);
  }
  return substituted;
}

}  // namespace hexlume
