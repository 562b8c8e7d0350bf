// The bounds of a conversion. A small drawing can ask for hours of work and more memory than there is, so what a conversion
// does is counted, in the same way in all builds, and ends at a bound that no drawing meant to be seen reaches.
//
// A conversion that has used up its budget ends as if its text ended, except that it ends as a fault: see EndOverBudget.
#pragma once

#include <cstdint>

namespace hexlume {

// What a drawing has more of than is used, as bits.
enum Bound : uint32_t {
  workBound = 1 << 0,             // steps of a conversion
  metafileBound = 1 << 1,         // bytes of its metafile
  nestedBytesBound = 1 << 2,      // bytes read by blocks within blocks
  nestingBound = 1 << 3,          // depth of blocks within blocks
  hatchCornersBound = 1 << 4,     // corners of a hatch's boundary
  hatchPathsBound = 1 << 5,       // paths of a hatch
  hatchReachBound = 1 << 6,       // distance of a hatch's path from the origin
  hatchRectanglesBound = 1 << 7,  // rectangles of a hatch's regions
  hatchDashesBound = 1 << 8,      // dashes of a hatch's line
  hatchStrokesBound = 1 << 9,     // strokes of a hatch
  dashesBound = 1 << 10,          // elements along a line
  splinePointsBound = 1 << 11,    // points of a spline
  textRoundsBound = 1 << 12,      // rounds in which the codes of a text are removed
};
constexpr int32_t boundCount = 13;

// A step takes about a nanosecond. Both grow with the drawing, as far as it was read.
constexpr int64_t leastSteps = 2'000'000'000;
constexpr int64_t stepsOfDrawingByte = 1000;
constexpr int64_t leastMetafileBytes = 300'000'000;
constexpr int64_t metafileBytesOfDrawingByte = 20;

struct WorkBudget {
  int64_t steps = 0;          // done so far
  int64_t metafileBytes = 0;  // written so far, not less than there are
  int64_t mostSteps = leastSteps;
  int64_t mostMetafileBytes = leastMetafileBytes;
  uint32_t reached = 0;                // the bounds
  int32_t reachedAt[boundCount] = {};  // positions in the text, by the places of the bits
  bool hasEndedRun = false;
};

extern WorkBudget work;

// Begins a conversion.
void BeginWork();

// A drawing of so many bytes may take more.
void AllowWork(int64_t drawingBytes);

// Notes a bound and where the drawing has reached it.
void NoteBound(Bound bound);

// Ends the run as a host does, after the entity at hand.
void EndRunBy(Bound bound);

// Leaves the bounds that a conversion has reached to the host of the nine exports.
void LeaveBounds();

// Whether the budget has ended the run. What is large isn't begun any more then.
inline bool IsOverBudget() {
  return work.hasEndedRun;
}

// Throws faultCode if it has.
void EndOverBudget();

inline void CountSteps(int64_t steps) {
  work.steps += steps;
  if (work.steps > work.mostSteps) EndRunBy(workBound);
}

inline void CountWork(int64_t steps, int64_t metafileBytes) {
  work.metafileBytes += metafileBytes;
  if (work.metafileBytes > work.mostMetafileBytes) EndRunBy(metafileBound);
  CountSteps(steps);
}

}  // namespace hexlume
