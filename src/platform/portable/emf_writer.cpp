#include "platform/portable/emf_writer.h"

#include <algorithm>
#include <stdexcept>

namespace hexlume {

namespace {

constexpr size_t smallestPiece = 4096;
constexpr size_t largestPiece = 1 << 20;
constexpr size_t growthDivisor = 8;

}  // namespace

void EmfBytes::CopyTo(uint8_t* buffer) const {
  for (const Piece& piece : pieces) {
    std::memcpy(buffer, piece.bytes.get(), piece.used);
    buffer += piece.used;
  }
}

EmfWriter::EmfWriter(size_t largestMetafile) : mostBytes(largestMetafile - sizeof(EmfEofRecord)) {
  AddPiece(smallestPiece);
  BeginLastPiece(smallestPiece);
}

// Every piece has additional space for EOF, which pieceRoom doesn't include.
void EmfWriter::AddPiece(size_t pieceRoom) {
  bytes.pieces.push_back({std::unique_ptr<uint8_t[]>(new uint8_t[pieceRoom + sizeof(EmfEofRecord)]), 0});
}

void EmfWriter::BeginLastPiece(size_t pieceRoom) {
  pieceStart = next = bytes.pieces.back().bytes.get();
  pieceEnd = next + pieceRoom;
}

void EmfWriter::EndPiece(EmfBytes::Piece& piece) {
  piece.used = static_cast<size_t>(next - pieceStart);
  bytes.size += piece.used;
}

// Splits a record that doesn't fit the last piece. The new piece is allocated before the first
// byte is written.
void EmfWriter::AppendAcross(const void* head, size_t headSize, const void* tail, size_t tailSize) {
  const size_t wanted = headSize + tailSize;
  const size_t written = bytes.size + static_cast<size_t>(next - pieceStart);
  const size_t left = mostBytes - written;
  if (wanted > left) throw std::length_error("the metafile is full");
  const size_t growth = std::clamp(written / growthDivisor, smallestPiece, largestPiece);
  // No piece may have room beyond the largest metafile, because Append checks only the room of the piece. It
  // is a multiple of 4, so that records are aligned in the next piece too.
  const size_t pieceRoom = std::min(std::max(wanted, growth), left - Room()) & ~size_t{3};
  AddPiece(pieceRoom);
  const size_t headHere = std::min(headSize, Room());
  const size_t tailHere = std::min(tailSize, Room() - headHere);
  Put(head, headHere);
  Put(tail, tailHere);
  EndPiece(bytes.pieces[bytes.pieces.size() - 2]);
  BeginLastPiece(pieceRoom);
  Put(static_cast<const uint8_t*>(head) + headHere, headSize - headHere);
  Put(static_cast<const uint8_t*>(tail) + tailHere, tailSize - tailHere);
}

void EmfWriter::EndEarly() {
  mostBytes = bytes.size + static_cast<size_t>(next - pieceStart);
  pieceEnd = next;
}

EmfBytes EmfWriter::Finish(EmfHeaderRecord header) {
  pieceEnd += sizeof(EmfEofRecord);
  Append(EmfEofRecord{emrEof, sizeof(EmfEofRecord), 0, 16, sizeof(EmfEofRecord)});
  EndPiece(bytes.pieces.back());
  header.byteCount = static_cast<uint32_t>(bytes.size);
  header.recordCount = recordCount;
  std::memcpy(bytes.pieces.front().bytes.get(), &header, sizeof header);
  return std::move(bytes);
}

GdiObject EmfHandleTable::nobody;

uint32_t EmfHandleTable::SearchFor(HGDIOBJ object) const {
  const auto found = std::find(objects.begin(), objects.end(), object);
  return found == objects.end() ? 0 : static_cast<uint32_t>(found - objects.begin());
}

}  // namespace hexlume
