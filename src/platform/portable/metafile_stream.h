// Metafiles whose bytes leave memory while they are drawn. Only for the tool, which has the version of its library.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/portable/growing_block.h"

namespace hexlume {

// What a piece has, but for one with a larger record. Larger pieces aren't written faster, and would no longer stay in the
// processor's cache.
constexpr size_t metafilePieceSize = 1 << 20;

class MetafileStream {
 public:
  // Takes the first bytes of the block, those of the metafile from this place on. The places follow each other, until at the
  // end the header comes once more, complete. Leaves in the block other memory, which may be smaller, or the same: what is in it
  // doesn't matter.
  virtual void Take(size_t place, GrowingBlock& block, size_t count) noexcept = 0;

 protected:
  ~MetafileStream() = default;
};

}  // namespace hexlume

// The next metafile that is begun goes to this stream in pieces. It has a size then, but no bytes:
// EnhMetaFileBytes gives NULL, GetEnhMetaFileBits copies nothing. One that is smaller than a piece stays in memory as ever.
// Null for none.
extern "C" void StreamNextMetafile(hexlume::MetafileStream* stream);
