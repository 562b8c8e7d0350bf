// Writes pieces of a file in a thread of its own, so that the next piece can be made meanwhile.
#pragma once

#include <semaphore.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <thread>
#include <vector>

namespace hexlume {

class PieceWriter {
 public:
  // The file must stay open as long as this. Larger pieces than usual ones may need memory. Throws std::bad_alloc or std::system_error if there can be no thread.
  PieceWriter(int openFile, size_t usualSize);

  // Doesn't wait for more than the piece that is being written.
  ~PieceWriter();
  PieceWriter(const PieceWriter&) = delete;
  PieceWriter& operator=(const PieceWriter&) = delete;

  // Waits for the piece before, and takes a copy. False if a piece couldn't be written; then no more may come. A fault of the
  // processor may end this at any place, as no lock is held: after that only the destructor may be called.
  bool Write(size_t place, const uint8_t* bytes, size_t count);

  // Waits for the last piece. False if one couldn't be written.
  bool Finish();

 private:
  void Run();

  const int file;
  std::vector<uint8_t> piece;
  size_t placeOfPiece = 0;
  sem_t filled = {}, emptied = {};
  std::atomic<bool> hasFailed{false}, isOver{false};
  std::thread thread;
};

}  // namespace hexlume
