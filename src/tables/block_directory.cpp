#include "tables/block_directory.h"

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "platform/fault_guard.h"

namespace hexlume {

namespace {

int32_t WalkBlocks(TextStream& stream) {
  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDSEC")) {
    // The contents of a block are skipped group by group.
    if (!AtGroup(0, "BLOCK")) {
      more = ReadGroup(stream);
      continue;
    }
    BlockEntry block;
    more = ReadBlockHeader(stream, block);
    state.blocks.Add(block);
  }
  return more;
}

}  // namespace

int32_t ReadBlocks(TextStream& stream) {
  state.blocks = {};
  int32_t more = 0;
  GuardFaults([&] { more = WalkBlocks(stream); });
  return more;
}

int32_t ReadBlockHeader(TextStream& stream, BlockEntry& block) {
  block = {"", "", noBody};
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2:
        BoundedCopy(block.name, value);
        // The base point comes between this place and the first entity.
        block.bodyOffset = Tell(stream);
        break;
      case 330: BoundedCopy(block.ownerHandle, value); break;
    }
  }
  return more;
}

}  // namespace hexlume
