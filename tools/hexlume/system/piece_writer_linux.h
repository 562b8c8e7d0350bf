// Writes pieces of a file in a thread of its own, so that the next piece can be made meanwhile.
#pragma once

#include <semaphore.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <thread>

#include "platform/portable/growing_block.h"

namespace hexlume {

class PieceWriter {
 public:
  // The file must stay open as long as this. Takes memory for a piece of the usual size. Throws std::bad_alloc, or
  // std::system_error if there can be no thread.
  PieceWriter(int openFile, size_t usualSize);

  // Doesn't wait for more than the piece that is being written.
  ~PieceWriter();
  PieceWriter(const PieceWriter&) = delete;
  PieceWriter& operator=(const PieceWriter&) = delete;

  // Waits for the piece before, and takes the first bytes of the block. The block has the memory of that piece then. False if
  // a piece couldn't be written; then the block is as before, and no more may come. A fault of the processor may end this at any
  // place, as no lock is held: after that only the destructor may be called.
  bool Write(size_t place, GrowingBlock& block, size_t count);

  // Waits for the last piece. False if one couldn't be written.
  bool Finish();

 private:
  void Run();

  const int file;
  GrowingBlock piece;
  size_t placeOfPiece = 0, sizeOfPiece = 0;
  sem_t filled = {}, emptied = {};
  std::atomic<bool> hasFailed{false}, isOver{false};
  std::thread thread;
};

}  // namespace hexlume
