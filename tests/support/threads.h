// Threads for tests, where the compiler's library may have none.
#pragma once

#include <cstdint>
#include <functional>

namespace hexlume {

// Runs work(0) to work(count - 1) in threads of their own and waits for all of them.
void RunThreads(int32_t count, const std::function<void(int32_t)>& work);

}  // namespace hexlume
