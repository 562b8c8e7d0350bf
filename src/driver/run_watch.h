// How far a run has come, and the end that a host may set to it.
//
// A run is ended by its reader: the entity at hand is read to its end, and from then on ReadGroup returns 0,
// as at the end of the text. What was drawn stays. Loops that draw a lot without reading, and those that
// begin entities, ask RunHasEnded.
#pragma once

#include <cstdint>
#include <limits>

#include "driver/work_budget.h"

namespace hexlume {

struct RunWatch {
  int64_t strokes = 0;        // drawn so far
  int32_t position = 0;       // in the text, of the group read last
  bool entitiesSeen = false;  // the drawing pass has come to an ENTITIES section
  bool endMarkSeen = false;   // and to the drawing's end mark
  bool ended = false;         // no further entity is read
  int32_t groupsLeft = 0;     // once it has ended: groups that the entity at hand may still have

  // Set by a host that watches: is called now and then and at the stroke limit, and ends the run by returning
  // false.
  bool (*look)() = nullptr;
  int64_t strokeLimit = std::numeric_limits<int64_t>::max();
  int64_t strokesAtLook = std::numeric_limits<int64_t>::max();
  int32_t groupsToLook = std::numeric_limits<int32_t>::max();
};

extern RunWatch runWatch;

// Ends the run before the next group.
void EndRun();

// Ends it when the entity at hand has been read.
void EndRunAfterEntity();

// Asks the host and settles when it is asked next.
void LookAtRun();

// Each pen, each dash or dot of a line type and each line or dot of a hatch counts as one stroke.
inline void CountStroke() {
  constexpr int64_t stepsOfStroke = 60;
  constexpr int64_t bytesOfStroke = 16;
  CountWork(stepsOfStroke, bytesOfStroke);
  if (++runWatch.strokes >= runWatch.strokesAtLook) LookAtRun();
}

inline bool RunHasEnded() {
  return runWatch.ended;
}

// For MayReadGroup: asks the host, or whether the entity at hand goes on.
bool MayReadOn();

// Counts a group that begins at this position of the text. False if it isn't to be read.
inline bool MayReadGroup(int32_t position) {
  if (--runWatch.groupsToLook < 0 && !MayReadOn()) return false;
  runWatch.position = position;
  return true;
}

}  // namespace hexlume
