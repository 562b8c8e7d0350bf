// The bytes of an enhanced metafile during recording, and the table of its object indices.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include "platform/gdi.h"
#include "platform/portable/emf_records.h"
#include "platform/portable/gdi_object.h"
#include "platform/portable/growing_block.h"
#include "platform/portable/metafile_stream.h"

namespace hexlume {

// All bytes of a metafile. Those of one that went to a stream aren't here.
struct EmfBytes {
  GrowingBlock block;
  size_t size = 0;
};

// Appends records, from the header to EOF. Append leaves the metafile unchanged if memory runs out, when it throws
// std::bad_alloc, or if the metafile would exceed its largest size (INT32_MAX), when it throws std::length_error. Finish
// always succeeds.
class EmfWriter {
 public:
  explicit EmfWriter(size_t largestMetafile = INT32_MAX);

  // From now on full pieces go to the stream, and their memory is used for the next piece.
  void StreamTo(MetafileStream* taker) { stream = taker; }

  // Appends one record: its head, a struct of emf_records.h, and a tail of variable length. The size field in
  // the head must be the sum of both, a multiple of 4.
  void Append(const void* head, size_t headSize, const void* tail, size_t tailSize) {
    MakeRoom(headSize + tailSize);
    Put(head, headSize);
    Put(tail, tailSize);
    ++recordCount;
  }

  // Appends a record without a tail. It is constructed in place, because copying a record just
  // built would stall.
  template <typename Record>
  void Append(const Record& record) {
    MakeRoom(sizeof(Record));
    new (next) Record(record);
    next += sizeof(Record);
    ++recordCount;
  }

  // From now on there is no room: a record is missing that had to be there.
  void EndEarly();

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
  void MakeRoom(size_t wanted) {
    if (wanted > static_cast<size_t>(end - next)) Grow(wanted);
  }

  void Grow(size_t wanted);
  void HandOn();
  EmfBytes FinishStream(const EmfHeaderRecord& header);

  size_t Kept() const { return static_cast<size_t>(next - block.Start()); }
  size_t Size() const { return handedOn + Kept(); }

  void Put(const void* data, size_t count) {
    if (count == 0) return;
    std::memcpy(next, data, count);
    next += count;
  }

  size_t mostBytes;  // without EOF
  GrowingBlock block;
  uint8_t* next = nullptr;  // after the last record
  uint8_t* end = nullptr;   // before the space reserved for EOF
  uint32_t recordCount = 0;
  MetafileStream* stream = nullptr;
  size_t handedOn = 0;  // bytes that the stream has
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
