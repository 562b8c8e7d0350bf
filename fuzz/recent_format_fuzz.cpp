// The adapter for recent drawings: whatever the sizes of the reads are, it gives the same text and notes the same changes. Of
// the head of an input the first byte chooses the sizes, the second what is put before the drawing.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "fuzz/drawing_input.h"
#include "fuzz/target.h"
#include "host/recent_format.h"

using namespace hexlume;

namespace {

// Gives the bytes out in reads of any size, as TextSource demands: less than asked for only at the end.
class Bytes : public TextSource {
 public:
  explicit Bytes(std::string_view text) : left(text) {}
  size_t Read(char* buffer, size_t size) override {
    const size_t part = std::min(size, left.size());
    std::memcpy(buffer, left.data(), part);
    left.remove_prefix(part);
    return part;
  }
  bool HasFailed() const override { return false; }

 private:
  std::string_view left;
};

struct Adapted {
  std::string text;
  FormatChanges changes;
};

Adapted Adapt(std::string_view drawing, size_t readSize) {
  Adapted adapted;
  RecentFormat format(std::make_unique<Bytes>(drawing), adapted.changes);
  std::string part(readSize, '\0');
  for (;;) {
    const size_t got = format.Read(part.data(), readSize);
    adapted.text.append(part, 0, got);
    if (got < readSize) return adapted;
  }
}

int64_t LinesLeftOut(const FormatChanges& changes) {
  int64_t lines = 0;
  int64_t position = 0;
  for (const FormatChanges::LeftOut& leftOut : changes.leftOut) {
    Check(leftOut.position >= position && leftOut.lines >= 0, "objects that are left out have no order");
    position = leftOut.position;
    lines += leftOut.lines;
  }
  return lines;
}

void CheckSame(const Adapted& one, const Adapted& other) {
  Check(one.text == other.text, "the text depends on the sizes of the reads");
  const auto& a = one.changes;
  const auto& b = other.changes;
  Check(a.substituted == b.substituted && a.embedded == b.embedded && a.otherLines == b.otherLines &&
            a.firstOtherLine == b.firstOtherLine && a.leftOut.size() == b.leftOut.size(),
        "the changes depend on the sizes of the reads");
}

// Lines stay lines, but for those left out.
void CheckLines(std::string_view drawing, const Adapted& adapted) {
  const auto lines = [](std::string_view text) { return std::count(text.begin(), text.end(), '\n'); };
  const int64_t leftOut = LinesLeftOut(adapted.changes);
  const int64_t missing = lines(drawing) - lines(adapted.text);
  const bool endsInLine = !drawing.empty() && drawing.back() != '\n';
  Check(missing == leftOut || (endsInLine && missing == leftOut - 1), "lines are lost or added");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  static const char* const heads[] = {"", "\xEF\xBB\xBF", "9\n$ACADVER\n1\nAC1021\n",
                                      "  9\r\n$ACADVER\r\n  1\r\nAC1032\r\n"};
  if (size < headSize) return 0;
  const std::string drawing =
      heads[bytes[1] % 4] + std::string(reinterpret_cast<const char*>(bytes) + headSize, size - headSize);
  const Adapted whole = Adapt(drawing, 1 << 16);
  CheckSame(whole, Adapt(drawing, 1 + bytes[0] * size_t{3}));
  CheckLines(drawing, whole);
  return 0;
}
