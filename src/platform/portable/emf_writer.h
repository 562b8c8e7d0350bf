// The bytes of an enhanced metafile while it is being recorded, and the table of its objects' indices.
#pragma once

#include "platform/gdi.h"
#include "platform/portable/emf_records.h"
#include "platform/portable/gdi_object.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace hexlume {

// Bytes in pieces that never move: each new piece is a fraction of what is there already, so that a metafile
// takes little more memory than it is long, and neither growing nor closing it copies anything.
struct EmfBytes {
  struct Piece {
    std::unique_ptr<uint8_t[]> bytes;
    size_t used;
  };
  std::vector<Piece> pieces;
  size_t size = 0;  // of what is used of the pieces that are done

  // Copies all bytes to a buffer of that size at least.
  void CopyTo(uint8_t* buffer) const;
};

// Records appended one after the other, from the header to EOF. Without memory, or when the metafile's size
// would exceed the largest, that of an int32, appending throws std::bad_alloc and leaves the metafile as it
// was; it can always be finished.
class EmfWriter {
 public:
  explicit EmfWriter(size_t largestMetafile = INT32_MAX);

  // Appends one record, and owns size, count and growth for all: its head, a struct of emf_records.h, and a
  // tail of variable length. The head's size field tells the sum of both, a multiple of 4.
  void Append(const void* head, size_t headSize, const void* tail, size_t tailSize) {
    if (headSize + tailSize > Room()) {
      AppendAcross(head, headSize, tail, tailSize);
    } else {
      Put(head, headSize);
      Put(tail, tailSize);
    }
    ++recordCount;
  }

  // The same for a record without a tail, made in place: a copy of one just made would wait for it.
  template <typename Record>
  void Append(Record record) {
    if (sizeof(Record) > Room()) {
      const Record copy = record;
      AppendAcross(&copy, sizeof copy, nullptr, 0);
    } else {
      new (next) Record(record);
      next += sizeof(Record);
    }
    ++recordCount;
  }

  // Appends EOF, completes the header's byte and record counts, and gives the finished bytes away. The header
  // was the first record appended.
  EmfBytes Finish(EmfHeaderRecord header);

 private:
  void AppendAcross(const void* head, size_t headSize, const void* tail, size_t tailSize);
  void AddPiece(size_t pieceRoom);
  void BeginLastPiece(size_t pieceRoom);
  void EndPiece(EmfBytes::Piece& piece);

  size_t Room() const { return static_cast<size_t>(pieceEnd - next); }

  void Put(const void* data, size_t count) {
    if (count == 0) return;
    std::memcpy(next, data, count);
    next += count;
  }

  size_t mostBytes;  // before EOF
  EmfBytes bytes;
  uint8_t* pieceStart = nullptr;  // of the last piece
  uint8_t* next = nullptr;        // behind what is written in it
  uint8_t* pieceEnd = nullptr;    // before what is kept free for EOF
  uint32_t recordCount = 0;
};

// Which object stands under which index. Index 0 is the metafile itself.
class EmfHandleTable {
 public:
  // The lowest free index, with memory for it made; it stays free until Take. Throws std::bad_alloc.
  uint32_t NextIndex() {
    while (lowestFree < objects.size() && objects[lowestFree]) ++lowestFree;
    if (lowestFree == objects.size()) objects.push_back(nullptr);
    return lowestFree;
  }

  void Take(uint32_t index, HGDIOBJ object) noexcept {
    objects[index] = object;
    object->metafileIndex = index;
    handleCount = std::max(handleCount, index + 1);
  }

  void Free(uint32_t index) noexcept {
    objects[index] = nullptr;
    lowestFree = std::min(lowestFree, index);
  }

  // The index stays taken for ever, by no object.
  void Forget(uint32_t index) noexcept { objects[index] = &nobody; }

  // The object's index, 0 if it has none. Mostly it is the one that the object took last.
  uint32_t IndexOf(HGDIOBJ object) const {
    const uint32_t last = object->metafileIndex;
    return last < objects.size() && objects[last] == object ? last : SearchFor(object);
  }

  // As the header tells it: one more than the highest index ever taken.
  uint32_t HandleCount() const { return handleCount; }

  // Calls visit(object) for each object in the table.
  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const HGDIOBJ object : objects) {
      if (object && object != &nobody) visit(object);
    }
  }

 private:
  uint32_t SearchFor(HGDIOBJ object) const;

  static GdiObject nobody;

  std::vector<HGDIOBJ> objects{&nobody};
  uint32_t lowestFree = 1;  // no index below it is free
  uint32_t handleCount = 1;
};

}  // namespace hexlume
