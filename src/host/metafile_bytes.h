// The metafile of a result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

#include "platform/gdi.h"

namespace hexlume {

struct DeleteMetafile {
  void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};
using Metafile = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, DeleteMetafile>;

// A large metafile stays where it was drawn, if the system allows it: a copy would double the memory.
class MetafileBytes {
 public:
  MetafileBytes() = default;
  explicit MetafileBytes(Metafile metafile);
  MetafileBytes(MetafileBytes&& other) noexcept { *this = std::move(other); }
  MetafileBytes& operator=(MetafileBytes&& other) noexcept {
    kept = std::move(other.kept);
    copied = std::move(other.copied);
    start = std::exchange(other.start, nullptr);
    count = std::exchange(other.count, 0);
    return *this;
  }

  bool IsEmpty() const { return count == 0; }
  size_t Size() const { return count; }
  uint8_t* Start() const { return start; }

  // Drops the bytes from this size on.
  void Shorten(size_t fewer) { count = fewer; }

 private:
  Metafile kept;
  std::unique_ptr<uint8_t[]> copied;
  uint8_t* start = nullptr;
  size_t count = 0;
};

}  // namespace hexlume
