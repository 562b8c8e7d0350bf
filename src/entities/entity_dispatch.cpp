#include "entities/entity_dispatch.h"

#include <algorithm>
#include <cstring>

#include "driver/group_reader.h"
#include "entities/line.h"
#include "platform/fault_guard.h"
#include "platform/system_version.h"

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

struct EntityConverter {
  const char* keyword;
  int32_t (*draw)(const EntityRun& run);
};

// In the order of the tests.
const EntityConverter converters[] = {
    {"LINE", [](const EntityRun& run) { return DrawLine(run.canvas, run.stream, run.view); }},
};

const EntityConverter* FindConverter() {
  if (state.groupCode != 0) return nullptr;
  const auto found = std::find_if(
      std::begin(converters), std::end(converters),
      [](const EntityConverter& row) { return std::strcmp(state.groupValue, row.keyword) == 0; });
  return found == std::end(converters) ? nullptr : found;
}

void SetUpCanvas(Canvas canvas) {
  // That one system draws arcs the other way round until it is told.
  const SystemVersion version = GetSystemVersion();
  state.arcClockwise = version.major == 4 && version.minor == 10;
  if (state.arcClockwise) SetArcDirection(canvas, AD_CLOCKWISE);
  SetMapMode(canvas, MM_HIMETRIC);
}

void WalkEntities(const EntityRun& run) {
  int32_t more = ReadGroup(run.stream);
  while (more && !AtGroup(0, "ENDSEC")) {
    const EntityConverter* converter = FindConverter();
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

}  // namespace hexlume
