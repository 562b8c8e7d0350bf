#include "driver/text_stream.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "driver/work_budget.h"
#include "platform/fault_guard.h"
#include "platform/file_size.h"
#include "platform/find_byte.h"
#include "platform/mapped_file.h"

namespace hexlume {

namespace {

constexpr int32_t chunkLength = 256 * 1024;
constexpr size_t chunkSize = chunkLength;
constexpr size_t largestSize = std::numeric_limits<int32_t>::max();
constexpr char endOfText = 0x1A;

class FileSource : public TextSource {
 public:
  explicit FileSource(const char* path) : file(std::fopen(path, "rb")) {}
  ~FileSource() override {
    if (file) std::fclose(file);
  }
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  bool IsOpen() const { return file != nullptr; }
  size_t Read(char* buffer, size_t size) override { return std::fread(buffer, 1, size, file); }
  size_t ExpectedSize() const override {
    return static_cast<size_t>(std::clamp<int64_t>(SizeOfFile(file), 0, largestSize));
  }
  bool CanReadAgain() const override { return CanBeReadAgain(file); }
  void GoTo(size_t place) override { std::fseek(file, static_cast<long>(place), SEEK_SET); }
  bool HasFailed() const override { return std::ferror(file) != 0; }

 private:
  std::FILE* file;
};

class MappedSource : public TextSource {
 public:
  explicit MappedSource(std::unique_ptr<MappedFile> mapped) : file(std::move(mapped)) {}

  std::optional<std::string_view> Whole() const override { return file->Bytes(); }
  size_t Read(char*, size_t) override { return 0; }
  bool HasFailed() const override { return false; }
  bool IsShortened() const override { return file->IsShortened(); }
  void Passed(size_t place) override { file->Passed(place); }

 private:
  std::unique_ptr<MappedFile> file;
};

std::unique_ptr<TextSource> OpenFile(const char* path) {
  // A smaller one is read faster than it is mapped.
  constexpr size_t leastMapped = 1 << 20;
  if (auto mapped = MappedFile::Open(path, leastMapped))
    return std::make_unique<MappedSource>(std::move(mapped));
  auto source = std::make_unique<FileSource>(path);
  return source->IsOpen() ? std::move(source) : nullptr;
}

// Takes the memory for all bytes that are expected, as to move those of a large file takes as long as to read them.
void ReserveMemory(TextStream& stream) {
  try {
    stream.kept.reserve(std::min(stream.source->ExpectedSize() + 1, largestSize));
  } catch (const std::bad_alloc&) {
    // Then it is taken as needed, which is less if the text has an end mark.
  }
}

// Writes to each page of memory that is new. A call that reads a file into it may look at each page before it stores there, and
// a page that is read first is brought in twice: under Wine that takes a fiftieth of the time of a drawing of lines.
void TouchPages(char* first, size_t size) {
  constexpr size_t smallestPage = 4096;
  for (size_t i = 0; i < size; i += smallestPage) first[i] = '\0';
}

// The address of the text's first byte if all were in memory where these are. As a number, because it may be
// outside the memory.
const char* AddressOfText(const char* bytes, int32_t start) {
  return reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(bytes) - static_cast<uintptr_t>(start));
}

// Replaces the passing chunk by bytes from the end of those at hand on. Returns their number.
size_t FetchPassing(TextStream& stream, size_t wanted) {
  PassingChunk& passing = stream.passing;
  // Of a complete text, the source may have read bytes after the end mark.
  if (passing.complete || passing.size != stream.size) stream.source->GoTo(static_cast<size_t>(stream.size));
  passing.bytes.resize(chunkSize);
  passing.start = stream.start = stream.size;
  stream.bytes = AddressOfText(passing.bytes.data(), stream.start);
  return stream.source->Read(passing.bytes.data(), wanted);
}

// Fetches at most so many bytes after those at hand, without a look at the end mark. Returns their number.
size_t FetchBytes(TextStream& stream, size_t wanted) {
  const auto oldSize = static_cast<size_t>(stream.size);
  if (const auto whole = stream.source->Whole()) {
    stream.source->Passed(oldSize);
    stream.bytes = whole->data();
    return std::min(wanted, whole->size() - oldSize);
  }
  if (stream.passing.isUsed) return FetchPassing(stream, wanted);
  if (stream.kept.empty()) ReserveMemory(stream);
  stream.kept.resize(oldSize + wanted);
  TouchPages(stream.kept.data() + oldSize, wanted);
  const size_t got = stream.source->Read(stream.kept.data() + oldSize, wanted);
  stream.bytes = stream.kept.data();
  return got;
}

// After a fetch. What was read once must be there when it is read again.
void NotePassing(TextStream& stream) {
  PassingChunk& passing = stream.passing;
  passing.size = stream.size;
  passing.complete = stream.complete;
  if (stream.complete && stream.size < passing.furthest) throw faultCode;
  passing.endIsKnown = passing.endIsKnown || stream.complete;
  passing.furthest = std::max(passing.furthest, stream.size);
}

// Reads the next chunk of the file. Returns false if there is no more text.
bool Fetch(TextStream& stream) {
  if (stream.complete) return false;
  const auto oldSize = static_cast<size_t>(stream.size);
  const size_t wanted = std::min(NextRead(*stream.source, oldSize, chunkSize), largestSize - oldSize);
  const size_t got = FetchBytes(stream, wanted);
  const char* const fetched = stream.bytes + oldSize;
  const char* const textEnd = got > 0 ? FindByte(fetched, got, endOfText) : nullptr;
  const size_t added = textEnd ? static_cast<size_t>(textEnd - fetched) : got;
  stream.complete = got < wanted || wanted == 0 || textEnd;
  stream.size += static_cast<int32_t>(added);
  if (stream.passing.isUsed) NotePassing(stream);
  AllowWork(stream.size);
  return added > 0;
}

// Returns whether there is a byte at the stream's position, and fetches it if needed.
bool HasByte(TextStream& stream) {
  if (stream.position < stream.size) return true;
  return Fetch(stream) && stream.position < stream.size;
}

bool NextByteIs(TextStream& stream, char byte) {
  return HasByte(stream) && stream.bytes[stream.position] == byte;
}

}  // namespace

