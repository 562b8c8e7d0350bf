#include "composite/block_dispatch.h"

#include <algorithm>

#include "composite/hatch.h"
#include "composite/insert.h"
#include "composite/tolerance.h"
#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "entities/arc.h"
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

// What the converters of all scopes are called with: each row of a table hands on what its converter needs.
struct BlockRun {
  TextStream& stream;
  Canvas canvas;
  double originX;
  double originY;
  const HeaderVars& headerVars;
  int32_t insertColor;
  const ViewRect& view;
  int32_t wholeTextClip;
  int32_t wholeSheet;
  int32_t halfWidthFont;
  int32_t byBlockFlag;  // of blocks alone
};

int32_t StartBlockSolid(const BlockRun& run) {
  return DrawBlockSolid(run.canvas, run.stream, run.originX, run.originY, run.insertColor, run.view);
}

const ConverterRow<BlockRun> blockConverters[] = {
    {"ARC",
     [](const BlockRun& run) {
       return DrawBlockArc(run.stream, run.canvas, run.originX, run.originY, run.insertColor, run.byBlockFlag,
                           run.view);
     }},
    {"CIRCLE",
     [](const BlockRun& run) {
       return DrawBlockCircle(run.stream, run.canvas, run.originX, run.originY, run.insertColor,
                              run.byBlockFlag, run.view);
     }},
    {"ELLIPSE",
     [](const BlockRun& run) {
       return DrawBlockEllipse(run.canvas, run.stream, run.originX, run.originY, run.insertColor, run.view,
                               run.byBlockFlag);
     }},
    {"LINE",
     [](const BlockRun& run) {
       return DrawBlockLine(run.canvas, run.stream, run.originX, run.originY, run.insertColor, run.view);
     }},
    {"POINT",
     [](const BlockRun& run) {
       return DrawBlockPoint(run.stream, run.canvas, run.headerVars, run.originX, run.originY,
                             run.insertColor);
     }},
    {"POLYLINE",
     [](const BlockRun& run) {
       return DrawBlockPolyline(run.canvas, run.stream, run.originX, run.originY, run.insertColor,
                                run.byBlockFlag, run.view);
     }},
    {"LWPOLYLINE",
     [](const BlockRun& run) {
       return DrawBlockLwPolyline(run.canvas, run.stream, run.originX, run.originY, run.insertColor,
                                  run.byBlockFlag, run.view);
     }},
    {"SPLINE",
     [](const BlockRun& run) {
       return DrawBlockSpline(run.canvas, run.stream, run.originX, run.originY, run.insertColor,
                              run.byBlockFlag);
     }},
    {"TRACE", StartBlockSolid},
    {"SOLID", StartBlockSolid},
    {"TEXT",
     [](const BlockRun& run) {
       return DrawBlockText(run.canvas, run.stream, run.originX, run.originY, run.insertColor, run.view,
                            run.wholeTextClip, run.halfWidthFont);
     }},
    {"MTEXT",
     [](const BlockRun& run) {
       return DrawBlockMText(run.canvas, run.stream, run.originX, run.originY, run.view, run.wholeTextClip,
                             run.halfWidthFont);
     }},
    {"INSERT",
     [](const BlockRun& run) {
       return DrawBlockInsert(run.headerVars, run.stream, run.canvas, run.originX, run.originY, run.view,
                              run.wholeTextClip, run.wholeSheet, run.halfWidthFont, run.byBlockFlag);
     }},
    {"TOLERANCE",
     [](const BlockRun& run) {
       return DrawBlockTolerance(run.stream, run.canvas, run.originX, run.originY);
     }},
};

int32_t StartDimInsertSolid(const BlockRun& run) {
  return DrawDimInsertSolid(run.canvas, run.stream, run.originX, run.originY, run.view, run.insertColor);
}

// One converter for both names.
int32_t StartDimInsertText(const BlockRun& run) {
  return DrawDimInsertText(run.canvas, run.stream, run.originX, run.originY, run.view, run.wholeTextClip);
}

const ConverterRow<BlockRun> dimInsertConverters[] = {
    {"LINE",
     [](const BlockRun& run) {
       return DrawDimInsertLine(run.stream, run.canvas, run.originX, run.originY, run.view, run.wholeSheet,
                                run.insertColor);
     }},
    {"ARC",
     [](const BlockRun& run) {
       return DrawDimInsertArc(run.stream, run.canvas, run.originX, run.originY, run.view, run.wholeSheet,
                               run.insertColor);
     }},
    {"CIRCLE",
     [](const BlockRun& run) {
       return DrawDimInsertCircle(run.stream, run.canvas, run.originX, run.originY, run.view,
                                  run.insertColor);
     }},
    {"TRACE", StartDimInsertSolid},
    {"SOLID", StartDimInsertSolid},
    {"TEXT", StartDimInsertText},
    {"MTEXT", StartDimInsertText},
    {"LWPOLYLINE",
     [](const BlockRun& run) {
       return DrawDimInsertLwPolyline(run.stream, run.canvas, run.originX, run.originY, run.view,
                                      run.insertColor);
     }},
    {"HATCH",
     [](const BlockRun& run) {
       return DrawDimInsertHatch(run.stream, run.canvas, run.originX, run.originY);
     }},
    {"INSERT",
     [](const BlockRun& run) {
       return DrawDimInsertInsert(run.headerVars, run.stream, run.canvas, run.originX, run.originY, run.view,
                                  run.wholeTextClip, run.wholeSheet, run.halfWidthFont);
     }},
};

