// The loops over a block's body: one for the blocks drawn by an INSERT, one for a dimension's block and one
// for the blocks inserted there. Any failure is reported as `throw faultCode`. So is a block that contains
// itself, before the stack is used up, and a drawing whose nested blocks read more than nestedByteLimit.
#pragma once

#include <cstdint>

#include "entities/block_run.h"
#include "entities/entity_run.h"

namespace hexlume {

// Draws each entity of the block that has a converter in this scope, up to the block's end. bodyOffset is
// that of a BlockEntry; if it is noBody, nothing is drawn. The run's origin is the insertion point; the
// block's scaled base point is subtracted from it here. Returns 1.
int32_t DrawBlockEntities(BlockRun run, int32_t bodyOffset);

// The same in the scope of a dimension's inserted block. No base point is subtracted. Returns 1.
int32_t DrawDimInsertEntities(const BlockRun& run, int32_t bodyOffset);

// The same for the block of a dimension. run has the dimension's offset and its colour, which only the
// inserts in the block use. A processor fault is handled by the guard around the ENTITIES section.
void DrawDimBlock(const EntityRun& run, int32_t bodyOffset);

// Whether blocks draw the kind of entity that the group at hand names.
bool DrawsBlockEntity();

}  // namespace hexlume
