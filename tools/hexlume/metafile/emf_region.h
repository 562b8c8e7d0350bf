// A region in a metafile record: a header of its own, then rectangles from top to bottom.
#pragma once

#include <vector>

#include "tools/hexlume/metafile/emf_record.h"

namespace hexlume {

struct EmfRectangle {
  int32_t left, top, right, bottom;
};

inline EmfRectangle EmfRectangleAt(const EmfRecord& record, size_t offset) {
  return {record.Int(offset), record.Int(offset + 4), record.Int(offset + 8), record.Int(offset + 12)};
}

// Reads the rectangles of the region in size bytes from offset on.
inline std::vector<EmfRectangle> EmfRegionAt(const EmfRecord& record, size_t offset, size_t size) {
  record.RequireItems(offset, size, 1);
  // The header contains its size, a type, the count, the size of the rectangles, and the bounds.
  const uint32_t headerSize = record.UInt(offset);
  const uint32_t count = record.UInt(offset + 8);
  if (headerSize < 32 || headerSize > size || count > (size - headerSize) / 16) throw MalformedRecord();
  std::vector<EmfRectangle> rectangles(count);
  for (size_t i = 0; i < count; ++i) {
    rectangles[i] = EmfRectangleAt(record, offset + headerSize + 16 * i);
  }
  return rectangles;
}

}  // namespace hexlume