int32_t StartDimInsert(const BlockRun& run) {
  state.insertAngle = 0.0;
  state.insertScaleX = 1.0;
  state.insertScaleY = 1.0;
  return DrawDimInsert(run.headerVars, run.stream, run.canvas, run.originX, run.originY, run.view,
                       run.wholeTextClip, run.wholeSheet, run.halfWidthFont, run.insertColor);
}

// The origin is the dimension's offset here. Three of the converters are those of the ENTITIES section.
const ConverterRow<BlockRun> dimConverters[] = {
    {"TEXT",
     [](const BlockRun& run) {
       return DrawDimText(run.canvas, run.stream, run.originX, run.originY, run.view, run.wholeTextClip,
                          run.halfWidthFont);
     }},
    {"MTEXT",
     [](const BlockRun& run) {
       return DrawDimMText(run.canvas, run.stream, run.originX, run.originY, run.view, run.wholeTextClip,
                           run.halfWidthFont);
     }},
    {"ARC",
     [](const BlockRun& run) {
       return DrawArc(run.stream, run.canvas, run.originX, run.originY, run.view, run.wholeSheet);
     }},
    {"CIRCLE",
     [](const BlockRun& run) {
       return DrawCircle(run.stream, run.canvas, run.originX, run.originY, run.view);
     }},
    {"LINE",
     [](const BlockRun& run) {
       return DrawDimLine(run.stream, run.canvas, run.originX, run.originY, run.view);
     }},
    {"SOLID",
     [](const BlockRun& run) {
       return DrawSolid(run.canvas, run.stream, run.originX, run.originY, run.view);
     }},
    {"INSERT", StartDimInsert},
};

// Blocks that insert the next one twice, one after the other, can be told in a few lines and played back for
// ever.
void CountStep() {
  if (++state.blockSteps > blockStepLimit) throw faultCode;
}

// What a converter has read since its entity's name. It counts for steps too, as an entity can hold any
// number of groups that mean nothing.
void CountLength(int64_t bytes) {
  constexpr int64_t bytesOfAStep = 160;
  state.blockSteps += std::max<int64_t>(bytes, 0) / bytesOfAStep;
}

// The base point stands in the block's header, behind its name. A header that has neither its group 20 nor a
// group 3 lets the search run on through the block's entities, which are lost then.
void SubtractBasePoint(TextStream& stream, double& originX, double& originY) {
  while (ReadGroup(stream)) {
    CountStep();
    switch (state.groupCode) {
      case 3: return;
      case 10: originX -= Atof(state.groupValue) * 100.0 * state.insertScaleX; break;
      case 20: originY -= Atof(state.groupValue) * 100.0 * state.insertScaleY; return;
    }
  }
}

template <size_t count>
void WalkBlock(const ConverterRow<BlockRun> (&converters)[count], const BlockRun& run) {
  int32_t more = ReadGroup(run.stream);
  while (more && !RunHasEnded() && !AtGroup(0, "ENDBLK")) {
    CountStep();
    const int64_t start = Tell(run.stream);
    const auto* converter = FindConverter(converters);
    // A converter leaves the next entity's group in the buffer.
    more = converter ? converter->draw(run) : ReadGroup(run.stream);
    CountLength(Tell(run.stream) - start);
  }
}

}  // namespace

int32_t DrawBlockEntities(TextStream& stream, int32_t bodyOffset, Canvas canvas, double blockOriginX,
                          double blockOriginY, const HeaderVars& headerVars, int32_t insertColor,
                          const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                          int32_t halfWidthFont, int32_t byBlockFlag) {
  if (bodyOffset == noBody) return 1;
  if (!HasStackRoom()) throw faultCode;
  GuardFaults([&] {
    Seek(stream, bodyOffset);
    SubtractBasePoint(stream, blockOriginX, blockOriginY);
    WalkBlock(blockConverters, {stream, canvas, blockOriginX, blockOriginY, headerVars, insertColor, view,
                                wholeTextClip, wholeSheet, halfWidthFont, byBlockFlag});
  });
  return 1;
}

int32_t DrawDimInsertEntities(TextStream& stream, int32_t bodyOffset, Canvas canvas, double blockOriginX,
                              double blockOriginY, const HeaderVars& headerVars, const ViewRect& view,
                              int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont,
                              int32_t insertColor) {
  if (bodyOffset == noBody) return 1;
  if (!HasStackRoom()) throw faultCode;
  GuardFaults([&] {
    Seek(stream, bodyOffset);
    WalkBlock(dimInsertConverters, {stream, canvas, blockOriginX, blockOriginY, headerVars, insertColor, view,
                                    wholeTextClip, wholeSheet, halfWidthFont, 0});
  });
  return 1;
}

// No guard of its own and no question for room: it is the first block of its dimension, and what goes wrong
// is answered by the walk over the ENTITIES section.
void DrawDimBlock(int32_t bodyOffset, double offsetX, double offsetY, const HeaderVars& headerVars,
                  const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont,
                  int32_t color, TextStream& stream, Canvas canvas) {
  if (bodyOffset == noBody) return;
  Seek(stream, bodyOffset);
  WalkBlock(dimConverters, {stream, canvas, offsetX, offsetY, headerVars, color, view, wholeTextClip,
                            wholeSheet, halfWidthFont, 0});
}

bool DrawsBlockEntity() {
  return FindConverter(blockConverters) != nullptr;
}

}  // namespace hexlume
