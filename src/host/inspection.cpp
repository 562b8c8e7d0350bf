#include "host/inspection.h"

#include "driver/conv_state.h"
#include "driver/pre_scan.h"
#include "driver/run_watch.h"
#include "driver/sheet.h"
#include "driver/text_stream.h"
#include "host/drawing_reader.h"
#include "host/preparation.h"
#include "platform/fault_guard.h"

namespace hexlume {

namespace {

// What is known of a drawing besides what it contains.
struct Findings {
  bool faulted = false;
  bool measured = false;
  bool sectionsSeen = false;
  bool entitiesSeen = false;
  bool endMarkSeen = false;
};

bool MeasureSheet(const HostOptions& options, hexlume_summary& summary) {
  ResetConvState();
  HeaderVars headerVars;
  if (ScanDrawing(drawingPath, headerVars) != 1) return false;
  const int32_t showDialog = options.AnswersScale() || options.AnswersSelection() ? 1 : 0;
  const int32_t fullSize = options.plain.sheet == HEXLUME_SHEET_FULL_SIZE ? 1 : 0;
  if (SetupSheet(headerVars, showDialog, 0, fullSize) != 0) return false;
  summary.sheet_width = state.sheetRect.right;
  summary.sheet_height = state.sheetRect.bottom;
  summary.denominator = state.scaleDenominator;
  summary.scale = state.drawScale;
  return true;
}

void ReadDrawing(HostRun& run, Findings& findings, hexlume_result& result) {
  TextStream stream;
  if (!OpenText(stream, drawingPath)) return;
  DrawingReader reader(stream, run.changes, result);
  reader.Read();
  findings.sectionsSeen = reader.sectionsSeen;
  findings.entitiesSeen = reader.entitiesSeen;
  findings.endMarkSeen = reader.endMarkSeen;
}

Findings Inspect(const HostOptions& options, HostRun& run, hexlume_result& result) {
  Findings findings;
  try {
    GuardFaults([&] {
      findings.measured = MeasureSheet(options, result.inspection.summary);
      ReadDrawing(run, findings, result);
    });
  } catch (int32_t) {
    findings.faulted = true;
  }
  return findings;
}

void SettleStatus(const HostInput& input, HostRun& run, const Findings& findings, hexlume_result& result) {
  if (run.end != RunEnd::none) return SettleEnd(run, result);
  if (SettleTrouble(input, run, result)) return;
  if (findings.faulted) return SettleFault(run, runWatch.position, result);
  if (!findings.measured || !findings.sectionsSeen) return SettleFailure(input, run, result);
  if (!findings.entitiesSeen) result.status = HEXLUME_STATUS_NO_ENTITIES;
  if (!findings.endMarkSeen) AddRemark(result, HEXLUME_REMARK_CUT_OFF, LastLine(run), 0, "");
}

void SettleBoxes(hexlume_summary& summary) {
  constexpr int32_t bothCorners = 3;
  summary.has_limits = summary.has_limits == bothCorners;
  summary.has_extents = summary.has_extents == bothCorners;
}

}  // namespace

void InspectForHost(const HostInput& input, const HostOptions& options, hexlume_result& result) {
  result.isInspection = true;
  result.inspection.summary.size = sizeof(hexlume_summary);
  result.inspection.summary.version = "";
  HostRun run(input, options, 2);
  if (!PrepareRun(input, options, run, result)) return;
  const Findings findings = Inspect(options, run, result);
  CheckMemory();
  run.EndPass(true);
  SettleBoxes(result.inspection.summary);
  SettleStatus(input, run, findings, result);
  FinishRun(run, result);
  FreeTables();
}

}  // namespace hexlume
