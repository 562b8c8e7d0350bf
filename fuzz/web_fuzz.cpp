// The entrance of web pages, compiled for this system: the table of fonts, the progress of the page, its numbers, and calls as
// the page makes them. The first byte of the head also chooses what becomes of the fonts.
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/drawing_input.h"
#include "fuzz/target.h"
#include "platform/double_text.h"
#include "platform/web/font_table.h"
#include "platform/web/progress.h"

using namespace hexlume;

namespace {

int32_t callsLeft = -1;  // of progress, until the page cancels

using Bytes = std::vector<uint8_t>;

Bytes ReadFile(const char* path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return Bytes(bytes.begin(), bytes.end());
}

// The table keeps the bytes.
void FillFonts(bool isFixedPitchFirst) {
  static const Bytes fonts[] = {ReadFile("/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf"),
                                ReadFile("/usr/share/fonts/opentype/ipafont-gothic/ipagp.ttf")};
  hexlume_fonts_clear();
  for (size_t i = 0; i < std::size(fonts); ++i) {
    const Bytes& font = fonts[isFixedPitchFirst ? i : 1 - i];
    if (!font.empty())
      hexlume_fonts_add(font.data(), static_cast<int32_t>(font.size()), "sheet\n\xE3\x82\xB4");
  }
}

// Rarely, as each font is opened anew: other tables, and the drawing's own bytes as a font.
void ChangeFonts(uint8_t choice, const DrawingInput& input) {
  static bool isFilled = false;
  if (!isFilled || choice == 0xFE || choice == 0xFD) FillFonts(choice != 0xFD);
  isFilled = true;
  if (choice == 0xFC) hexlume_fonts_clear();
  if (choice != 0xFB && choice != 0xFC) return;
  hexlume_fonts_add(static_cast<const uint8_t*>(input.drawing.bytes),
                    static_cast<int32_t>(input.drawing.byte_count), "A\n\nB");
  isFilled = false;
}

// Of the numbers that begin at this place, the C library must read the same as the page's reader.
void CheckNumber(const char* first, const char* last) {
  const std::string text(first, std::min<size_t>(static_cast<size_t>(last - first), 40));
  if (text.empty() || std::strchr("-.0123456789", text[0]) == nullptr || text.find('x') != std::string::npos)
    return;
  double read = 0.0;
  const std::from_chars_result result = ParseDouble(text.data(), text.data() + text.size(), read);
  if (result.ec != std::errc()) return;
  Check(result.ptr > text.data() && result.ptr <= text.data() + text.size(), "a number ends beyond its text");
  Check(std::isnan(read) || read == std::strtod(std::string(text.c_str(), result.ptr).c_str(), nullptr),
        "a number is read wrong");
}

void CheckNumbers(const DrawingInput& input) {
  const auto* const first = static_cast<const char*>(input.drawing.bytes);
  const char* const last = first + input.drawing.byte_count;
  for (const char* line = first; line < last;) {
    const void* const feed = std::memchr(line, '\n', static_cast<size_t>(last - line));
    const char* const end = feed ? static_cast<const char*>(feed) : last;
    CheckNumber(line, end);
    line = end + 1;
  }
}

}  // namespace

extern "C" int32_t PageProgress(int32_t pass, int32_t passes, double done, double total) {
  Check(pass >= 1 && pass <= passes && passes <= 4, "no such pass");
  Check(done >= 0 && done <= total, "more is read than there is");
  return callsLeft-- == 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  DrawingInput input;
  if (!TakeDrawing(bytes, size, input)) return 0;
  ChangeFonts(bytes[0], input);
  CheckNumbers(input);
  callsLeft = input.callsToCancel;
  input.options.progress = hexlume_page_progress;
  hexlume_result* result = nullptr;
  const bool inspects = bytes[1] >> 6 == 3;
  const int32_t status = inspects ? hexlume_inspect(&input.drawing, &input.options, &result)
                                  : hexlume_convert(&input.drawing, &input.options, &result);
  CheckResult(input, status, result);
  hexlume_result_free(result);
  return 0;
}
