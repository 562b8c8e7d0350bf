#include "host/preparation.h"

#include <limits>
#include <new>

#include "dialogs/answers/dialog_answers.h"
#include "driver/conv_state.h"
#include "driver/hexlume_app.h"
#include "driver/run_watch.h"
#include "host/diagnosis.h"
#include "platform/fault_guard.h"

namespace hexlume {

// Set by each run; what the exports keep between calls is in an object of their own library.
CHexlumeApp theApp;

namespace {

constexpr int32_t familyCount = 5;

DialogAnswers AnswersOf(const HostOptions& options) {
  DialogAnswers answers;
  if (options.AnswersScale()) answers.scaleDenominator = options.plain.denominator;
  for (const HiddenLayer& layer : options.hiddenLayers)
    answers.hiddenLayers.emplace(layer.inCodePage932, false);
  for (int32_t family = 0; family < familyCount; ++family)
    if (options.plain.hidden_line_types >> family & 1) answers.hiddenFamilies.push_back(family);
  return answers;
}

}  // namespace

bool PrepareRun(const HostInput& input, const HostOptions& options, HostRun& run, hexlume_result& result) {
  memoryRanOut = false;
  state = {};
  theApp = {};
  dialogAnswers = AnswersOf(options);
  state.measureSheet = options.plain.fit != 0;
  const int64_t size = run.Size();
  if (size < 0) return !SettleTrouble(input, run, result);
  result.numbers[HEXLUME_NUMBER_BYTES_READ] = size;
  if (size == 0) result.status = HEXLUME_STATUS_EMPTY;
  if (size > std::numeric_limits<int32_t>::max()) result.status = HEXLUME_STATUS_TOO_LARGE;
  return result.status == HEXLUME_STATUS_OK;
}

const char* LimitName(RunEnd end) {
  switch (end) {
    case RunEnd::timeLimit: return "limit_milliseconds";
    case RunEnd::strokeLimit: return "limit_strokes";
    default: return "limit_bytes";
  }
}

void CheckMemory() {
  if (memoryRanOut) throw std::bad_alloc();
}

void SettleEnd(HostRun& run, hexlume_result& result) {
  result.status = run.end == RunEnd::cancelled ? HEXLUME_STATUS_CANCELLED : HEXLUME_STATUS_LIMIT;
  if (run.end != RunEnd::cancelled) result.detail = LimitName(run.end);
  // A metafile is cut elsewhere.
  if (run.end != RunEnd::byteLimit) result.line = LineAt(run, runWatch.position);
}

void SettleFault(HostRun& run, int32_t position, hexlume_result& result) {
  result.status = HEXLUME_STATUS_FAULT;
  result.line = LineAt(run, position);
}

void SettleFailure(const HostInput& input, HostRun& run, hexlume_result& result) {
  const int32_t position = runWatch.position;
  const Diagnosis diagnosis = Diagnose(run);
  if (run.end != RunEnd::none) return SettleEnd(run, result);
  if (diagnosis.status == HEXLUME_STATUS_OK) return SettleFault(run, position, result);
  result.status = diagnosis.status;
  result.line = diagnosis.line;
  result.detail = input.path;
}

bool SettleTrouble(const HostInput& input, const HostRun& run, hexlume_result& result) {
  if (!run.readFailed && run.trouble == FileTrouble::none) return false;
  result.status = StatusOf(run.trouble);
  result.detail = input.path;
  return true;
}

void FinishRun(const HostRun& run, hexlume_result& result) {
  const FormatChanges& changes = run.changes;
  if (changes.substituted != 0) AddRemark(result, HEXLUME_REMARK_SUBSTITUTED, 0, changes.substituted, "");
  if (changes.otherLines != 0)
    AddRemark(result, HEXLUME_REMARK_NOT_UTF8, changes.firstOtherLine, changes.otherLines, "");
  if (changes.embedded != 0) AddRemark(result, HEXLUME_REMARK_EMBEDDED, 0, changes.embedded, "");
  result.numbers[HEXLUME_NUMBER_SUBSTITUTED] = changes.substituted;
  result.numbers[HEXLUME_NUMBER_EMBEDDED] = changes.embedded;
  result.numbers[HEXLUME_NUMBER_SHEET_WIDTH] = state.sheetRect.right;
  result.numbers[HEXLUME_NUMBER_SHEET_HEIGHT] = state.sheetRect.bottom;
  result.numbers[HEXLUME_NUMBER_DENOMINATOR] = state.scaleDenominator;
  result.numbers[HEXLUME_NUMBER_MILLISECONDS] = run.Milliseconds();
}

}  // namespace hexlume
