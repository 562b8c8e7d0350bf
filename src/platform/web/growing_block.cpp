// WebAssembly has no pages to move.
#include "platform/portable/growing_block.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace hexlume {

namespace {

constexpr size_t smallest = 4096;
constexpr size_t growthDivisor = 2;

}  // namespace

GrowingBlock::~GrowingBlock() {
  std::free(start);
}

void GrowingBlock::Grow(size_t wanted) {
  if (!GrowTo(std::max({wanted, size + size / growthDivisor, smallest})) && !GrowTo(wanted))
    throw std::bad_alloc();
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
