#include "text/mtext_codes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "platform/code_page_932.h"
#include "text/text_bytes.h"
#include "text/text_strings.h"

namespace hexlume {

namespace {

void DropFront(char* text, size_t count) {
  const size_t length = std::strlen(text);
  CountTextRound(length);
  const size_t dropped = std::min(count, length);
  std::memmove(text, text + dropped, length - dropped + 1);
}

// Removes the code at the start of groupValue up to its ";", or four bytes if there is no ";".
void DropLeadingCode() {
  const char* const end = FindCharacters(state.groupValue, ";");
  DropFront(state.groupValue, end ? static_cast<size_t>(end - state.groupValue) + 1 : 4);
}

// Returns the UTF-16 unit given by up to four hexadecimal digits, 0 if there are none.
char16_t UnicodeUnit(const char* digits) {
  const std::string number(digits, std::min<size_t>(std::strlen(digits), 4));
  return static_cast<char16_t>(std::strtoul(number.c_str(), nullptr, 16));
}

// Returns a unit as bytes of code page 932, or the fixed double-byte sign of one of three symbols. Unit 0
// gives an empty string.
std::string BytesOf(char16_t unit) {
  switch (unit) {
    case 0x2205: return diameterSign;
    case 0x00B0: return degreeSign;
    case 0x25CF: return middleDot;
  }
  std::string bytes;
  const uint16_t character = CodePage932Bytes(unit);
  if (character > 0xFF) bytes += static_cast<char>(character >> 8);
  if (character != 0) bytes += static_cast<char>(character & 0xFF);
  return bytes;
}

const char* FindUnicodeCode(const char* text) {
  return std::strstr(text, "\\U");
}

// Returns the digits of a "\U+" code, or the end of the text if the code is cut off.
const char* DigitsOf(const char* code) {
  return code + std::min<size_t>(std::strlen(code), 3);
}

}  // namespace

// Removes leading codes of any kind, up to the first "\f" or "\U".
void ReadMTextString(MTextCodes& codes) {
  ParseFontScales(codes.scaleW, codes.scaleT, codes.obliqueQ);
  while (state.groupValue[0] == '\\' && state.groupValue[1] != 'f' && state.groupValue[1] != 'U')
    DropLeadingCode();
  BoundedCopy(state.entText, state.groupValue);
  const char* const code = FindUnicodeCode(state.entText);
  if (!code) {
    codes.pending += state.entText;
    BoundedCopy(state.entText, codes.pending.c_str());
    return;
  }
  // entText keeps the code itself: the character is drawn only if a group 1 without such a code follows.
  codes.pending.append(state.entText, static_cast<size_t>(code - state.entText));
  codes.pending += BytesOf(UnicodeUnit(DigitsOf(code)));
}

// Removes leading "\A" codes alone, and converts all "\U" codes.
void ReadBlockMTextString(MTextCodes& codes) {
  ParseBlockFontScales(codes.scaleW, codes.scaleT, codes.obliqueQ);
  while (state.groupValue[0] == '\\' && state.groupValue[1] == 'A') DropLeadingCode();
  const char* rest = state.groupValue;
  while (const char* const code = FindUnicodeCode(rest)) {
    const char* const digits = DigitsOf(code);
    codes.pending.append(rest, static_cast<size_t>(code - rest));
    codes.pending += BytesOf(UnicodeUnit(digits));
    rest = digits + std::min<size_t>(std::strlen(digits), 4);
  }
  codes.pending += rest;
  BoundedCopy(state.blockText, codes.pending.c_str());
}

// Removes leading "\A" codes alone, four bytes each, and converts no "\U" code. The last group 1 is drawn.
void ReadDimMTextString(MTextCodes& codes) {
  ParseFontScales(codes.scaleW, codes.scaleT, codes.obliqueQ);
  while (state.groupValue[0] == '\\' && state.groupValue[1] == 'A') {
    DropFront(state.groupValue, 4);
    ParseFontScales(codes.scaleW, codes.scaleT, codes.obliqueQ);
  }
  BoundedCopy(state.entText, state.groupValue);
}

void TakeParagraph(char* work, char* text, size_t size) {
  char* const end = std::strstr(work, "\\P");
  if (end) *end = '\0';
  BoundedCopy(text, size, work);
  if (end) std::memmove(work, end + 2, std::strlen(end + 2) + 1);
}

void CountLines(int32_t& count) {
  CountTextRound(std::strlen(state.entText));
  for (const char* end = state.entText; (end = std::strstr(end, "\\P")) != nullptr; end += 2) ++count;
}

}  // namespace hexlume
