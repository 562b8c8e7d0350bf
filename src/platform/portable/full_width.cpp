#include "platform/full_width.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/code_page_932.h"

namespace hexlume {

namespace {

constexpr char16_t firstHalfWidth = 0xFF61;  // first half-width form of a Japanese character
constexpr char16_t halfWidthU = 0xFF73;
constexpr char16_t halfWidthKa = 0xFF76;
constexpr char16_t halfWidthTo = 0xFF84;
constexpr char16_t halfWidthHa = 0xFF8A;
constexpr char16_t halfWidthHo = 0xFF8E;
constexpr char16_t halfWidthVoiced = 0xFF9E;
constexpr char16_t halfWidthSemiVoiced = 0xFF9F;
constexpr char16_t vu = 0x30F4;

// The full-width forms of U+FF61 to U+FF9F. The last two are combining voice marks, which have no code.
constexpr char16_t fullWidth[] = {
    0x3002, 0x300C, 0x300D, 0x3001, 0x30FB, 0x30F2, 0x30A1, 0x30A3, 0x30A5, 0x30A7, 0x30A9, 0x30E3, 0x30E5,
    0x30E7, 0x30C3, 0x30FC, 0x30A2, 0x30A4, 0x30A6, 0x30A8, 0x30AA, 0x30AB, 0x30AD, 0x30AF, 0x30B1, 0x30B3,
    0x30B5, 0x30B7, 0x30B9, 0x30BB, 0x30BD, 0x30BF, 0x30C1, 0x30C4, 0x30C6, 0x30C8, 0x30CA, 0x30CB, 0x30CC,
    0x30CD, 0x30CE, 0x30CF, 0x30D2, 0x30D5, 0x30D8, 0x30DB, 0x30DE, 0x30DF, 0x30E0, 0x30E1, 0x30E2, 0x30E4,
    0x30E6, 0x30E8, 0x30E9, 0x30EA, 0x30EB, 0x30EC, 0x30ED, 0x30EF, 0x30F3, 0x3099, 0x309A,
};

char16_t FullWidth(char16_t character) {
  if (character == ' ') return 0x3000;
  if (character > ' ' && character < 0x7F && character != '\\') return character + 0xFEE0;
  if (character >= firstHalfWidth && character <= halfWidthSemiVoiced)
    return fullWidth[character - firstHalfWidth];
  if (character == 0x309B || character == 0x309C) return character - 2;  // combining form of the mark
  return character;
}

bool IsVoiceable(char16_t katakana) {
  return (katakana >= halfWidthKa && katakana <= halfWidthTo) ||
         (katakana >= halfWidthHa && katakana <= halfWidthHo);
}

// Returns the half-width katakana joined with the mark after it, or 0 if they can't be joined.
char16_t Joined(char16_t katakana, char16_t mark) {
  const char16_t plain = FullWidth(katakana);
  if (mark == halfWidthVoiced) {
    if (katakana == halfWidthU) return vu;
    if (katakana == 0xFF66 || katakana == 0xFF9C) return plain + 8;  // voiced wo, wa: not in code page 932
    return IsVoiceable(katakana) ? plain + 1 : 0;
  }
  if (mark == halfWidthSemiVoiced && katakana >= halfWidthHa && katakana <= halfWidthHo) return plain + 2;
  return 0;
}

void AppendBytes(std::string& text, uint16_t bytes) {
  if (bytes > 0xFF) text.push_back(static_cast<char>(bytes >> 8));
  text.push_back(static_cast<char>(bytes & 0xFF));
}

}  // namespace

std::string WidenText(const char* text) {
  const std::u16string characters = Utf16Text(text, std::strlen(text));
  std::string widened;
  widened.reserve(2 * characters.size());
  for (size_t i = 0; i < characters.size(); ++i) {
    const char16_t joined = i + 1 < characters.size() ? Joined(characters[i], characters[i + 1]) : u'\0';
    AppendBytes(widened, CodePage932Bytes(joined ? joined : FullWidth(characters[i])));
    if (joined) ++i;
  }
  return widened;
}

}  // namespace hexlume
