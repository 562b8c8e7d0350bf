// Conversions as hosts ask for them, from memory, in all ways.
#include <cstring>
#include <memory>

#include "fuzz/drawing_input.h"
#include "fuzz/target.h"

using namespace hexlume;

namespace {

struct FreeResult {
  void operator()(hexlume_result* result) const { hexlume_result_free(result); }
};
using Result = std::unique_ptr<hexlume_result, FreeResult>;

// Counts the calls down in the int32_t that user points to, and cancels at the last.
int32_t CountDown(void* user, int32_t, int32_t, int64_t, int64_t) {
  auto& calls = *static_cast<int32_t*>(user);
  return calls-- == 0;
}

Result Convert(const DrawingInput& input) {
  hexlume_options options = input.options;
  int32_t calls = input.callsToCancel;
  if (calls >= 0) {
    options.progress = CountDown;
    options.user = &calls;
  }
  hexlume_result* result = nullptr;
  const int32_t status = hexlume_convert(&input.drawing, &options, &result);
  CheckResult(input, status, result);
  return Result(result);
}

// Nothing that a call leaves changes the next one.
void CheckSame(const hexlume_result* first, const hexlume_result* second) {
  for (const hexlume_result* result : {first, second})
    if (hexlume_result_status(result) == HEXLUME_STATUS_LIMIT) return;
  const int64_t size = hexlume_result_metafile_size(first);
  Check(size == hexlume_result_metafile_size(second), "the same call gives a metafile of another size");
  if (size == 0) return;
  const bool isSame = std::memcmp(hexlume_result_metafile(first), hexlume_result_metafile(second),
                                  static_cast<size_t>(size)) == 0;
  Check(isSame, "the same call gives another metafile");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  DrawingInput input;
  if (!TakeDrawing(bytes, size, input)) return 0;
  const Result result = Convert(input);
  if (input.convertsTwice) CheckSame(result.get(), Convert(input).get());
  return 0;
}
