// Takes the bytes of a file in pieces, from the first to the last. May throw.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace hexlume {

using ByteSink = std::function<void(const uint8_t* bytes, size_t size)>;

}  // namespace hexlume
