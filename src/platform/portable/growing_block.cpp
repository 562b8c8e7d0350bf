// The system moves pages by its tables. What isn't used yet is address space and no memory, so the block grows by large
// steps. Huge pages save most of the page faults, a fifth of the time of a drawing of lines.
#include "platform/portable/growing_block.h"

#include <sys/mman.h>

#include <algorithm>
#include <new>

namespace hexlume {

namespace {

constexpr size_t smallest = 64 * 1024;
constexpr size_t hugePage = 2 << 20;
constexpr size_t leastInHugePages = 2 * hugePage;

size_t RoundUp(size_t value, size_t unit) {
  return (value + unit - 1) / unit * unit;
}

// Sizes are whole pages of any size that a system has.
size_t PagesFor(size_t size) {
  return RoundUp(size, size < leastInHugePages ? smallest : hugePage);
}

// Takes address space that nothing uses, from a multiple of the alignment. Returns null if there is none.
uint8_t* Reserve(size_t size, size_t alignment) {
  void* const place =
      mmap(nullptr, size + alignment, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (place == MAP_FAILED) return nullptr;
  auto* const first = static_cast<uint8_t*>(place);
  const size_t before =
      RoundUp(reinterpret_cast<uintptr_t>(first), alignment) - reinterpret_cast<uintptr_t>(first);
  if (before > 0) munmap(first, before);
  munmap(first + before + size, alignment - before);
  return first + before;
}

}  // namespace

GrowingBlock::~GrowingBlock() {
  if (start) munmap(start, size);
}

void GrowingBlock::Grow(size_t wanted) {
  const size_t generous = size < leastInHugePages ? size * 2 : size + size / 2;
  if (!GrowTo(PagesFor(std::max({wanted, generous, smallest}))) && !GrowTo(PagesFor(wanted)))
    throw std::bad_alloc();
}

bool GrowingBlock::GrowTo(size_t larger) {
  uint8_t* const place = Reserve(larger, larger < leastInHugePages ? smallest : hugePage);
  if (!place) return false;
  void* const moved =
      start ? mremap(start, size, larger, MREMAP_MAYMOVE | MREMAP_FIXED, place)
            : mmap(place, larger, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0);
  if (moved == MAP_FAILED) {
    munmap(place, larger);
    return false;
  }
  start = place;
  size = larger;
  if (size >= leastInHugePages) madvise(start, size, MADV_HUGEPAGE);
  return true;
}

void GrowingBlock::Shrink(size_t kept) {
  const size_t pages = RoundUp(kept, smallest);
  if (pages >= size) return;
  munmap(start + pages, size - pages);
  size = pages;
}

}  // namespace hexlume
