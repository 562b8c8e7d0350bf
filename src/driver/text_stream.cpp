#include "driver/text_stream.h"

#include <algorithm>
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

constexpr size_t chunkSize = 256 * 1024;
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

// Adds at most so many bytes to those of the stream, without a look at the end mark. Returns their number.
size_t FetchBytes(TextStream& stream, size_t wanted) {
  const auto oldSize = static_cast<size_t>(stream.size);
  if (const auto whole = stream.source->Whole()) {
    stream.source->Passed(oldSize);
    stream.bytes = whole->data();
    return std::min(wanted, whole->size() - oldSize);
  }
  if (stream.kept.empty()) ReserveMemory(stream);
  stream.kept.resize(oldSize + wanted);
  TouchPages(stream.kept.data() + oldSize, wanted);
  const size_t got = stream.source->Read(stream.kept.data() + oldSize, wanted);
  stream.bytes = stream.kept.data();
  return got;
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
  AllowWork(stream.size);
  return added > 0;
}

// Returns whether there is a byte at the stream's position, and fetches it if needed.
bool HasByte(TextStream& stream) {
  return stream.position < stream.size || Fetch(stream);
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
