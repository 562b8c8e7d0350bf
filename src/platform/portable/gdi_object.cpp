#include "platform/portable/gdi_object.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace hexlume {

GdiObject* freeObjects = nullptr;

// Allocates objects in blocks that are never freed, so a handle always points to an object,
// living or deleted.
void AddFreeObjects() {
  constexpr size_t blockSize = 64;
  static std::vector<std::unique_ptr<GdiObject[]>> blocks;
  blocks.push_back(std::make_unique<GdiObject[]>(blockSize));
  for (size_t i = 0; i < blockSize; ++i) {
    GdiObject* const object = &blocks.back()[i];
    object->nextFree = freeObjects;
    freeObjects = object;
  }
}

}  // namespace hexlume
