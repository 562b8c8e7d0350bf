// The walks over a block's body: one for the blocks that an INSERT plays back, one for a dimension's block
// and one for those that are inserted there. Whatever fails in them comes out as `throw faultCode`; so does a
// block that contains itself, while there is still room on the stack, and a drawing whose blocks within
// blocks don't come to an end.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// How many bytes of the drawing the blocks within blocks of one conversion may read. Each of their entities
// and the end of each block count for 50 more. A line's stroke takes nearly 100 bytes of a metafile, which
// holds 2 GB: the lines of a drawing that can be shown don't get there. One whose blocks double from level to
// level does, within ten seconds or so.
constexpr int64_t nestedByteLimit = 3'000'000'000;

// Draws each entity of the block that has a converter in this scope, up to the block's end. bodyOffset is
// that of a BlockEntry; with noBody nothing is drawn. The run's origin is the insertion point, from which the
// block's scaled base point is subtracted here. Always 1.
int32_t DrawBlockEntities(BlockRun run, int32_t bodyOffset);

// The same in the scope of a dimension's inserted block. No base point is subtracted here. Always 1.
int32_t DrawDimInsertEntities(const BlockRun& run, int32_t bodyOffset);

// The same for the block of a dimension, whose offset and colour the run has. Only the inserts in it are
// given the colour. A processor fault is left to the guard around the ENTITIES section.
void DrawDimBlock(const EntityRun& run, int32_t bodyOffset);

// Whether blocks draw the kind of entity that the group at hand names.
bool DrawsBlockEntity();

}  // namespace hexlume
