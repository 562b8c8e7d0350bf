#include "composite/block_dispatch.h"

#include "composite/hatch.h"
#include "composite/insert.h"
#include "composite/tolerance.h"
#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"
#include "entities/arc.h"
#include "entities/block_level.h"
#include "entities/circle.h"
#include "entities/converter_table.h"
#include "entities/ellipse.h"
#include "entities/line.h"
#include "entities/lwpolyline.h"
#include "entities/point.h"
#include "entities/polyline.h"
#include "entities/solid.h"
#include "entities/spline.h"
#include "platform/fault_guard.h"
#include "platform/stack_room.h"
#include "text/mtext.h"
#include "text/text.h"

namespace hexlume {

namespace {

const ConverterRow<BlockRun> blockConverters[] = {
    {"ARC", DrawBlockArc},
    {"CIRCLE", DrawBlockCircle},
    {"ELLIPSE", DrawBlockEllipse},
    {"LINE", DrawBlockLine},
    {"POINT", DrawBlockPoint},
    {"POLYLINE", DrawBlockPolyline},
    {"LWPOLYLINE", DrawBlockLwPolyline},
    {"SPLINE", DrawBlockSpline},
    {"TRACE", DrawBlockSolid},
    {"SOLID", DrawBlockSolid},
    {"TEXT", DrawBlockText},
    {"MTEXT", DrawBlockMText},
    {"INSERT", DrawBlockInsert},
    {"TOLERANCE", DrawBlockTolerance},
};

const ConverterRow<BlockRun> dimInsertConverters[] = {
    {"LINE", DrawDimInsertLine},
    {"ARC", DrawDimInsertArc},
    {"CIRCLE", DrawDimInsertCircle},
    {"TRACE", DrawDimInsertSolid},
    {"SOLID", DrawDimInsertSolid},
    {"TEXT", DrawDimInsertText},
    {"MTEXT", DrawDimInsertText},  // drawn as a TEXT
    {"LWPOLYLINE", DrawDimInsertLwPolyline},
    {"HATCH", DrawDimInsertHatch},
    {"INSERT", DrawDimInsertInsert},
};

int32_t StartDimInsert(const EntityRun& run) {
  state.insertAngle = 0.0;
  state.insertScaleX = 1.0;
  state.insertScaleY = 1.0;
  return DrawDimInsert(run);
}

const ConverterRow<EntityRun> dimConverters[] = {
    {"TEXT", DrawDimText},       //
    {"MTEXT", DrawDimMText},     //
    {"ARC", DrawArc},            // as in the ENTITIES section
    {"CIRCLE", DrawCircle},      // as in the ENTITIES section
    {"LINE", DrawDimLine},       //
    {"SOLID", DrawSolid},        // as in the ENTITIES section
    {"INSERT", StartDimInsert},  //
};

// Before a block that another entity plays back.
void RequireStackRoom() {
  constexpr int64_t stepsOfBlock = 300;
  CountSteps(stepsOfBlock);
  if (HasStackRoom()) return;
  NoteBound(nestingBound);
  throw faultCode;
}

void GoToBlock(TextStream& stream, int32_t bodyOffset) {
  Seek(stream, bodyOffset);
  stream.nextKept = stream.keptGroups.BeginBlock(stream);
}

// The base point is in the block's header, after its name. If a header has neither group 20 nor group 3, the
// search continues into the block's entities, which are lost then.
void SubtractBasePoint(BlockRun& run) {
  while (ReadGroup(run.stream)) {
    switch (state.groupCode) {
      case 3: return;
      case 10: run.blockOriginX -= GroupHundredths() * state.insertScaleX; break;
      case 20: run.blockOriginY -= GroupHundredths() * state.insertScaleY; return;
    }
  }
}

template <typename Run, size_t count>
void WalkBlock(const ConverterRow<Run> (&converters)[count], int32_t bodyOffset, const Run& run) {
  const BlockLevel level(bodyOffset);
  int32_t more = PassToEntity(run.stream);
  for (;;) {
    CountBlockEntity(run.stream);
    if (!more || RunHasEnded() || AtGroup(0, "ENDBLK")) return;
    const auto* converter = FindConverter(converters);
    // A converter leaves the next entity's group in the buffer.
    more = converter ? converter->draw(run) : PassToEntity(run.stream);
  }
}

}  // namespace

int32_t DrawBlockEntities(BlockRun run, int32_t bodyOffset) {
  if (bodyOffset == noBody) return 1;
  RequireStackRoom();
  GuardFaults([&run, bodyOffset] {
    GoToBlock(run.stream, bodyOffset);
    SubtractBasePoint(run);
    WalkBlock(blockConverters, bodyOffset, run);
  });
  return 1;
}

int32_t DrawDimInsertEntities(const BlockRun& run, int32_t bodyOffset) {
  if (bodyOffset == noBody) return 1;
  RequireStackRoom();
  GuardFaults([&run, bodyOffset] {
    GoToBlock(run.stream, bodyOffset);
    WalkBlock(dimInsertConverters, bodyOffset, run);
  });
  return 1;
}

// Needs no guard and no test of the stack: it is the outermost block, and the loop over the ENTITIES
// section handles failures.
void DrawDimBlock(const EntityRun& run, int32_t bodyOffset) {
  if (bodyOffset == noBody) return;
  GoToBlock(run.stream, bodyOffset);
  WalkBlock(dimConverters, bodyOffset, run);
}

bool DrawsBlockEntity() {
  return FindConverter(blockConverters) != nullptr;
}

}  // namespace hexlume
