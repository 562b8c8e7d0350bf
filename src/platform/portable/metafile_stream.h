// Metafiles whose bytes leave memory while they are drawn. Only for the tool, which has the version of its library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// What a piece has, but for one with a larger record. Larger pieces aren't written faster, and would no longer stay in the
// processor's cache.
constexpr size_t metafilePieceSize = 1 << 20;

class MetafileStream {
 public:
  // Takes bytes of the metafile, from this place on. The places follow each other, until at the end the header comes once
  // more, complete.
  virtual void Take(size_t place, const uint8_t* bytes, size_t count) noexcept = 0;

 protected:
  ~MetafileStream() = default;
};

}  // namespace hexlume

// The next metafile that is begun goes to this stream in pieces. It has a size then, but no bytes:
// EnhMetaFileBytes gives NULL, GetEnhMetaFileBits copies nothing. One that is smaller than a piece stays in memory as ever.
// Null for none.
extern "C" void StreamNextMetafile(hexlume::MetafileStream* stream);
