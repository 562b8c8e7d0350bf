#include "platform/portable/gdi_object.h"

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/run_objects.h"

namespace hexlume {

GdiObject* freeObjects = nullptr;

namespace {

constexpr size_t blockSize = 64;

std::vector<std::unique_ptr<GdiObject[]>>& Blocks() {
  static std::vector<std::unique_ptr<GdiObject[]>> blocks;
  return blocks;
}

}  // namespace

// Allocates objects in blocks that are never freed, so a handle always points to an object,
// living or deleted.
void AddFreeObjects() {
  auto& blocks = Blocks();
  blocks.push_back(std::make_unique<GdiObject[]>(blockSize));
  for (size_t i = 0; i < blockSize; ++i) {
    GdiObject* const object = &blocks.back()[i];
    object->nextFree = freeObjects;
    freeObjects = object;
  }
}

void DeleteRunObjects() {
  for (const auto& block : Blocks())
    for (size_t i = 0; i < blockSize; ++i) DeleteObject(&block[i]);
}

}  // namespace hexlume
