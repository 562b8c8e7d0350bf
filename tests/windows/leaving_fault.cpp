#include "support/leaving_fault.h"

#include <windows.h>

#include <stdexcept>

#include "windows/structured_handler.h"

namespace hexlume {

std::optional<int32_t> FaultLeaving(const std::function<void()>& call) {
  constexpr DWORD systemCompilersException = 0xE06D7363;
  test::HostException exception = {};
  if (!test::EndsInException([&] { call(); }, &exception)) return std::nullopt;
  if (exception.code != systemCompilersException) throw std::runtime_error("an exception of another kind");
  return *reinterpret_cast<const int32_t*>(exception.parameters[1]);
}

}  // namespace hexlume
