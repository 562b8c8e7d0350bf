#include "platform/call_lock.h"

#include <pthread.h>

namespace hexlume {

namespace {

// Of the kind that knows its owner.
pthread_mutex_t mutex = PTHREAD_ERRORCHECK_MUTEX_INITIALIZER_NP;

}  // namespace

bool EnterCall() {
  return pthread_mutex_lock(&mutex) == 0;
}

void LeaveCall() {
  pthread_mutex_unlock(&mutex);
}

}  // namespace hexlume
