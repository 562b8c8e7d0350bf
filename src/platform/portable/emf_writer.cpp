#include "platform/portable/emf_writer.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace hexlume {

EmfWriter::EmfWriter(size_t largestMetafile) : mostBytes(largestMetafile - sizeof(EmfEofRecord)) {
  Grow(sizeof(EmfHeaderRecord));
}

void EmfWriter::Grow(size_t wanted) {
  if (wanted > mostBytes - Size()) throw std::length_error("the metafile is full");
  const size_t reserved = wanted + sizeof(EmfEofRecord);
  if (stream && Kept() + reserved > metafilePieceSize) HandOn();
  const size_t kept = Kept();
  if (kept + reserved > block.Size()) block.Grow(kept + reserved);
  next = block.Start() + kept;
  end = block.Start() + std::min(block.Size() - sizeof(EmfEofRecord), mostBytes - handedOn);
}

// No record refers to an earlier one, and only the header is changed at the end.
void EmfWriter::HandOn() {
  const size_t count = Kept();
  stream->Take(handedOn, block, count);
  handedOn += count;
  next = block.Start();
}

void EmfWriter::EndEarly() {
  mostBytes = Size();
  end = next;
}

EmfBytes EmfWriter::Finish(EmfHeaderRecord header) {
  end += sizeof(EmfEofRecord);
  Append(EmfEofRecord{emrEof, sizeof(EmfEofRecord), 0, 16, sizeof(EmfEofRecord)});
  const size_t size = Size();
  header.byteCount = static_cast<uint32_t>(size);
  header.recordCount = recordCount;
  if (handedOn > 0) return FinishStream(header);
  std::memcpy(block.Start(), &header, sizeof header);
  block.Shrink(size);
  return {std::move(block), size};
}

EmfBytes EmfWriter::FinishStream(const EmfHeaderRecord& header) {
  HandOn();
  std::memcpy(block.Start(), &header, sizeof header);
  stream->Take(0, block, sizeof header);
  return {GrowingBlock(), handedOn};
}

GdiObject EmfHandleTable::nobody;

uint32_t EmfHandleTable::SearchFor(HGDIOBJ object) const {
  const auto found = std::find(objects.begin(), objects.end(), object);
  return found == objects.end() ? 0 : static_cast<uint32_t>(found - objects.begin());
}

}  // namespace hexlume
