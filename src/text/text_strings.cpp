#include "text/text_strings.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "driver/numbers.h"
#include "driver/work_budget.h"
#include "platform/code_page_932.h"
#include "text/text_bytes.h"

namespace hexlume {

namespace {

constexpr size_t none = std::string::npos;

// Whether a text has one of these bytes, also as the second of a character. Most texts have no codes, and are then left as they
// are without another look.
bool HasAny(const char* text, const char* bytes) {
  return std::strpbrk(text, bytes) != nullptr;
}

// Returns the first place of the code from start on that begins at a character, or none.
size_t FindFrom(const std::string& text, const char* sought, size_t start = 0) {
  const char* place = FindCharacters(text.c_str() + start, sought);
  return place == nullptr ? none : static_cast<size_t>(place - text.c_str());
}

// Removes the first occurrence of the code. Returns false if there is none.
bool CutFirst(std::string& text, const char* code) {
  const size_t place = FindFrom(text, code);
  if (place == none) return false;
  text.erase(place, std::strlen(code));
  return true;
}

// Removes the first occurrence, found by bytes.
void CutFirstBytes(std::string& text, const char* code) {
  const size_t place = text.find(code);
  if (place != none) text.erase(place, std::strlen(code));
}

void CutAll(std::string& text, const char* code) {
  while (CutFirst(text, code)) continue;
}

void ReplaceFirstBytes(std::string& text, const char* code, const char* sign) {
  const size_t place = text.find(code);
  if (place != none) text.replace(place, std::strlen(code), sign);
}

constexpr size_t percentCodeLength = 3;  // "%%" and one byte, which is missing if the text ends there

// After a "%%d" the rest of the text is lost, and the sign is written twice. "%%P" isn't a code.
// Both are kept.
void ExpandFirstPercentCode(std::string& text) {
  const size_t place = text.find("%%");
  if (place == none) return;
  switch (text.c_str()[place + 2]) {
    case 'c':
    case 'C': text.replace(place, percentCodeLength, diameterSign); break;
    case 'd':
    case 'D': text.erase(place).append(degreeSign).append(degreeSign); break;
    case 'p': text.replace(place, percentCodeLength, plusMinusSign); break;
    default: text.erase(place, percentCodeLength);
  }
}

// Here the text after a "%%d" is kept, and capital letters aren't codes.
const char* BlockPercentSign(char letter) {
  switch (letter) {
    case 'c': return diameterSign;
    case 'd': return degreeSign;
    case 'p': return plusMinusSign;
    default: return "";
  }
}

void ExpandFirstBlockPercentCode(std::string& text) {
  const size_t place = text.find("%%");
  if (place != none) text.replace(place, percentCodeLength, BlockPercentSign(text.c_str()[place + 2]));
}

// Removes all "%%u" that begin at a character, also those that a removal makes.
void CutUnderlines(std::string& text) {
  if (text.find("%%u") == none) return;
  std::vector<std::string> characters;
  const auto endsWith = [&characters](size_t back, const char* character) {
    return characters.size() >= back && characters[characters.size() - back] == character;
  };
  for (size_t at = 0; at < text.size();) {
    const size_t bytes = CharacterBytes(&text[at], text.size() - at);
    characters.push_back(text.substr(at, bytes));
    at += bytes;
    if (endsWith(1, "u") && endsWith(2, "%") && endsWith(3, "%")) characters.resize(characters.size() - 3);
  }
  text.clear();
  for (const std::string& character : characters) text += character;
}

// Expands the "%%" codes up to the first that has a byte of a double-byte character, which would make other
// characters of the text after it. Returns false if there is such a code.
bool ExpandWholeCodes(std::string& text) {
  if (text.find("%%") == none) return true;
  std::string expanded;
  const char* const bytes = text.c_str();
  size_t at = 0;
  while (at < text.size()) {
    const size_t length = CharacterBytes(bytes + at, text.size() - at);
    const bool hasCode = bytes[at + length - 1] == '%' && bytes[at + length] == '%';
    if (hasCode && (length == 2 || IsLeadByte(static_cast<uint8_t>(bytes[at + 2])))) break;
    expanded += hasCode ? BlockPercentSign(bytes[at + 2]) : text.substr(at, length);
    at += hasCode ? std::min(percentCodeLength, text.size() - at) : length;
  }
  const bool isWhole = at == text.size();
  text = expanded.append(text, at);
  return isWhole;
}

// Replaces the first pair of braces with a code, as in "{\C1;Red}", by its content. The ";" is searched for
// from the start of the text, not from the brace: a ";" before the brace garbles the text. This is kept.
void OpenFirstBrace(std::string& text) {
  const size_t brace = FindFrom(text, "{\\");
  if (brace == none) return;
  const size_t codeEnd = FindFrom(text, ";");
  std::string opened = text.substr(0, brace);
  if (codeEnd != none) {
    const size_t close = FindFrom(text, "}", codeEnd + 1);
    if (close != none) opened += text.substr(codeEnd + 1, close - codeEnd - 1) + text.substr(close + 1);
  } else {
    const size_t close = FindFrom(text, "}");
    if (close != none && close > 0) opened += text[close - 1];
    if (close != none) opened += text.substr(close + 1);
  }
  text = opened;
}

// One round of StripBraceCodes.
void StripRound(std::string& text) {
  text.erase(0, std::min(text.find_first_not_of('}'), text.length()));
  if (text[0] == '\\') {
    const size_t codeEnd = FindFrom(text, ";");
    if (codeEnd != none) text.erase(0, codeEnd + 1);
  }
  CutFirst(text, "\\A1;");
  OpenFirstBrace(text);
}

// At most 230 rounds have been seen for a text that fits a buffer.
constexpr int mostRounds = 10000;

// Strips until no brace with a code is left. A round can lengthen the text, up to the buffer's size.
void StripRounds(char* buffer, size_t size) {
  if (buffer[0] != '}' && !HasAny(buffer, "\\")) return;
  std::string text = buffer;
  std::string before;
  for (int round = 0; round < mostRounds; ++round) {
    CountTextRound(text.size());
    before = text;
    StripRound(text);
    BoundedCopy(buffer, size, text.c_str());
    if (FindFrom(text, "{\\") == none || text == before) return;
  }
  NoteBound(textRoundsBound);
}

void CutParens(std::string& text, int levels) {
  for (int level = 0; level < levels; ++level) {
    CutFirstBytes(text, "(");
    CutFirstBytes(text, ")");
  }
}

// A code's value: the bytes from the code to the next ";" or "|", found by bytes.
struct CodeValue {
  size_t start = none;
  size_t end = none;

