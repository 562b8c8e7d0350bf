// A host that guards its calls by structured handling.
#pragma once

#include <windows.h>

namespace hexlume::test {

struct HostException {
  DWORD code;
  DWORD flags;
  DWORD parameterCount;
  ULONG_PTR parameters[EXCEPTION_MAXIMUM_PARAMETERS];
};

// Calls run(context). True if an exception ended it, which is then in *exception. Not for use on two threads
// at a time.
bool EndsInException(void (*run)(void* context), void* context, HostException* exception);

template <typename Run>
bool EndsInException(Run run, HostException* exception) {
  return EndsInException([](void* context) { (*static_cast<Run*>(context))(); }, &run, exception);
}

}  // namespace hexlume::test
