// Sequences of GDI calls whose metafiles must be the same bytes from every system's GDI.
#pragma once

#include "platform/gdi.h"

#include <vector>

namespace hexlume {

// What the calls of a sequence returned, where that matters.
using ProbeResults = std::vector<long long>;

struct ProbeCalls {
  const char* name;
  void (*run)(HDC dc, ProbeResults& results);
};

// For metafiles with a frame. The calls run in MM_TEXT unless they set a mode.
const std::vector<ProbeCalls>& StrokeProbes();
const std::vector<ProbeCalls>& ArcProbes();
const std::vector<ProbeCalls>& ObjectProbes();
const std::vector<ProbeCalls>& TextProbes();
const std::vector<ProbeCalls>& RegionProbes();

struct ProbeFrame {
  const char* name;
  bool isGiven;
  RECT frame;
};

// Frames for one and the same drawing, DrawInFrame.
const std::vector<ProbeFrame>& FrameProbes();
void DrawInFrame(HDC dc);

}  // namespace hexlume
