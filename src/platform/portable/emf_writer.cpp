#include "platform/portable/emf_writer.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace hexlume {

EmfWriter::EmfWriter(size_t largestMetafile) : mostBytes(largestMetafile - sizeof(EmfEofRecord)) {
  Grow(sizeof(EmfHeaderRecord));
}

void EmfWriter::Grow(size_t wanted) {
  const auto written = static_cast<size_t>(next - block.Start());
  if (wanted > mostBytes - written) throw std::length_error("the metafile is full");
  const size_t needed = written + wanted + sizeof(EmfEofRecord);
  if (needed > block.Size()) block.Grow(needed);
  next = block.Start() + written;
  end = block.Start() + std::min(block.Size() - sizeof(EmfEofRecord), mostBytes);
}

void EmfWriter::EndEarly() {
  mostBytes = static_cast<size_t>(next - block.Start());
  end = next;
}

EmfBytes EmfWriter::Finish(EmfHeaderRecord header) {
  end += sizeof(EmfEofRecord);
  Append(EmfEofRecord{emrEof, sizeof(EmfEofRecord), 0, 16, sizeof(EmfEofRecord)});
  const auto size = static_cast<size_t>(next - block.Start());
  header.byteCount = static_cast<uint32_t>(size);
  header.recordCount = recordCount;
  std::memcpy(block.Start(), &header, sizeof header);
  block.Shrink(size);
  return {std::move(block), size};
}

GdiObject EmfHandleTable::nobody;

uint32_t EmfHandleTable::SearchFor(HGDIOBJ object) const {
  const auto found = std::find(objects.begin(), objects.end(), object);
  return found == objects.end() ? 0 : static_cast<uint32_t>(found - objects.begin());
}

}  // namespace hexlume
