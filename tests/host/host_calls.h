// Calls of all kinds, over and over.
#pragma once

#include <cstdint>
#include <string>

#include "hexlume_host.hpp"

namespace hexlume {

class HostCalls {
 public:
  static constexpr int32_t kinds = 14;

  HostCalls();

  // The calls from first up to end, each kind in turn. A status that isn't the kind's is reported.
  void Run(int32_t first, int32_t end) const;

 private:
  int32_t Call(int32_t kind) const;

  std::string drawing, recent, faulting;
};

}  // namespace hexlume
