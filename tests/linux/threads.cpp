#include "support/threads.h"

#include <thread>
#include <vector>

namespace hexlume {

void RunThreads(int32_t count, const std::function<void(int32_t)>& work) {
  std::vector<std::thread> threads;
  for (int32_t i = 0; i < count; ++i) threads.emplace_back([&work, i] { work(i); });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace hexlume
