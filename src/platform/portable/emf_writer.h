// The bytes of an enhanced metafile during recording, and the table of its object indices.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "platform/gdi.h"
#include "platform/portable/emf_records.h"
#include "platform/portable/gdi_object.h"

namespace hexlume {

// Bytes in pieces that never move. Each new piece is a fraction of the current size, so the memory is little
// more than the metafile's size, and neither growing nor closing copies bytes.
struct EmfBytes {
  struct Piece {
    std::unique_ptr<uint8_t[]> bytes;
    size_t used;
  };
  std::vector<Piece> pieces;
  size_t size = 0;  // sum of the used bytes of the finished pieces

  // Copies all bytes to a buffer of at least that size.
  void CopyTo(uint8_t* buffer) const;
};

// Appends records, from the header to EOF. If memory runs out, or the metafile would exceed its largest size
// (INT32_MAX), Append throws std::bad_alloc and leaves the metafile unchanged. Finish always succeeds.
class EmfWriter {
 public:
  explicit EmfWriter(size_t largestMetafile = INT32_MAX);

  // Appends one record: its head, a struct of emf_records.h, and a tail of variable length. The size field in
  // the head must be the sum of both, a multiple of 4.
  void Append(const void* head, size_t headSize, const void* tail, size_t tailSize) {
    if (headSize + tailSize > Room()) {
      AppendAcross(head, headSize, tail, tailSize);
    } else {
      Put(head, headSize);
      Put(tail, tailSize);
    }
    ++recordCount;
  }

  // Appends a record without a tail. It is constructed in place, because copying a record just
  // built would stall.
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

  // Appends a struct of several records without tails, all or none.
  template <typename Records>
  void AppendSeveral(const Records& records, uint32_t count) {
    Append(records);
    recordCount += count - 1;
  }

  // Appends EOF, sets the byte and record counts in the header, which must be the first record, and
  // returns the bytes.
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

  size_t mostBytes;  // without EOF
  EmfBytes bytes;
  uint8_t* pieceStart = nullptr;  // start of the last piece
  uint8_t* next = nullptr;        // after its used bytes
  uint8_t* pieceEnd = nullptr;    // before the space reserved for EOF
  uint32_t recordCount = 0;
};

// Maps object indices to objects. Index 0 is the metafile itself.
class EmfHandleTable {
 public:
  // Returns the lowest free index and allocates its entry. It is free until Take. Throws std::bad_alloc.
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

  // The same as Take and Free, for the index that NextIndex has returned.
  void UseBriefly(uint32_t index) noexcept { handleCount = std::max(handleCount, index + 1); }

  void Free(uint32_t index) noexcept {
    objects[index] = nullptr;
    lowestFree = std::min(lowestFree, index);
  }

  // Marks the index as used by no object, permanently.
  void Forget(uint32_t index) noexcept { objects[index] = &nobody; }

  // Returns the object's index, 0 if it has none. Usually it is the object's last index.
  uint32_t IndexOf(HGDIOBJ object) const {
    const uint32_t last = object->metafileIndex;
    return last < objects.size() && objects[last] == object ? last : SearchFor(object);
  }

  // The count for the header: one more than the highest index ever used.
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
  uint32_t lowestFree = 1;  // all indices below are in use
  uint32_t handleCount = 1;
};

}  // namespace hexlume
