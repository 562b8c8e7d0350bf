#include "bench/speed/bare_reader.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace hexlume::bench {

namespace {

struct Line {
  const char* start;
  const char* next;
};

Line LineAt(const char* at, const char* end) {
  const void* const newline = std::memchr(at, '\n', static_cast<size_t>(end - at));
  return {at, newline ? static_cast<const char*>(newline) + 1 : end};
}

// The 96 bytes of a stroke: its pen, its selection, its two points, the selection of the pen before, and the pen's
// deletion. They go around in a buffer that stays in the processor's cache.
class Strokes {
 public:
  void Fill(const double* from, const double* to) {
    const int32_t words[24] = {38,
                               28,
                               1,
                               0,
                               0,
                               0,
                               0,
                               37,
                               12,
                               1,
                               27,
                               16,
                               Hundredths(from[0]),
                               Hundredths(from[1]),
                               54,
                               16,
                               Hundredths(to[0]),
                               Hundredths(to[1]),
                               37,
                               12,
                               static_cast<int32_t>(0x80000007),
                               40,
                               12,
                               1};
    std::memcpy(buffer.data() + count % kept * sizeof words, words, sizeof words);
    ++count;
  }
  int64_t Count() const { return static_cast<int64_t>(count); }

 private:
  static int32_t Hundredths(double value) { return static_cast<int32_t>(value * 100); }

  static constexpr size_t kept = 64;
  std::vector<char> buffer = std::vector<char>(kept * 96);
  size_t count = 0;
};

// Reads the groups between start and end, which must end with a line feed.
int64_t ReadGroups(const char* start, const char* end) {
  Strokes strokes;
  double point[2] = {}, other[2] = {};  // of a polyline: the vertex, and the one before
  bool isPolyline = false;
  int64_t vertices = 0;
  for (const char* at = start; at < end;) {
    const Line code = LineAt(at, end);
    if (code.next == end) break;
    const Line value = LineAt(code.next, end);
    at = value.next;
    switch (std::strtol(code.start, nullptr, 10)) {
      case 0:
        isPolyline = value.start[0] == 'L' && value.start[1] == 'W';
        vertices = 0;
        break;
      case 10:
        if (isPolyline) std::memcpy(other, point, sizeof other);
        point[0] = std::strtod(value.start, nullptr);
        break;
      case 11: other[0] = std::strtod(value.start, nullptr); break;
      case 20:
        point[1] = std::strtod(value.start, nullptr);
        if (isPolyline && vertices++ > 0) strokes.Fill(other, point);
        break;
      case 21:
        other[1] = std::strtod(value.start, nullptr);
        strokes.Fill(point, other);
        break;
    }
  }
  return strokes.Count();
}

}  // namespace

int64_t ReadBarely(const char* path) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  struct stat status;
  if (file < 0 || fstat(file, &status) != 0 || status.st_size == 0) return -1;
  const auto size = static_cast<size_t>(status.st_size);
  void* const mapping = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  close(file);
  if (mapping == MAP_FAILED) return -1;
  const char* const text = static_cast<const char*>(mapping);
  const int64_t strokes = text[size - 1] == '\n' ? ReadGroups(text, text + size) : -1;
  munmap(mapping, size);
  return strokes;
}

}  // namespace hexlume::bench