  bool IsThere() const { return end != none; }
};

CodeValue FindValue(const std::string& text, const char* code, char closing = ';') {
  CodeValue value;
  const size_t place = text.find(code);
  if (place == none) return value;
  value.start = place + std::strlen(code);
  value.end = text.find(closing, value.start);
  return value;
}

std::string TextOf(const std::string& text, const CodeValue& value) {
  return text.substr(value.start, value.end - value.start);
}

void ParseScale(const std::string& text, const char* code, double& scale) {
  const CodeValue value = FindValue(text, code);
  if (value.IsThere()) scale = Atof(TextOf(text, value).c_str());
}

// Removes the code and all of the text before it.
void ParseScaleAndCut(std::string& text, const char* code, double& scale) {
  const CodeValue value = FindValue(text, code);
  if (!value.IsThere()) return;
  scale = Atof(TextOf(text, value).c_str());
  text.erase(0, value.end + 1);
}

// Keeps the text from the ";" on and, before it, as many bytes of the text's start as the number has. These
// bytes are drawn.
void ParseScaleAndLeaveStump(std::string& text, const char* code, double& scale) {
  const CodeValue value = FindValue(text, code);
  if (!value.IsThere()) return;
  const std::string number = TextOf(text, value);
  scale = Atof(number.c_str());
  text = text.substr(0, number.length()) + text.substr(value.end);
}

void ExtractFace(const std::string& text, char (&faceName)[textSize]) {
  CountTextRound(text.size());
  const CodeValue face = FindValue(text, "\\f", '|');
  if (face.IsThere()) BoundedCopy(faceName, TextOf(text, face).c_str());
}

}  // namespace

void CountTextRound(size_t bytes) {
  constexpr int64_t stepsOfRound = 300, stepsOfByte = 8;
  CountSteps(stepsOfRound + static_cast<int64_t>(bytes) * stepsOfByte);
}

void ExpandPercentCodes() {
  if (!HasAny(state.entText, "%\\")) return;
  std::string text = state.entText;
  do {
    CountTextRound(text.size());
    CutAll(text, "%%u");
    CutAll(text, "%%o");
    ExpandFirstPercentCode(text);
    // Throws for a text that a "%%d" has made too long, even if later rounds would shorten it.
    BoundedCopy(state.entText, text.c_str());
    // One code of each symbol a round. Plus-minus has no "\U+" code.
    ReplaceFirstBytes(text, "\\U+2205", diameterSign);
    ReplaceFirstBytes(text, "\\U+00B0", degreeSign);
    ReplaceFirstBytes(text, "\\U+25CF", middleDot);
  } while (text.find("%%") != none);
  BoundedCopy(state.entText, text.c_str());
}

void ExpandBlockPercentCodes() {
  if (!HasAny(state.blockText, "%")) return;
  std::string text = state.blockText;
  CountTextRound(text.size());
  CutUnderlines(text);
  while (!ExpandWholeCodes(text)) {
    CountTextRound(text.size());
    ExpandFirstBlockPercentCode(text);
    CutUnderlines(text);
  }
  BoundedCopy(state.blockText, text.c_str());
}

void ExpandDimInsertPercentCodes() {
  const std::string text = state.dimText;
  CountTextRound(text.size());
  // What is expanded never ends with a "%", so it makes no code with what comes after it.
  std::string expanded;
  size_t done = 0;
  for (size_t place = 0; (place = text.find("%%", done)) != none;
       done = std::min(place + percentCodeLength, text.size()))
    expanded.append(text, done, place - done).append(BlockPercentSign(text.c_str()[place + 2]));
  BoundedCopy(state.dimText, expanded.append(text, done).c_str());
}

void StripBraceCodes() {
  StripRounds(state.entText, sizeof state.entText);
}

void StripBlockBraceCodes() {
  StripRounds(state.blockText, sizeof state.blockText);
}

void StripSpaceAndParens() {
  if (!HasAny(state.entText, " ()")) return;
  std::string text = state.entText;
  int levels = 0;  // the number of blanks, at least 1
  do {
    CountTextRound(text.size());
    CutFirstBytes(text, " ");
    ++levels;
  } while (text.find(' ') != none);
  CutParens(text, levels);
  BoundedCopy(state.entText, text.c_str());
}

void StripBlockSpaceAndParens() {
  if (!HasAny(state.blockText, " ()\\")) return;
  std::string text = state.blockText;
  int levels = 0;
  do {
    CountTextRound(text.size());
    CutFirst(text, "\\A1;");
    CutFirstBytes(text, " ");
    ++levels;
  } while (text.find(' ') != none);
  CutParens(text, levels);
  BoundedCopy(state.blockText, text.c_str());
}

void StripFullWidthSpace() {
  std::string text = state.entText;
  CutAll(text, fullWidthBlank);
  BoundedCopy(state.entText, text.c_str());
}

void WidenEmptyBrackets() {
  const std::string text = state.entText;
  StripSpaceAndParens();
  StripFullWidthSpace();
  const bool isEmptyPair = std::strcmp(state.entText, fullWidthBrackets) == 0;
  BoundedCopy(state.entText, text.c_str());
  if (!isEmptyPair) return;

  const size_t bracket = FindFrom(text, "\x81\x69");
  if (bracket == none) return;
  const size_t blank = FindFrom(text, fullWidthBlank, bracket);
  if (blank == none) return;
  // Repeats as many bytes as the blank's distance from the bracket: 2, which is one blank, if it directly
  // follows. Any other distance can split a character.
  const std::string widened =
      text.substr(0, bracket + 2) + text.substr(blank, blank - bracket) + text.substr(blank);
  BoundedCopy(state.entText, widened.c_str());
}

void ParseFontScales(double& width, double& tracking, double& oblique) {
  const std::string text = state.groupValue;
  CountTextRound(text.size());
  ParseScale(text, "\\T", tracking);
  ParseScale(text, "\\W", width);
  ParseScale(text, "\\Q", oblique);
}

void ParseBlockFontScales(double& width, double& tracking, double& oblique) {
  std::string text = state.groupValue;
  CountTextRound(text.size());
  ParseScaleAndLeaveStump(text, "\\T", tracking);
  ParseScaleAndCut(text, "\\W", width);
  ParseScaleAndCut(text, "\\Q", oblique);
  BoundedCopy(state.groupValue, text.c_str());
}

void ExtractFontName() {
  ExtractFace(state.entText, state.entFaceName);
}

void ExtractBlockFontName() {
  ExtractFace(state.blockText, state.blockFaceName);
}

}  // namespace hexlume
