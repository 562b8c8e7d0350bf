#include "tools/hexlume/system/piece_writer_linux.h"

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace hexlume {
namespace {

bool WriteAt(int file, size_t place, const uint8_t* bytes, size_t count) {
  while (count > 0) {
    const ssize_t written = pwrite(file, bytes, count, static_cast<off_t>(place));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes += written;
    place += static_cast<size_t>(written);
    count -= static_cast<size_t>(written);
  }
  return true;
}

void WaitFor(sem_t& semaphore) {
  while (sem_wait(&semaphore) != 0 && errno == EINTR) {
  }
}

// A thread that is started meanwhile handles no signals: they are for the one that converts. That of a file that grows too large
// comes to the one that writes.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    sigdelset(&all, SIGXFSZ);
    pthread_sigmask(SIG_SETMASK, &all, &before);
  }
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;

 private:
  sigset_t before;
};

}  // namespace

PieceWriter::PieceWriter(int openFile, size_t usualSize) : file(openFile) {
  piece.Grow(usualSize);
  sem_init(&filled, 0, 0);
  sem_init(&emptied, 0, 1);
  const BlockedSignals blocked;
  thread = std::thread([this] { Run(); });
}

PieceWriter::~PieceWriter() {
  isOver = true;
  sem_post(&filled);
  thread.join();
  sem_destroy(&filled);
  sem_destroy(&emptied);
}

bool PieceWriter::Write(size_t place, GrowingBlock& block, size_t count) {
  WaitFor(emptied);
  if (hasFailed) return false;
  std::swap(piece, block);
  placeOfPiece = place;
  sizeOfPiece = count;
  sem_post(&filled);
  return true;
}

bool PieceWriter::Finish() {
  WaitFor(emptied);
  return !hasFailed;
}

void PieceWriter::Run() {
  for (;;) {
    WaitFor(filled);
    if (isOver) return;
    if (!WriteAt(file, placeOfPiece, piece.Start(), sizeOfPiece)) hasFailed = true;
    sem_post(&emptied);
  }
}

}  // namespace hexlume
