// The end of the program by SIGINT, SIGTERM or SIGHUP: at the next place where nothing is half done.
#pragma once

#include <exception>

namespace hexlume::batch {

struct Interrupted : std::exception {
  const char* what() const noexcept override { return "interrupted"; }
};

// From now on the signals only leave a note.
void CatchInterrupts();

// Throws Interrupted after one of the signals, or if standard output is a pipe or a socket that nobody reads any more: the
// connection to the machine that started this process is lost.
void CheckInterrupt();

// For a process that is of no use without the one that has started it: it is interrupted when that one ends.
void EndWithParent();

// Sleeps until the time is over or a signal comes.
void Sleep(int milliseconds);

}  // namespace hexlume::batch
