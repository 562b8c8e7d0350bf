// Faults as they leave the library for its host.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace hexlume {

// Runs call as a host would, and gives the number of the fault that left the library, if one did.
std::optional<int32_t> FaultLeaving(const std::function<void()>& call);

}  // namespace hexlume
