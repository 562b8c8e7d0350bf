#include "canvas/left_objects.h"

#include "driver/conv_state.h"

namespace hexlume {

namespace {

void DeleteAll(std::deque<HGDIOBJ>& objects) {
  for (const HGDIOBJ object : objects) DeleteObject(object);
  objects = {};
}

}  // namespace

void LeaveSelected(HGDIOBJ object) {
  std::deque<HGDIOBJ>& kept = GetObjectType(object) == OBJ_FONT ? state.leftFonts : state.leftPens;
  kept.push_back(object);
  if (kept.size() <= leftObjectLimit) return;
  DeleteObject(kept.front());
  kept.pop_front();
}

void DeleteLeftObjects() {
  DeleteAll(state.leftPens);
  DeleteAll(state.leftFonts);
}

}  // namespace hexlume
