// Conversions as hosts ask for them, from memory, in all ways.
#include <cstring>
#include <memory>
#include <ostream>

#include "fuzz/drawing_input.h"
#include "fuzz/nowhere.h"
#include "fuzz/target.h"
#include "tools/hexlume/metafile/metafile_listing.h"

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
  Check(status != HEXLUME_STATUS_OK || hexlume_result_metafile(result), "success without a metafile");
  return Result(result);
}

// The tool's reader understands every record.
void CheckListing(const hexlume_result* result) {
  const auto size = static_cast<size_t>(hexlume_result_metafile_size(result));
  Nowhere nowhere;
  std::ostream out(&nowhere);
  Check(size == 0 || ListMetafile(hexlume_result_metafile(result), size, out),
        "the tool can't list the metafile");
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
  if (input.lists) CheckListing(result.get());
  return 0;
}