SourceOpener openSource = OpenFile;

bool OpenText(TextStream& stream, const char* path) {
  stream = TextStream();
  stream.source = openSource(path);
  if (!stream.source) return false;
  Fetch(stream);
  // On some systems a folder can be opened, but not read.
  return !stream.source->HasFailed();
}

void KeepNoMore(TextStream& stream) {
  if (stream.passing.isUsed || stream.complete || !stream.source || !stream.source->CanReadAgain()) return;
  PassingChunk& passing = stream.passing;
  passing.isUsed = true;
  passing.keptSize = passing.furthest = passing.start = passing.size = stream.size;
  // Gives back what ReserveMemory has taken for the others.
  stream.kept.resize(static_cast<size_t>(stream.size));
  stream.kept.shrink_to_fit();
  stream.bytes = stream.kept.data();
}

void KeepAll(TextStream& stream) {
  const PassingChunk passing = std::move(stream.passing);
  if (!passing.isUsed) return;
  stream.passing = PassingChunk();
  const auto keptSize = static_cast<size_t>(passing.keptSize);
  const auto passed = static_cast<size_t>(passing.furthest) - keptSize;
  stream.kept.resize(keptSize + passed);
  stream.source->GoTo(keptSize);
  if (stream.source->Read(stream.kept.data() + keptSize, passed) < passed) throw faultCode;
  stream.bytes = stream.kept.data();
  stream.start = 0;
  stream.size = passing.furthest;
  stream.complete = passing.endIsKnown;
}

void SeekOutside(TextStream& stream, int32_t position) {
  const PassingChunk& passing = stream.passing;
  if (!passing.isUsed) return;
  if (position < passing.keptSize) {
    stream.bytes = stream.kept.data();
    stream.start = 0;
    stream.size = passing.keptSize;
    stream.complete = false;
  } else if (position >= passing.start && position < passing.size) {
    stream.bytes = AddressOfText(passing.bytes.data(), passing.start);
    stream.start = passing.start;
    stream.size = passing.size;
    stream.complete = passing.complete;
  } else {
    // None until the next fetch, of the same chunk as ever: what a drawing may take depends on the bytes fetched.
    const int32_t passed = position - passing.keptSize;
    stream.start = stream.size = passing.keptSize + passed / chunkLength * chunkLength;
    stream.complete = false;
  }
}

bool ReadLine(TextStream& stream, char* line, int32_t limit) {
  int32_t length = 0;
  while (length < limit - 1 && HasByte(stream)) {
    const char byte = stream.bytes[stream.position++];
    if (byte == '\r' && NextByteIs(stream, '\n')) continue;
    line[length++] = byte;
    if (byte == '\n') break;
  }
  if (length == 0) return false;
  line[length] = '\0';
  return true;
}

void CheckForLoss(const TextStream& stream) {
  if (stream.source && stream.source->IsShortened()) throw faultCode;
}

int32_t EndOfLine(const TextStream& stream, int32_t place, int32_t limit) {
  const int32_t left = stream.size - place;
  if (left <= 0) return notFetched;
  const char* line = stream.bytes + place;
  const void* found = std::memchr(line, '\n', static_cast<size_t>(std::min(left, limit)));
  if (!found) return left < limit ? notFetched : place + limit - 1;
  const auto feed = static_cast<int32_t>(static_cast<const char*>(found) - line);
  // The line is full before this line feed. A CR before it isn't counted.
  if (feed == limit - 1 && line[feed - 1] != '\r') return place + feed;
  return place + feed + 1;
}

}  // namespace hexlume
