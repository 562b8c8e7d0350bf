// What became of a drawing: the statuses of the host library, and those that only the tool has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume {

struct Status {
  const char* name;     // for programs; never changes
  int exit;             // exit status of the tool
  const char* words;    // what happened
  const char* meaning;  // for the table in the manual
};

// Rows with the same name differ in their exit status.
enum StatusRow {
  okStatus,
  notOpenedStatus,
  faultStatus,
  cancelledStatus,
  partStatus,  // a fault, but what was drawn before is kept
  notFoundStatus,
  notAFileStatus,
  notAllowedStatus,
  emptyStatus,
  dwgStatus,
  binaryDxfStatus,
  compressedStatus,
  noDxfStatus,
  noEntitiesStatus,
  noLayersStatus,
  cutOffStatus,
  tooLargeStatus,
  timeLimitStatus,
  memoryLimitStatus,
  noMemoryStatus,
  crashedStatus,
  usageStatus,
  notWrittenStatus,
  statusRowCount
};

const Status& StatusOf(StatusRow row);

// The row of a status of the host library.
StatusRow RowOfHostStatus(int32_t hostStatus, bool hasMetafile);

}  // namespace hexlume
