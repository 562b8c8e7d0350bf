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
  char bits = 0;
  for (const char byte : text) bits |= byte;
  return (bits & 0x80) == 0;
}

constexpr size_t longestPiece = groupLineLimit - 1;

// A line as the group reader takes it: in how many pieces.
size_t PiecesOf(std::string_view line) {
  const bool hasReturn = line.size() > 1 && line.substr(line.size() - 2) == "\r\n";
  const size_t length = line.size() - (hasReturn ? 1 : 0);
  return (length + longestPiece - 1) / longestPiece;
}

int32_t CodeOf(std::string_view line) {
  return Atoi(std::string(line.substr(0, longestPiece)).c_str());
}

// Whether a short line can be the code of an embedded object: no such number begins with another digit.
bool MayBeginObject(std::string_view line) {
  const size_t first = line.find_first_not_of(" \t\v\f\r\n");
  return first != std::string_view::npos &&
         (line[first] == '1' || line[first] == '0' || line[first] == '+') &&
         CodeOf(line) == embeddedObjectCode;
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

// The text as far as it is fetched; its last line, if that isn't complete, only at the end. Most lines stay
// as they are, and go on in runs.
void RecentFormat::ConvertLines() {
  size_t start = 0;
  size_t run = 0;
  while (start < raw.size()) {
    size_t end = raw.find('\n', std::max(start, rawScanned));
    if (end == std::string::npos && !rawEnded) break;
    end = std::min(end, raw.size() - 1) + 1;
    const std::string_view line = std::string_view(raw).substr(start, end - start);
    if (!PassesUnchanged(line)) {
      text.append(raw, run, start - run);
      TakeLine(line);
      run = end;
    }
    start = end;
  }
  text.append(raw, run, start - run);
  raw.erase(0, start);
  rawScanned = raw.size();
}

// A line that is like most: a whole piece for the group reader, with nothing to be changed or left out.
bool RecentFormat::PassesUnchanged(std::string_view lineBytes) {
  if (leavingOut || lineBytes.size() > longestPiece || !IsPlain(lineBytes)) return false;
  if (atCode && MayBeginObject(lineBytes)) return false;
  ++line;
  atCode = !atCode;
  return true;
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
