#include "tools/hexlume/drawing/status.h"

#include <hexlume_host.h>

namespace hexlume {
namespace {

// In the order of StatusRow. A status of the host library that has a row of its own exits with 30 and its
// number in hexlume_host.h.
constexpr Status statuses[] = {
    // name, exit status, what happened, meaning
    {"ok", 0, "", "all is well"},
    {"not-opened", 2, "the drawing could be measured, but not opened again to be drawn",
     "a drawing could be measured, but not opened again to be drawn"},
    {"fault", 11, "a fault ended the drawing", "a fault ended a drawing, and there is no output"},
    {"cancelled", 16, "cancelled in a dialog", "the user cancelled a dialog"},
    {"fault", 30, "a fault ended the drawing; what was drawn up to there is kept",
     "a fault ended a drawing; what was drawn before is kept"},
    {"not-found", 32, "there is no such file", "there is no such file"},
    {"not-a-file", 33, "this is a folder or a device, not a file", "a folder or a device"},
    {"not-allowed", 34, "the file can't be opened or read", "a file can't be opened or read"},
    {"empty", 35, "the file is empty", "an empty file"},
    {"dwg", 36, "the file is a DWG; only an ASCII DXF can be converted", "a DWG"},
    {"binary-dxf", 37, "the file is a binary DXF; only an ASCII DXF can be converted", "a binary DXF"},
    {"compressed", 38, "the file is compressed; unpack it first", "a compressed file"},
    {"no-dxf", 39, "the file is no DXF: it has no section", "no DXF"},
    {"no-entities", 40, "the file has no ENTITIES section, so there is nothing to draw",
     "no ENTITIES section"},
    {"no-layers", 41, "the drawing has tables, but no layer table, and can't be converted",
     "tables without a layer table"},
    {"cut-off", 42, "the drawing is cut off before anything can be drawn",
     "a drawing that is cut off too early"},
    {"too-large", 43, "the file is larger than 2 GB", "a file larger than 2 GB"},
    {"time-limit", 45, "the drawing takes longer than --time-limit allows",
     "a drawing was stopped by --time-limit or --memory-limit"},
    {"memory-limit", 45, "the drawing takes more memory than --memory-limit allows", nullptr},
    {"no-memory", 47, "there isn't enough memory", "there isn't enough memory"},
    {"crashed", 48, "the conversion crashed", "a conversion crashed in a worker process"},
    {"usage", 64, "wrong usage", "wrong usage; nothing was converted"},
    {"not-written", 73, "an output can't be written", "an output can't be written"},
};
static_assert(sizeof statuses / sizeof *statuses == statusRowCount);

}  // namespace

const Status& StatusOf(StatusRow row) {
  return statuses[row];
}

StatusRow RowOfHostStatus(int32_t hostStatus, bool hasMetafile) {
  switch (hostStatus) {
    case HEXLUME_STATUS_OK: return okStatus;
    case HEXLUME_STATUS_NOT_FOUND: return notFoundStatus;
    case HEXLUME_STATUS_NOT_A_FILE: return notAFileStatus;
    case HEXLUME_STATUS_NOT_ALLOWED: return notAllowedStatus;
    case HEXLUME_STATUS_EMPTY: return emptyStatus;
    case HEXLUME_STATUS_DWG: return dwgStatus;
    case HEXLUME_STATUS_BINARY_DXF: return binaryDxfStatus;
    case HEXLUME_STATUS_COMPRESSED: return compressedStatus;
    case HEXLUME_STATUS_NO_DXF: return noDxfStatus;
    case HEXLUME_STATUS_NO_ENTITIES: return noEntitiesStatus;
    case HEXLUME_STATUS_NO_LAYERS: return noLayersStatus;
    case HEXLUME_STATUS_CUT_OFF: return cutOffStatus;
    case HEXLUME_STATUS_TOO_LARGE: return tooLargeStatus;
    case HEXLUME_STATUS_CANCELLED: return cancelledStatus;
    case HEXLUME_STATUS_LIMIT: return timeLimitStatus;
    case HEXLUME_STATUS_NO_MEMORY: return noMemoryStatus;
    default: return hasMetafile ? partStatus : faultStatus;
  }
}

}  // namespace hexlume
