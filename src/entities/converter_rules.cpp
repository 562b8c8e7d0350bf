#include "entities/converter_rules.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

#include "driver/work_budget.h"

namespace hexlume {

const KnownLtype knownLtypes[ltypeCount] = {
    // keyword, record, family, elements, slot
    {"DOT", "DOT", 2, 2, 0},                //
    {"DASH", "DASH", 1, 2, 1},              //
    {"DASHED", "DASHED", 1, 2, 2},          //
    {"DASHED2", "DASHED2", 1, 2, 3},        //
    {"HIDDEN", "HIDDEN", 1, 2, 4},          //
    {"DASHDOT", "DASHDOT", 3, 4, 5},        //
    {"CENTER", "CENTER", 3, 4, 6},          //
    {"CENTER2", "CENTER2", 3, 4, 7},        //
    {"BORDER2", "BORDER2", 3, 4, 8},        //
    {"DASHDOTDOT", "DASHDOTDOT", 4, 6, 9},  //
    {"DIVIDE", "DIVIDE", 4, 6, 10},         //
    {"PHANTOM", "PHANTOM2", 4, 6, 11},      // a record named PHANTOM is ignored
    {"PHANTOM2", "", 4, 6, 12},             // never defined, so this row never applies to an entity
};

bool IsLtypeDefined(int32_t pattern) {
  const auto slot = static_cast<size_t>(pattern);
  return slot < state.ltypes.size() && state.ltypes[slot].defined;
}

void CountLinetype() {
  constexpr int64_t stepsOfAllKeywords = 200;
  CountSteps(stepsOfAllKeywords);
}

void ResolveLinetype(const char* value, LineStyle& style) {
  CountLinetype();
  // "CONTINUOUS" keeps the layer's family: the test that would clear it compares with a misspelt name, which
  // this value can't be equal to. Any other name clears the family first, an unknown one too.
  if (std::strcmp(value, "CONTINUOUS") != 0) style.family = 0;

  for (const KnownLtype& known : knownLtypes) {
    if (!std::strstr(value, known.keyword) || !IsLtypeDefined(known.pattern)) continue;
    style.family = known.family;
    style.pattern = known.pattern;
  }
}

int32_t ResolveWidth(const char* value) {
  return Atoi(value) / 100;
}

int32_t ResolveColor(int32_t number) {
  int32_t index = number;
  if (number > 10) {
    const int32_t hue = number / 10;
    if (hue == 1 || hue == 2 || hue == 23 || hue == 24) return 1;
    index = (hue - 3) / 4 + 2;
  }
  return index == 2 || index >= 7 ? 0 : index;
}

namespace {

// Null for a slot that no record has set.
const double* StoredDashes(int32_t pattern) {
  const auto slot = static_cast<size_t>(pattern);
  if (slot >= state.ltypes.size()) return nullptr;
  const LtypeEntry& ltype = state.ltypes[slot];
  const auto isSet = [](double element) { return element != 0.0; };
  if (!ltype.defined && std::none_of(std::begin(ltype.dashes), std::end(ltype.dashes), isSet)) return nullptr;
  return ltype.dashes;
}

// The family decides, not the pattern: ResolveDimInsertLinetype sets the family alone, so the pattern can be
// of another one.
int32_t ElementsOfFamily(int32_t family) {
  const auto known = std::find_if(std::begin(knownLtypes), std::end(knownLtypes),
                                  [family](const KnownLtype& ltype) { return ltype.family == family; });
  return known == std::end(knownLtypes) ? 0 : known->elementCount;
}

}  // namespace

Dashes DashesOf(const LineStyle& style) {
  const double* elements = style.family == 0 ? nullptr : StoredDashes(style.pattern);
  if (!elements) return {nullptr, 0};
  return {elements, ElementsOfFamily(style.family)};
}

void TurnByAngle(double& x, double& y, double blockOriginX, double blockOriginY) {
  // The pivot is the block's origin and not the insertion point, so a turned block with a base point other
  // than (0, 0) is displaced.
  const double cosine = std::cos(state.insertAngle);
  const double sine = std::sin(state.insertAngle);
  const double dx = x - blockOriginX;
  const double dy = y - blockOriginY;
  x = dx * cosine + blockOriginX - dy * sine;
  y = dx * sine + blockOriginY + dy * cosine;
}

namespace {

void ClampY(const ViewRect& view, LONG& y) {
  if (WrapNegate(y) > view.bottom) y = WrapNegate(view.bottom);
  if (WrapNegate(y) < view.top) y = WrapNegate(view.top);
}

}  // namespace

bool LiesInView(const ViewRect& view, const POINT& point) {
  const int32_t yDown = WrapNegate(point.y);
  return view.left <= point.x && point.x <= view.right && view.top <= yDown && yDown <= view.bottom;
}

void ClampToView(const ViewRect& view, POINT& point) {
  if (point.x < view.left) point.x = view.left;
  if (point.x > view.right) point.x = view.right;
  ClampY(view, point.y);
}

bool BeyondOneEdge(const ViewRect& view, const POINT& a, const POINT& b) {
  const int32_t aDown = WrapNegate(a.y);
  const int32_t bDown = WrapNegate(b.y);
  return (a.x < view.left && b.x < view.left) || (a.x > view.right && b.x > view.right) ||
         (aDown < view.top && bDown < view.top) || (aDown > view.bottom && bDown > view.bottom);
}

bool ClampAxisParallel(const ViewRect& view, POINT& a, POINT& b) {
  if (a.x != b.x && a.y != b.y) return false;
  if (a.x < view.left) a.x = view.left;
  if (b.x > view.right) b.x = view.right;
  ClampY(view, a.y);
  ClampY(view, b.y);
  return true;
}

bool ViewReject(const ViewRect& view, POINT& a, POINT& b) {
  if (BeyondOneEdge(view, a, b)) return true;
  if (ClampAxisParallel(view, a, b)) return false;
  const ClippedSegment cut = ClipSegment(view.left, view.top, view.right, view.bottom, a.x, b.x, a.y, b.y);
  if (cut.startX == -1 && cut.startY == -1 && cut.endX == -1 && cut.endY == -1) return true;
  a = {cut.startX, cut.startY};
  b = {cut.endX, cut.endY};
  return false;
}

}  // namespace hexlume
