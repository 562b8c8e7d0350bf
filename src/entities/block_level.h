// The walks over blocks that are in progress: how deep they are, and what they have read.
#pragma once

#include <cstdint>

#include "driver/text_stream.h"

namespace hexlume {

// The most bytes of the drawing that the nested blocks of one conversion may read. Each of their entities and
// the end of each block count as 50 more. A line's stroke takes nearly 100 bytes of a metafile, whose limit
// is 2 GB, so the lines of a drawing that can be shown don't reach this limit. A drawing whose blocks double
// from level to level reaches it within about ten seconds.
constexpr int64_t nestedByteLimit = 3'000'000'000;

constexpr int64_t bytesOfEntity = 50;  // cost of an entity in addition to its groups

// A walk over the text of a block from this position on.
class BlockLevel {
 public:
  explicit BlockLevel(int32_t position);
  ~BlockLevel();
  BlockLevel(const BlockLevel&) = delete;
  BlockLevel& operator=(const BlockLevel&) = delete;

 private:
  int32_t outerCounted;
};

// Counts an entity of the block at hand, with what was read since the one before it. Throws faultCode if nested blocks
// have read too much.
void CountBlockEntity(const TextStream& stream);

}  // namespace hexlume
