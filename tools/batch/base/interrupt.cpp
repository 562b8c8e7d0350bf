#include "tools/batch/base/interrupt.h"

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <initializer_list>

namespace hexlume::batch {
namespace {

volatile sig_atomic_t isInterrupted = 0;

void NoteInterrupt(int) {
  isInterrupted = 1;
}

// A file or a terminal is always ready.
bool IsOutputLost() {
  pollfd output = {STDOUT_FILENO, 0, 0};
  return poll(&output, 1, 0) == 1 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

}  // namespace

void CatchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = NoteInterrupt;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction earlier = {};
    // nohup has it ignored.
    if (sigaction(signal, nullptr, &earlier) == 0 && earlier.sa_handler == SIG_IGN) continue;
    sigaction(signal, &action, nullptr);
  }
}

void CheckInterrupt() {
  if (isInterrupted || IsOutputLost()) throw Interrupted();
}

void EndWithParent() {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
}

void Sleep(int milliseconds) {
  poll(nullptr, 0, milliseconds);
}

}  // namespace hexlume::batch
