// WebAssembly has no pages to move, so each growth copies the bytes, and the memory never becomes less. But what isn't
// written yet is no memory for the browser: a large block takes at once what a metafile can have, and is copied once.
#include "platform/portable/growing_block.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace hexlume {

namespace {

constexpr size_t smallest = 4096;
constexpr size_t large = 32 << 20;
constexpr size_t roomOfLarge = 336 << 20;  // for the metafile of a drawing of 1 MB, at most 320,000,000 bytes

size_t Generous(size_t size, size_t wanted) {
  return std::max({wanted, size + size / 2, wanted < large ? smallest : roomOfLarge});
}

}  // namespace

GrowingBlock::~GrowingBlock() {
  std::free(start);
}

void GrowingBlock::Grow(size_t wanted) {
  for (const size_t larger : {Generous(size, wanted), size + size / 4, size + size / 32})
    if (larger >= wanted && GrowTo(larger)) return;
  if (!GrowTo(wanted)) throw std::bad_alloc();
}

bool GrowingBlock::GrowTo(size_t larger) {
  void* const moved = std::realloc(start, larger);
  if (!moved) return false;
  start = static_cast<uint8_t*>(moved);
  size = larger;
  return true;
}

// Could move the bytes.
void GrowingBlock::Shrink(size_t) {}

}  // namespace hexlume
