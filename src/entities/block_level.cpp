#include "entities/block_level.h"

#include "driver/conv_state.h"
#include "driver/work_budget.h"
#include "platform/fault_guard.h"

namespace hexlume {

BlockLevel::BlockLevel(int32_t position) : outerCounted(state.countedPlace) {
  ++state.blockLevel;
  state.countedPlace = position;
}

BlockLevel::~BlockLevel() {
  --state.blockLevel;
  state.countedPlace = outerCounted;
}

// Each level of nested blocks can multiply what is read. Blocks that the ENTITIES section names aren't
// counted: each is read once for each entity that names it.
void CountBlockEntity(const TextStream& stream) {
  const int64_t bytes = Tell(stream) - state.countedPlace + bytesOfEntity;
  state.countedPlace = Tell(stream);
  CountSteps(bytes);
  if (state.blockLevel < 2) return;
  state.nestedBytes += bytes;
  if (state.nestedBytes <= nestedByteLimit) return;
  NoteBound(nestedBytesBound);
  throw faultCode;
}

}  // namespace hexlume
