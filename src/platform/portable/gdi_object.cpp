#include "platform/portable/gdi_object.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace hexlume {

GdiObject* freeObjects = nullptr;

// They come in blocks that stay to the end: a handle always points at an object, living or deleted.
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
