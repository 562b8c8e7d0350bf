#include "host/conversion.h"

#include <utility>

#include "dialogs/answers/dialog_answers.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"
#include "hexlume.h"
#include "host/host_run.h"
#include "host/metafile_bytes.h"
#include "host/metafile_cut.h"
#include "host/preparation.h"
#include "platform/fault_guard.h"

namespace hexlume {

namespace {

// What one of the nine exports has given.
struct Outcome {
  int32_t code = HEXLUME_OK;
  bool faulted = false;
  bool isAsked = true;  // false for the upright sheet of a turned one
  Metafile metafile;
};

// The dialogs that the options answer: all, the scale alone, or none.
int32_t ShowDialogs(const HostOptions& options) {
  if (options.AnswersSelection()) return 1;
  return options.AnswersScale() ? 2 : 0;
}

int32_t CallConversion(const HostOptions& options, HENHMETAFILE* out) {
  const hexlume_options& plain = options.plain;
  const int32_t showDialogs = ShowDialogs(options);
  switch (plain.sheet) {
    case HEXLUME_SHEET_PART:
      return vzDXFReMetaMake(drawingPath, out, plain.half_width,
                             {plain.left, plain.top, plain.right, plain.bottom}, plain.whole_texts,
                             showDialogs, plain.monochrome);
    case HEXLUME_SHEET_FULL_SIZE:
      return vzDXFFullSizeMetaMake(drawingPath, out, showDialogs, plain.half_width, plain.monochrome);
    default: return vzDXFMetaMake(drawingPath, out, showDialogs, plain.half_width, plain.monochrome);
  }
}

template <typename Call>
Outcome RunConversion(Call call) {
  Outcome outcome;
  HENHMETAFILE metafile = nullptr;
  try {
    GuardFaults([&] { outcome.code = call(&metafile); });
  } catch (int32_t) {
    outcome.faulted = true;
  }
  outcome.metafile.reset(metafile);
  // The whole sheet's conversion answers a fault by itself, with what was drawn.
  if (outcome.code == HEXLUME_NOT_A_DRAWING && metafile) outcome.faulted = true;
  return outcome;
}

// Each conversion measures, then draws.
bool HasDrawn(const HostRun& run) {
  return run.pass > 0 && run.pass % 2 == 0;
}

// Whether a limit or the host has ended the run while it measured the drawing.
bool IsMeasuredInPart(const HostRun& run) {
  return run.end != RunEnd::none && run.endPass % 2 == 1;
}

// Whether a sheet is to be turned after it was converted. One of which everything is left out wasn't drawn
// and is the same when it is turned. One that was measured in part would be turned with another scale.
bool CanBeTurned(const HostRun& run, const Outcome& outcome) {
  return outcome.code == HEXLUME_OK && !outcome.faulted && HasDrawn(run) && !IsMeasuredInPart(run) &&
         run.end != RunEnd::cancelled;
}

Outcome Convert(const HostOptions& options, HostRun& run) {
  const bool turned = options.plain.turned;
  run.ShareTime(turned ? 2 : 1);
  Outcome outcome = RunConversion([&](HENHMETAFILE* out) { return CallConversion(options, out); });
  outcome.isAsked = !turned || !HasDrawn(run);
  if (!turned || !CanBeTurned(run, outcome)) return outcome;
  outcome.metafile.reset();
  run.ShareTime(1);
  run.Restart();
  return RunConversion([&](HENHMETAFILE* out) { return vzDXFRotMetaMake(out, options.plain.monochrome); });
}

void SettleStatus(const HostInput& input, HostRun& run, const Outcome& outcome, hexlume_result& result) {
  if (run.end != RunEnd::none) return SettleEnd(run, result);
  if (SettleTrouble(input, run, result)) return;
  if (outcome.faulted) return SettleFault(run, runWatch.position, result);
  if (outcome.code != HEXLUME_OK) return SettleFailure(input, run, result);
  if (!outcome.metafile) result.status = HEXLUME_STATUS_NO_MEMORY;
  if (!outcome.metafile || !HasDrawn(run)) return;
  if (!runWatch.entitiesSeen) result.status = HEXLUME_STATUS_NO_ENTITIES;
  if (!runWatch.endMarkSeen) AddRemark(result, HEXLUME_REMARK_CUT_OFF, LastLine(run), 0, "");
}

// What was drawn on a sheet that was measured in part isn't given to the host.
bool IsUsable(const HostRun& run, const Outcome& outcome) {
  return outcome.metafile && outcome.isAsked && !IsMeasuredInPart(run);
}

void TakeMetafile(const HostOptions& options, Metafile metafile, hexlume_result& result) {
  result.metafile = MetafileBytes(std::move(metafile));
  const int64_t limit = options.plain.limit_bytes;
  if (limit == 0 || limit > static_cast<int64_t>(result.metafile.Size())) return;
  if (!CutMetafile(result.metafile, static_cast<size_t>(limit))) return;
  if (result.status != HEXLUME_STATUS_OK) return;
  result.status = HEXLUME_STATUS_LIMIT;
  result.detail = LimitName(RunEnd::byteLimit);
}

void RemarkUnknownLayers(const HostOptions& options, hexlume_result& result) {
  const auto& layers = dialogAnswers.hiddenLayers;
  for (const HiddenLayer& layer : options.hiddenLayers)
    if (!layers.find(layer.inCodePage932)->second)
      AddRemark(result, HEXLUME_REMARK_NO_SUCH_LAYER, 0, 0, layer.name);
}

// The bounds that the conversion has reached.
void RemarkBounds(const WorkBudget& done, HostRun& run, hexlume_result& result) {
  for (int32_t bound = 0; bound < boundCount; ++bound)
    if (done.reached >> bound & 1) AddBoundRemark(result, bound, LineAt(run, done.reachedAt[bound]));
}

}  // namespace

void ConvertForHost(const HostInput& input, const HostOptions& options, hexlume_result& result) {
  HostRun run(input, options, options.plain.turned ? 4 : 2);
  if (!PrepareRun(input, options, run, result)) return;
  Outcome outcome = Convert(options, run);
  CheckMemory();
  run.EndPass(HasDrawn(run));
  result.numbers[HEXLUME_NUMBER_STROKES] = runWatch.strokes;
  const WorkBudget done = work;
  SettleStatus(input, run, outcome, result);
  RemarkBounds(done, run, result);
  // The layers are known once the sheet is there to draw on.
  if (outcome.metafile || HasDrawn(run)) RemarkUnknownLayers(options, result);
  if (IsUsable(run, outcome)) TakeMetafile(options, std::move(outcome.metafile), result);
  FinishRun(run, result);
}

}  // namespace hexlume
