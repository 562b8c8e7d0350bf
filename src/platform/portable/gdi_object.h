// The objects of GDI handles: pens, brushes, fonts and regions.
#pragma once

#include <cstdint>
#include <new>
#include <utility>
#include <variant>

#include "platform/gdi.h"
#include "platform/portable/font_data.h"
#include "platform/portable/region_data.h"

namespace hexlume {

struct PenData {
  int style;
  int width;
  COLORREF color;
};

// The width that a pen has in records.
inline int PenWidth(int width) {
  return width < 0 && width != INT32_MIN ? -width : width;
}

struct BrushData {
  UINT style;
  COLORREF color;
};

// The data of an object; monostate if it is deleted.
using ObjectData = std::variant<std::monostate, PenData, BrushData, FontData, RegionData>;

constexpr int notAStockObject = -1;

}  // namespace hexlume

// The memory of a deleted object is reused for the next one, so reading an object after its deletion is safe.
struct GdiObject {
  hexlume::ObjectData data;
  int stockNumber = hexlume::notAStockObject;
  uint32_t metafileIndex = 0;  // last index in a metafile; valid if that metafile's table agrees
  uint32_t recordedIn = 0;     // number of open metafiles that have a record of it
  uint32_t selectedIn = 0;     // number of contexts in which it is selected
  bool deletedWhileSelected = false;
  GdiObject* nextFree = nullptr;
};

namespace hexlume {

// A list of deleted objects that can be reused, the last deleted first.
extern GdiObject* freeObjects;

// Adds new objects to freeObjects. Throws std::bad_alloc.
void AddFreeObjects();

// Destroys the object's data and adds the object to freeObjects. No context may use it any more.
inline void ReleaseObject(GdiObject* object) {
  object->data.emplace<std::monostate>();
  object->deletedWhileSelected = false;
  object->nextFree = freeObjects;
  freeObjects = object;
}

// Creates an object of any of the four kinds. Throws std::bad_alloc.
template <typename Data>
GdiObject* NewObject(Data data) {
  if (!freeObjects) AddFreeObjects();
  GdiObject* const object = freeObjects;
  freeObjects = object->nextFree;
  new (&object->data) ObjectData(std::move(data));  // replaces a monostate, which needs no destructor
  return object;
}

// Returns the object's data, or NULL if the object is of another kind or deleted.
template <typename Data>
Data* DataOf(GdiObject* object) {
  return object ? std::get_if<Data>(&object->data) : nullptr;
}

}  // namespace hexlume
