// Reports of what drawings contain.
#include "fuzz/drawing_input.h"
#include "fuzz/target.h"

using namespace hexlume;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  DrawingInput input;
  if (!TakeDrawing(bytes, size, input)) return 0;
  hexlume_result* result = nullptr;
  const int32_t status = hexlume_inspect(&input.drawing, &input.options, &result);
  CheckResult(input, status, result);
  Check(hexlume_result_metafile(result) == nullptr, "an inspection with a metafile");
  hexlume_result_free(result);
  return 0;
}
