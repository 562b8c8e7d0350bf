// Where a metafile draws.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

enum class SheetInk {
  none,    // nothing is drawn
  beside,  // all is drawn outside of the frame, so that the picture is blank
  within
};

// Compares the boxes around everything that the records draw with the frame. Malformed records don't count.
SheetInk FindInk(const uint8_t* metafile, size_t size);

}  // namespace hexlume
