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

// The number of bytes before the first one that isn't ASCII.
size_t PlainSize(std::string_view text) {
  size_t i = 0;
  for (uint64_t eight; i + sizeof eight <= text.size(); i += sizeof eight) {
    std::memcpy(&eight, text.data() + i, sizeof eight);
    if (eight & 0x8080808080808080u) break;
  }
  while (i < text.size() && (text[i] & 0x80) == 0) ++i;
  return i;
}

bool IsPlain(std::string_view text) {
  return PlainSize(text) == text.size();
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

// Whether a text has a "101" that can be the code of an embedded object: before it is only what Atoi skips. The loop
// has no branch, so that compilers make vector instructions of it.
bool MayHaveObject(std::string_view text) {
  uint8_t found = 0;
  for (size_t i = 0; i + 3 <= text.size(); ++i) {
    const char before = i == 0 ? '\n' : text[i - 1];
    const bool isStart = (before <= ' ') | (before == '+') | (before == '0');
    found |= static_cast<uint8_t>(isStart & (text[i] == '1') & (text[i + 1] == '0') & (text[i + 2] == '1'));
  }
  return found != 0;
}

// Lines that go on as they are: each a whole piece for the group reader, with nothing to be changed or left out.
struct PlainLines {
  size_t size = 0;  // bytes
  size_t count = 0;
};

// No more at a time than a piece, so that no line among them can be longer.
PlainLines FindPlainLines(std::string_view text) {
  const std::string_view plain = text.substr(0, PlainSize(text.substr(0, longestPiece)));
  const size_t size = plain.rfind('\n') + 1;
  if (MayHaveObject(plain.substr(0, size))) return {};
  return {size, static_cast<size_t>(
                    std::count(plain.begin(), plain.begin() + static_cast<std::ptrdiff_t>(size), '\n'))};
}

}  // namespace

RecentFormat::RecentFormat(std::unique_ptr<TextSource> drawing, FormatChanges& noted)
    : inner(std::move(drawing)), changes(noted) {}

bool RecentFormat::HasFailed() const {
  return inner->HasFailed();
}

// Of what it reads: what it gives is seldom longer.
size_t RecentFormat::ExpectedSize() const {
  return inner->ExpectedSize();
}

bool RecentFormat::FetchRaw() {
  if (rawEnded) return false;
  const size_t before = raw.size();
  const size_t wanted = NextRead(*inner, rawTaken, rawChunk);
  raw.resize(before + wanted);
  const size_t got = inner->Read(raw.data() + before, wanted);
  raw.resize(before + got);
  rawTaken += got;
  rawEnded = got < wanted;
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
    const std::string_view rest = std::string_view(raw).substr(start);
    if (const PlainLines plain = leavingOut ? PlainLines{} : FindPlainLines(rest); plain.size > 0) {
      line += static_cast<int64_t>(plain.count);
      if (plain.count % 2 == 1) atCode = !atCode;
      start += plain.size;
      continue;
    }
    size_t end = raw.find('\n', std::max(start, rawScanned));
    if (end == std::string::npos && !rawEnded) break;
    end = std::min(end, raw.size() - 1) + 1;
    text.append(raw, run, start - run);
    TakeLine(rest.substr(0, end - start));
    start = run = end;
  }
  text.append(raw, run, start - run);
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
