#include "host/host_run.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "driver/text_stream.h"

namespace hexlume {

namespace {

HostRun* currentRun = nullptr;

class MemorySource : public TextSource {
 public:
  MemorySource(const char* first, int64_t count)
      : whole(first, static_cast<size_t>(count)), next(first), left(whole.size()) {}

  std::optional<std::string_view> Whole() const override { return whole; }
  size_t Read(char* buffer, size_t size) override {
    const size_t part = std::min(size, left);
    std::memcpy(buffer, next, part);
    next += part;
    left -= part;
    return part;
  }
  size_t ExpectedSize() const override { return whole.size(); }
  bool HasFailed() const override { return false; }

 private:
  std::string_view whole;
  const char* next;
  size_t left;
};

class FileSource : public TextSource {
 public:
  explicit FileSource(HostRun& noted) : run(noted) {}
  ~FileSource() override {
    if (file) std::fclose(file);
  }
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  FileTrouble Open(const char* path) {
    const OpenedFile opened = OpenUtf8File(path);
    file = opened.file;
    size = opened.size;
    return opened.trouble;
  }
  size_t ExpectedSize() const override {
    constexpr int64_t most = std::numeric_limits<int32_t>::max();
    return static_cast<size_t>(std::clamp<int64_t>(size, 0, most));
  }
  size_t Read(char* buffer, size_t size) override {
    const size_t got = std::fread(buffer, 1, size, file);
    if (std::ferror(file)) run.readFailed = true;
    return got;
  }
  bool HasFailed() const override { return std::ferror(file) != 0; }

 private:
  std::FILE* file = nullptr;
  int64_t size = 0;
  HostRun& run;
};

std::unique_ptr<TextSource> OpenForConversion(const char*) {
  return currentRun->BeginPass();
}

SourceOpener fileOpener = nullptr;

int64_t CountLines(TextSource& source, int64_t upTo) {
  if (const auto whole = source.Whole()) {
    const std::string_view counted = whole->substr(0, static_cast<size_t>(upTo));
    return std::count(counted.begin(), counted.end(), '\n');
  }
  std::vector<char> buffer(256 * 1024);
  int64_t lines = 0;
  while (upTo > 0) {
    const auto wanted = static_cast<size_t>(std::min<int64_t>(upTo, static_cast<int64_t>(buffer.size())));
    const size_t got = source.Read(buffer.data(), wanted);
    lines += std::count(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(got), '\n');
    upTo -= static_cast<int64_t>(got);
    if (got < wanted) break;
  }
  return lines;
}

}  // namespace

HostRun::HostRun(const HostInput& taken, const HostOptions& asked, int32_t passCount)
    : input(taken), options(asked), passes(passCount) {
  currentRun = this;
  fileOpener = openSource;
  openSource = OpenForConversion;
  Restart();
}

HostRun::~HostRun() {
  openSource = fileOpener;
  currentRun = nullptr;
  runWatch = {};
}

int64_t HostRun::Size() {
  if (input.bytes) return total = input.byteCount;
  const OpenedFile opened = OpenUtf8File(input.path.c_str());
  trouble = opened.trouble;
  if (!opened.file) return -1;
  std::fclose(opened.file);
  return total = opened.size;
}

std::unique_ptr<TextSource> HostRun::OpenRaw() {
  if (input.bytes) return std::make_unique<MemorySource>(input.bytes, input.byteCount);
  auto source = std::make_unique<FileSource>(*this);
  const FileTrouble found = source->Open(input.path.c_str());
  // The first one counts: a later opening can succeed.
  if (trouble == FileTrouble::none) trouble = found;
  return found == FileTrouble::none ? std::move(source) : nullptr;
}

std::unique_ptr<TextSource> HostRun::Open(FormatChanges& noted) {
  std::unique_ptr<TextSource> source = OpenRaw();
  if (!source || options.plain.format == HEXLUME_FORMAT_AS_IS) return source;
  return std::make_unique<RecentFormat>(std::move(source), noted);
}

std::unique_ptr<TextSource> HostRun::BeginPass() {
  if (pass > 0) EndPass(false);
  ++pass;
  done = 0;
  changes = {};
  runWatch.position = 0;
  if (end != RunEnd::none || !Report(0)) EndRun();
  return Open(changes);
}

void HostRun::EndPass(bool whole) {
  if (end == RunEnd::cancelled) return;
  Report(whole && end == RunEnd::none ? total : runWatch.position);
}

void HostRun::Restart() {
  if (end == RunEnd::cancelled) return;
  end = RunEnd::none;
  endPass = 0;
  runWatch = {};
  runWatch.look = [] { return currentRun->Look(); };
  runWatch.groupsToLook = 0;
  const int64_t limit = options.plain.limit_strokes;
  if (limit > 0) runWatch.strokeLimit = limit;
  runWatch.strokesAtLook = 1;
}

void HostRun::EndBy(RunEnd reason) {
  end = reason;
  endPass = pass;
}

bool HostRun::Report(int64_t bytes) {
  done = std::clamp(bytes, done, std::max(done, total));
  reported = std::chrono::steady_clock::now();
  if (!options.plain.progress) return true;
  if (options.plain.progress(options.plain.user, pass, passes, done, total) == 0) return true;
  EndBy(RunEnd::cancelled);
  return false;
}

bool HostRun::Look() {
  constexpr auto betweenReports = std::chrono::milliseconds(5);
  // A stroke takes no fewer bytes of a metafile.
  constexpr int64_t bytesOfStroke = 16;
  const hexlume_options& asked = options.plain;
  if (runWatch.strokes >= runWatch.strokeLimit) EndBy(RunEnd::strokeLimit);
  if (asked.limit_bytes > 0 && runWatch.strokes > asked.limit_bytes / bytesOfStroke) EndBy(RunEnd::byteLimit);
  const auto now = std::chrono::steady_clock::now();
  const int64_t limit = asked.limit_milliseconds;
  if (limit > 0 && now - start >= std::chrono::milliseconds(limit) / timeParts) EndBy(RunEnd::timeLimit);
  if (end == RunEnd::none && now - reported >= betweenReports) Report(runWatch.position);
  return end == RunEnd::none;
}

int64_t HostRun::Milliseconds() const {
  const auto passed = std::chrono::steady_clock::now() - start;
  return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

int64_t LineAt(HostRun& run, int64_t position) {
  FormatChanges changes;
  const std::unique_ptr<TextSource> source = run.Open(changes);
  if (!source) return 0;
  int64_t line = 1 + CountLines(*source, position);
  for (const FormatChanges::LeftOut& leftOut : changes.leftOut)
    if (leftOut.position <= position) line += leftOut.lines;
  return line;
}

int64_t LastLine(HostRun& run) {
  TextStream stream;
  stream.source = run.OpenRaw();
  if (!stream.source) return 0;
  int64_t lines = 0;
  bool isOpen = false;  // the last line has no end
  char piece[groupLineLimit];
  while (ReadLine(stream, piece, sizeof piece)) {
    // Not the piece's last byte: a piece can have a byte 0.
    isOpen = stream.bytes[stream.position - 1] != '\n';
    if (!isOpen) ++lines;
  }
  return lines + (isOpen ? 1 : 0);
}

}  // namespace hexlume
