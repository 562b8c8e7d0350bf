// Converts the fuzzer's inputs, as a host does. The first nine bytes of an input choose the call and the
// dialogs' answers, the rest is the drawing. A violation of the contract in hexlume.h ends the process.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "hexlume.h"
#include "hexlume_answers.h"

// Processor faults go to the sanitizer and not to the library's own guard, which would hide them.
extern "C" const char* __asan_default_options() {
  return "handle_segv=2:handle_sigbus=2:handle_sigfpe=2:handle_sigill=2:handle_sigtrap=2";
}

// Fontconfig refers to memory by offsets, which the leak checker can't follow.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}

namespace {

enum Conversion { whole, part, turned, fullSize, conversionCount };

// The size of the head of an input, in bytes. scripts/fuzz.sh writes one before each seed.
constexpr size_t headSize = 9;

struct Head {
  Conversion conversion;
  int32_t showDialogs;
  int32_t halfWidthFont;
  int32_t wholeTextClip;
  int32_t monochrome;
  int32_t scaleDenominator;
  std::vector<const char*> hiddenLayers;
  std::vector<int32_t> hiddenFamilies;
  RECT view;
};

const char* const layerNames[] = {"0", "A", "B", "\x8A\x4F\x8C\x60\x90\xFC"};

Head ReadHead(const uint8_t* bytes) {
  Head head = {};
  head.conversion = static_cast<Conversion>(bytes[0] % conversionCount);
  head.showDialogs = bytes[0] / conversionCount % 3;
  head.halfWidthFont = bytes[1] & 1;
  head.wholeTextClip = bytes[1] >> 1 & 1;
  head.monochrome = bytes[1] >> 2 & 1;
  for (int32_t i = 0; i < 4; ++i)
    if (bytes[1] >> (4 + i) & 1) head.hiddenLayers.push_back(layerNames[i]);
  for (int32_t family = 0; family < 5; ++family)
    if (bytes[2] >> family & 1) head.hiddenFamilies.push_back(family);
  head.scaleDenominator = bytes[3] * 5 - 5;
  // Each side of the view is -128 to 127 steps of 1 to 2^23.
  const int32_t step = int32_t{1} << bytes[4] % 24;
  const auto side = [&](int32_t i) { return static_cast<int8_t>(bytes[5 + i]) * step; };
  head.view = {side(0), side(1), side(2), side(3)};
  return head;
}

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "The contract is broken: %s\n", what);
  std::abort();
}

void Check(bool holds, const char* what) {
  if (!holds) Fail(what);
}

// Writes the drawing to the one file of the process, which is in memory. Returns its path.
const char* WriteDrawing(const uint8_t* bytes, size_t size) {
  static const int file = memfd_create("drawing", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  if (ftruncate(file, 0) != 0 || pwrite(file, bytes, size, 0) != static_cast<ssize_t>(size))
    Fail("no memory");
  return path.c_str();
}

uint32_t WordAt(const std::vector<uint8_t>& bytes, size_t place) {
  uint32_t word;
  std::memcpy(&word, &bytes[place], sizeof word);
  return word;
}

// Checks that the records fill the metafile and agree with the size and the count in the header.
void CheckRecords(HENHMETAFILE metafile) {
  constexpr uint32_t headerType = 1, endType = 14;
  constexpr size_t smallestHeader = 100;
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  Check(bytes.size() >= smallestHeader, "the metafile has no header");
  Check(GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data()) == bytes.size(),
        "the metafile's size changes");
  Check(WordAt(bytes, 0) == headerType && WordAt(bytes, 48) == bytes.size(), "the header has another size");
  size_t place = 0;
  uint32_t count = 0;
  uint32_t type = 0;
  while (place < bytes.size()) {
    Check(bytes.size() - place >= 8, "a record is cut off");
    Check(type != endType, "there is a record after the end");
    type = WordAt(bytes, place);
    const uint32_t size = WordAt(bytes, place + 4);
    Check(size >= 8 && size % 4 == 0 && size <= bytes.size() - place, "a record has no valid size");
    place += size;
    ++count;
  }
  Check(type == endType, "the metafile has no end");
  Check(WordAt(bytes, 52) == count, "the header has another number of records");
}

int32_t Convert(const Head& head, Conversion conversion, const char* path, HENHMETAFILE* out) {
  switch (conversion) {
    case whole: return vzDXFMetaMake(path, out, head.showDialogs, head.halfWidthFont, head.monochrome);
    case part:
      return vzDXFReMetaMake(path, out, head.halfWidthFont, head.view, head.wholeTextClip, head.showDialogs,
                             head.monochrome);
    case turned: return vzDXFRotMetaMake(out, head.monochrome);
    default: return vzDXFFullSizeMetaMake(path, out, head.showDialogs, head.halfWidthFont, head.monochrome);
  }
}

// The file always exists and no dialog is cancelled, so only two return codes are possible.
void ConvertAndCheck(const Head& head, Conversion conversion, const char* path) {
  char place;
  const auto untouched = reinterpret_cast<HENHMETAFILE>(&place);
  HENHMETAFILE out = untouched;
  try {
    const int32_t result = Convert(head, conversion, path, &out);
    Check(result == HEXLUME_OK || result == HEXLUME_NOT_A_DRAWING, "no such return code");
    Check(out != nullptr, "no metafile");
    Check(result != HEXLUME_OK || out != untouched, "success without a metafile");
    Check(result == HEXLUME_OK || out == untouched || conversion == whole, "a failure with a metafile");
  } catch (int code) {
    Check(conversion != whole, "a fault leaves the conversion that catches all");
    Check(code == 11 || code == -1, "no such fault");
    Check(out == untouched, "a fault with a metafile");
  }
  if (out == untouched) return;
  CheckRecords(out);
  Check(DeleteEnhMetaFile(out) != 0, "the metafile can't be given back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  if (size < headSize) return 0;
  const Head head = ReadHead(bytes);
  const char* path = WriteDrawing(bytes + headSize, size - headSize);
  vzSetDialogAnswers(head.scaleDenominator, head.hiddenLayers.data(),
                     static_cast<int32_t>(head.hiddenLayers.size()), head.hiddenFamilies.data(),
                     static_cast<int32_t>(head.hiddenFamilies.size()));
  if (head.conversion == turned) ConvertAndCheck(head, whole, path);
  ConvertAndCheck(head, head.conversion, path);
  return 0;
}
