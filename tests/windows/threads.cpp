#include "support/threads.h"

#include <windows.h>

#include <vector>

namespace hexlume {

namespace {

struct Start {
  const std::function<void(int32_t)>* work;
  int32_t number;
};

DWORD WINAPI Run(void* context) {
  const Start& start = *static_cast<const Start*>(context);
  (*start.work)(start.number);
  return 0;
}

}  // namespace

void RunThreads(int32_t count, const std::function<void(int32_t)>& work) {
  std::vector<Start> starts;
  for (int32_t i = 0; i < count; ++i) starts.push_back({&work, i});
  std::vector<HANDLE> threads;
  for (Start& start : starts) threads.push_back(CreateThread(nullptr, 0, Run, &start, 0, nullptr));
  WaitForMultipleObjects(static_cast<DWORD>(count), threads.data(), TRUE, INFINITE);
  for (const HANDLE thread : threads) CloseHandle(thread);
}

}  // namespace hexlume
