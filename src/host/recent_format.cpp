#include "host/recent_format.h"

#include <algorithm>
#include <cstring>

#include "driver/group_reader.h"
#include "driver/numbers.h"
#include "host/utf8.h"

namespace hexlume {

namespace {

constexpr size_t rawChunk = 256 * 1024;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr int32_t firstRecentVersion = 1021;
constexpr int32_t embeddedObjectCode = 101;

std::string_view TakeLineOf(std::string_view& text) {
  const size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.remove_suffix(1);
  while (!line.empty() && line.front() == ' ') line.remove_prefix(1);
  return line;
}

// Looks for the version at the drawing's start.
bool HasRecentVersion(std::string_view text) {
  bool atVersion = false;
  while (!text.empty()) {
    const std::string_view code = TakeLineOf(text);
    const std::string_view value = TakeLineOf(text);
    if (code == "9") atVersion = value == "$ACADVER";
    if (code == "1" && atVersion && value.substr(0, 2) == "AC")
      return Atoi(std::string(value.substr(2)).c_str()) >= firstRecentVersion;
    if (code == "0" && value == "ENDSEC") return false;
  }
  return false;
}

bool IsPlain(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char byte) { return (byte & 0x80) != 0; });
}

// A line as the group reader takes it: in how many pieces.
size_t PiecesOf(std::string_view line) {
  constexpr size_t longestPiece = groupLineLimit - 1;
  const bool hasReturn = line.size() > 1 && line.substr(line.size() - 2) == "\r\n";
  const size_t length = line.size() - (hasReturn ? 1 : 0);
  return (length + longestPiece - 1) / longestPiece;
}

int32_t CodeOf(std::string_view line) {
  char text[groupLineLimit];
  const size_t length = std::min(line.size(), sizeof text - 1);
  std::memcpy(text, line.data(), length);
  text[length] = '\0';
  return Atoi(text);
}

}  // namespace

RecentFormat::RecentFormat(std::unique_ptr<TextSource> drawing, FormatChanges& noted)
    : inner(std::move(drawing)), changes(noted) {}

bool RecentFormat::HasFailed() const {
  return inner->HasFailed();
}

bool RecentFormat::FetchRaw() {
  if (rawEnded) return false;
  const size_t before = raw.size();
  raw.resize(before + rawChunk);
  const size_t got = inner->Read(raw.data() + before, rawChunk);
  raw.resize(before + got);
  rawEnded = got < rawChunk;
  return got > 0;
}

void RecentFormat::Start() {
  started = true;
  FetchRaw();
  const bool marked = std::string_view(raw).substr(0, byteOrderMark.size()) == byteOrderMark;
  isRecent = marked || HasRecentVersion(raw);
  if (marked) raw.erase(0, byteOrderMark.size());
  if (isRecent) return;
  text.swap(raw);
}

// The text as far as it is fetched; its last line, if that isn't complete, only at the end.
void RecentFormat::ConvertLines() {
  size_t start = 0;
  for (;;) {
    const size_t end = raw.find('\n', std::max(start, rawScanned));
    if (end == std::string::npos) break;
    TakeLine(std::string_view(raw).substr(start, end + 1 - start));
    start = end + 1;
  }
  if (rawEnded && start < raw.size()) {
    TakeLine(std::string_view(raw).substr(start));
    start = raw.size();
  }
  raw.erase(0, start);
  rawScanned = raw.size();
}

// Keeps step with the group reader, which takes a long line for several.
void RecentFormat::TakeLine(std::string_view lineBytes) {
  ++line;
  const size_t lengthBefore = text.size();
  Emit(lineBytes);
  const size_t pieces = PiecesOf(std::string_view(text).substr(lengthBefore));
  if (atCode) {
    const int32_t code = CodeOf(lineBytes);
    if (code == embeddedObjectCode && !leavingOut) {
      leavingOut = true;
      ++changes.embedded;
      changes.leftOut.push_back({textBefore + static_cast<int64_t>(lengthBefore), 0});
    }
    if (code == 0) leavingOut = false;
  }
  if (leavingOut) {
    text.resize(lengthBefore);
    ++changes.leftOut.back().lines;
  }
  if (pieces % 2 == 1) atCode = !atCode;
}

void RecentFormat::Emit(std::string_view lineBytes) {
  if (IsPlain(lineBytes)) {
    text.append(lineBytes);
  } else if (IsUtf8(lineBytes)) {
    const int64_t substituted = AppendCodePage932(lineBytes, text);
    if (!leavingOut) changes.substituted += substituted;
  } else {
    text.append(lineBytes);
    if (changes.otherLines++ == 0) changes.firstOtherLine = line;
  }
}

size_t RecentFormat::Read(char* buffer, size_t size) {
  if (!started) Start();
  size_t copied = 0;
  for (;;) {
    const size_t part = std::min(size - copied, text.size() - textTaken);
    std::memcpy(buffer + copied, text.data() + textTaken, part);
    textTaken += part;
    copied += part;
    if (copied == size) return copied;
    if (!isRecent) return copied + inner->Read(buffer + copied, size - copied);
    textBefore += static_cast<int64_t>(text.size());
    text.clear();
    textTaken = 0;
    if (!FetchRaw() && raw.empty()) return copied;
    ConvertLines();
  }
}

}  // namespace hexlume
