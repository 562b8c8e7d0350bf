#include "entities/entity_dispatch.h"

#include "composite/dimension.h"
#include "composite/hatch.h"
#include "composite/insert.h"
#include "composite/leader.h"
#include "composite/tolerance.h"
#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"
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

int32_t StartInsert(const EntityRun& run) {
  state.insertAngle = 0.0;
  state.insertScaleX = 1.0;
  state.insertScaleY = 1.0;
  return DrawInsert(run);
}

const ConverterRow<EntityRun> converters[] = {
    {"ARC", DrawArc},
    {"CIRCLE", DrawCircle},
    {"ELLIPSE", DrawEllipse},
    {"LINE", DrawLine},
    {"POINT", DrawPoint},
    {"POLYLINE", DrawPolyline},
    {"LWPOLYLINE", DrawLwPolyline},
    {"SPLINE", DrawSpline},
    {"TRACE", DrawSolid},
    {"SOLID", DrawSolid},
    {"TEXT", DrawText},
    {"MTEXT", DrawMText},
    {"DIMENSION", DrawDimension},
    {"LEADER", DrawLeader},
    {"INSERT", StartInsert},
    {"ATTRIB", DrawAttrib},
    {"TOLERANCE", DrawTolerance},
    {"HATCH", DrawHatch},
};

void SetUpCanvas(Canvas canvas) {
  // This version draws arcs in the opposite direction unless it is set.
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
    more = converter ? converter->draw(run) : PassToEntity(run.stream);
  }
}

}  // namespace

void DrawEntities(const EntityRun& run) {
  GuardFaults([&run] {
    SetUpCanvas(run.canvas);
    WalkEntities(run);
    EndOverBudget();
  });
}

bool DrawsEntity() {
  return FindConverter(converters) != nullptr;
}

}  // namespace hexlume
