#include "tools/batch/base/text.h"

#include <nlohmann/json.hpp>

#include "tools/hexlume/drawing/drawing_look.h"

namespace hexlume::batch {
namespace {

constexpr const char* digits = "0123456789ABCDEF";

bool IsPlain(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9') || std::string("-._~/").find(letter) != std::string::npos;
}

std::string TwoDigits(int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string EscapedLetter(char letter) {
  switch (letter) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    default: return std::string(1, letter);
  }
}

}  // namespace

std::string PercentEncoded(const std::string& path) {
  std::string encoded;
  for (const char letter : path) {
    const auto byte = static_cast<unsigned char>(letter);
    if (IsPlain(letter))
      encoded += letter;
    else
      encoded += std::string("%") + digits[byte >> 4] + digits[byte & 15];
  }
  return encoded;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char letter : text) quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  return quoted + '\'';
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string field = "\"";
  for (const char letter : text) field += letter == '"' ? std::string("\"\"") : std::string(1, letter);
  return field + '"';
}

std::string Escaped(const std::string& text) {
  // The JSON library replaces what isn't UTF-8.
  const auto handler = nlohmann::json::error_handler_t::replace;
  const std::string sound =
      IsUtf8(text)
          ? text
          : nlohmann::json::parse(nlohmann::json(text).dump(-1, ' ', false, handler)).get<std::string>();
  std::string escaped;
  for (const char letter : sound) escaped += EscapedLetter(letter);
  return escaped;
}

bool IsUtf8(const std::string& text) {
  Utf8Check check;
  return check.Take(text.data(), text.size()) && check.IsComplete();
}

std::string HexDigits(const std::string& bytes) {
  std::string text;
  for (const char letter : bytes) {
    const auto byte = static_cast<unsigned char>(letter);
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

std::string Duration(int64_t seconds) {
  const int64_t hours = seconds / 3600, minutes = seconds / 60 % 60;
  const std::string end = ':' + TwoDigits(seconds % 60);
  return hours == 0 ? std::to_string(minutes) + end : std::to_string(hours) + ':' + TwoDigits(minutes) + end;
}

}  // namespace hexlume::batch
