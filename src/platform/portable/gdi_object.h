// The objects behind GDI's handles: pens, brushes, fonts and regions.
#pragma once

#include "platform/gdi.h"
#include "platform/portable/font_data.h"
#include "platform/portable/region_data.h"

#include <cstdint>
#include <new>
#include <utility>
#include <variant>

namespace hexlume {

struct PenData {
  int style;
  int width;
  COLORREF colour;
};

struct BrushData {
  UINT style;
  COLORREF colour;
};

// What a handle stands for; monostate when the object is deleted.
using ObjectData = std::variant<std::monostate, PenData, BrushData, FontData, RegionData>;

constexpr int notAStockObject = -1;

}  // namespace hexlume

// The memory of a deleted object is kept for the next one, so a handle that was given up may still be looked
// at.
struct GdiObject {
  hexlume::ObjectData data;
  int stockNumber = hexlume::notAStockObject;
  uint32_t metafileIndex = 0;  // the last index it was recorded under; valid where the context's table agrees
  uint32_t recordedIn = 0;     // how many open metafiles hold a record of it
  uint32_t selectedIn = 0;     // how many contexts have it selected
  bool deletedWhileSelected = false;
  GdiObject* nextFree = nullptr;
};

namespace hexlume {

// The objects that were released and wait to be used again, the last one first.
extern GdiObject* freeObjects;

// Adds new ones. Throws std::bad_alloc without memory.
void AddFreeObjects();

// Destroys the object's data and keeps its memory. No context may use the object any more.
inline void ReleaseObject(GdiObject* object) {
  object->data.emplace<std::monostate>();
  object->deletedWhileSelected = false;
  object->nextFree = freeObjects;
  freeObjects = object;
}

// A new object with its data, of any of the four kinds. Throws std::bad_alloc without memory.
template <typename Data>
GdiObject* NewObject(Data data) {
  if (!freeObjects) AddFreeObjects();
  GdiObject* const object = freeObjects;
  freeObjects = object->nextFree;
  new (&object->data) ObjectData(std::move(data));  // in the place of a monostate, which needs no destructor
  return object;
}

// The object's data if the handle is a living one of that kind, otherwise NULL.
template <typename Data>
Data* DataOf(GdiObject* object) {
  return object ? std::get_if<Data>(&object->data) : nullptr;
}

}  // namespace hexlume
