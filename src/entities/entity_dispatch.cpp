#include "entities/entity_dispatch.h"

#include "composite/dimension.h"
#include "composite/hatch.h"
#include "composite/insert.h"
#include "composite/leader.h"
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
#include "platform/system_version.h"
#include "text/attrib.h"
#include "text/mtext.h"
#include "text/text.h"

namespace hexlume {

namespace {

// What the converters are called with: each row of the table hands on what its converter needs.
struct EntityRun {
  TextStream& stream;
  Canvas canvas;
  HeaderVars& headerVars;
  const ViewRect& view;
  int32_t wholeTextClip;
  int32_t wholeSheet;
  int32_t halfWidthFont;
};

int32_t StartInsert(const EntityRun& run) {
  state.insertAngle = 0.0;
  state.insertScaleX = 1.0;
  state.insertScaleY = 1.0;
  return DrawInsert(run.headerVars, run.stream, run.canvas, run.view, run.wholeTextClip, run.wholeSheet,
                    run.halfWidthFont);
}

int32_t StartSolid(const EntityRun& run) {
  return DrawSolid(run.canvas, run.stream, 0.0, 0.0, run.view);
}

const ConverterRow<EntityRun> converters[] = {
    {"ARC",
     [](const EntityRun& run) {
       return DrawArc(run.stream, run.canvas, 0.0, 0.0, run.view, run.wholeSheet);
     }},
    {"CIRCLE", [](const EntityRun& run) { return DrawCircle(run.stream, run.canvas, 0.0, 0.0, run.view); }},
    {"ELLIPSE", [](const EntityRun& run) { return DrawEllipse(run.canvas, run.stream, run.view); }},
    {"LINE", [](const EntityRun& run) { return DrawLine(run.canvas, run.stream, run.view); }},
    {"POINT", [](const EntityRun& run) { return DrawPoint(run.stream, run.canvas, run.headerVars); }},
    {"POLYLINE", [](const EntityRun& run) { return DrawPolyline(run.canvas, run.stream, run.view); }},
    {"LWPOLYLINE", [](const EntityRun& run) { return DrawLwPolyline(run.canvas, run.stream, run.view); }},
    {"SPLINE", [](const EntityRun& run) { return DrawSpline(run.canvas, run.stream); }},
    {"TRACE", StartSolid},
    {"SOLID", StartSolid},
    {"TEXT",
     [](const EntityRun& run) {
       return DrawText(run.canvas, run.stream, run.view, run.wholeTextClip, run.halfWidthFont);
     }},
    {"MTEXT",
     [](const EntityRun& run) {
       return DrawMText(run.canvas, run.stream, run.view, run.wholeTextClip, run.halfWidthFont);
     }},
    {"DIMENSION",
     [](const EntityRun& run) {
       return DrawDimension(run.stream, run.canvas, run.headerVars, run.view, run.wholeTextClip,
                            run.wholeSheet, run.halfWidthFont);
     }},
    {"LEADER",
     [](const EntityRun& run) {
       return DrawLeader(run.headerVars, run.stream, run.canvas, run.view, run.wholeTextClip, run.wholeSheet,
                         run.halfWidthFont);
     }},
    {"INSERT", StartInsert},
    {"ATTRIB",
     [](const EntityRun& run) { return DrawAttrib(run.canvas, run.stream, run.view, run.wholeTextClip); }},
    {"TOLERANCE", [](const EntityRun& run) { return DrawTolerance(run.stream, run.canvas); }},
    {"HATCH", [](const EntityRun& run) { return DrawHatch(run.stream, run.canvas); }},
};

void SetUpCanvas(Canvas canvas) {
  // That one system draws arcs the other way round until it is told.
  const SystemVersion version = GetSystemVersion();
  state.arcClockwise = version.major == 4 && version.minor == 10;
  if (state.arcClockwise) SetArcDirection(canvas, AD_CLOCKWISE);
  SetMapMode(canvas, MM_HIMETRIC);
}

void WalkEntities(const EntityRun& run) {
  int32_t more = ReadGroup(run.stream);
  while (more && !RunHasEnded() && !AtGroup(0, "ENDSEC")) {
    const auto* converter = FindConverter(converters);
    // A converter leaves the next entity's group in the buffer.
    more = converter ? converter->draw(run) : ReadGroup(run.stream);
  }
}

}  // namespace

void DrawEntities(TextStream& stream, Canvas canvas, HeaderVars& headerVars, const ViewRect& view,
                  int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont) {
  const EntityRun run = {stream, canvas, headerVars, view, wholeTextClip, wholeSheet, halfWidthFont};
  GuardFaults([&] {
    SetUpCanvas(canvas);
    WalkEntities(run);
  });
}

bool DrawsEntity() {
  return FindConverter(converters) != nullptr;
}

}  // namespace hexlume
