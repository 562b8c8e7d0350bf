#include "tools/hexlume/drawing/drawing_look.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

namespace hexlume {
namespace {

constexpr size_t chunkSize = 256 * 1024;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr char endOfText = 0x1A;

std::string_view Trimmed(std::string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
    line.remove_suffix(1);
  while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
  return line;
}

// Takes the next line from the text; false without one that has an end.
bool TakeLine(std::string_view& text, std::string_view& line) {
  const size_t end = text.find('\n');
  if (end == std::string_view::npos) return false;
  line = Trimmed(text.substr(0, end));
  text.remove_prefix(end + 1);
  return true;
}

enum class Version { unknown, earlier, recent };

Version VersionOf(std::string_view line) {
  constexpr int firstRecent = 1021;
  const bool isRecent =
      line.substr(0, 2) == "AC" && std::atoi(std::string(line.substr(2)).c_str()) >= firstRecent;
  return isRecent ? Version::recent : Version::earlier;
}

// Unknown if the text ends before the version and before the end of the first section.
Version VersionIn(std::string_view text) {
  bool atVersion = false;
  std::string_view code, value;
  while (TakeLine(text, code) && TakeLine(text, value)) {
    if (code == "9") atVersion = value == "$ACADVER";
    if (code == "1" && atVersion) return VersionOf(value);
    if (code == "0" && value == "ENDSEC") return Version::earlier;
  }
  return Version::unknown;
}

// Most drawings have their version at the start.
bool IsRecent(DrawingParts& drawing) {
  Version version = Version::unknown;
  std::vector<char> start;
  for (size_t size = 2048; version == Version::unknown && size <= chunkSize; size *= 8) {
    start.resize(size);
    const size_t got = drawing.ReadAt(0, start.data(), size);
    const std::string_view text(start.data(), got);
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) return true;
    version = VersionIn(text);
    if (got < size) break;
  }
  return version == Version::recent;
}

bool IsUtf8(DrawingParts& drawing) {
  Utf8Check check;
  std::vector<char> chunk(chunkSize);
  int64_t place = 0;
  while (const size_t got = drawing.ReadAt(place, chunk.data(), chunk.size())) {
    const bool ends = std::memchr(chunk.data(), endOfText, got) != nullptr;
    const size_t count =
        ends ? static_cast<size_t>(std::find(chunk.data(), chunk.data() + got, endOfText) - chunk.data())
             : got;
    if (!check.Take(chunk.data(), count)) return false;
    if (ends) break;
    place += static_cast<int64_t>(got);
  }
  return check.IsComplete();
}

// Searches for a value "EOF" of a group 0.
class EndSearch {
 public:
  // The text without a part of its last line.
  bool Finds(std::string_view text) {
    std::string_view line;
    while (TakeLine(text, line))
      if (Take(line)) return true;
    rest = text;
    return false;
  }

  bool Take(std::string_view line) {
    const bool found = afterCode && line == "EOF";
    afterCode = line == "0";
    return found;
  }

  std::string_view rest;  // after the last line end

 private:
  bool afterCode = false;
};

bool FindsAll(DrawingParts& drawing) {
  EndSearch search;
  std::string text;
  std::vector<char> chunk(chunkSize);
  int64_t place = 0;
  while (const size_t got = drawing.ReadAt(place, chunk.data(), chunk.size())) {
    const std::string_view part(chunk.data(), got);
    const size_t end = part.find(endOfText);
    text += part.substr(0, end);
    if (search.Finds(text)) return true;
    if (end != std::string_view::npos) break;
    // Lines longer than this are no group 0.
    constexpr size_t longest = 4096;
    text = std::string(search.rest.substr(search.rest.size() > longest ? search.rest.size() - longest : 0));
    place += static_cast<int64_t>(got);
  }
  return search.Take(Trimmed(text));
}

}  // namespace

bool Utf8Check::TakeByte(unsigned char byte) {
  if (missing > 0) {
    if (byte < least || byte > most) return false;
    least = 0x80;
    most = 0xBF;
    --missing;
    return true;
  }
  if (byte < 0x80) return true;
  if (byte < 0xC2 || byte > 0xF4) return false;
  missing = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
  // Neither longer forms than needed nor surrogates nor numbers above 0x10FFFF.
  if (byte == 0xE0) least = 0xA0;
  if (byte == 0xED) most = 0x9F;
  if (byte == 0xF0) least = 0x90;
  if (byte == 0xF4) most = 0x8F;
  return true;
}

bool Utf8Check::Take(const char* bytes, size_t count) {
  constexpr uint64_t highBits = 0x8080808080808080;
  size_t i = 0;
  while (valid && i < count) {
    uint64_t eight = highBits;
    if (missing == 0 && count - i >= sizeof eight) std::memcpy(&eight, bytes + i, sizeof eight);
    if ((eight & highBits) == 0) {
      i += sizeof eight;
    } else {
      valid = TakeByte(static_cast<unsigned char>(bytes[i++]));
    }
  }
  return valid;
}

Encoding EncodingOf(DrawingParts& drawing) {
  if (!drawing.IsOpen() || !IsRecent(drawing)) return Encoding::codePage932;
  return IsUtf8(drawing) ? Encoding::utf8 : Encoding::notUtf8;
}

bool HasEndMark(DrawingParts& drawing) {
  char end[256];
  const int64_t place = std::max<int64_t>(drawing.Size() - static_cast<int64_t>(sizeof end), 0);
  const size_t got = drawing.ReadAt(place, end, sizeof end);
  EndSearch search;
  const std::string_view text(end, got);
  if (text.find(endOfText) == std::string_view::npos &&
      (search.Finds(text) || search.Take(Trimmed(search.rest))))
    return true;
  return FindsAll(drawing);
}

}  // namespace hexlume
