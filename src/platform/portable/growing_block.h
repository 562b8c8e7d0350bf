// Memory in one piece that grows without a copy, where the system can do that.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace hexlume {

class GrowingBlock {
 public:
  GrowingBlock() = default;
  GrowingBlock(GrowingBlock&& other) noexcept
      : start(std::exchange(other.start, nullptr)), size(std::exchange(other.size, 0)) {}
  GrowingBlock& operator=(GrowingBlock&& other) noexcept {
    std::swap(start, other.start);
    std::swap(size, other.size);
    return *this;
  }
  ~GrowingBlock();

  uint8_t* Start() const { return start; }
  size_t Size() const { return size; }

  // Grows to at least this size, which is larger than the size at hand. The bytes move. Throws std::bad_alloc, and then
  // nothing has changed.
  void Grow(size_t wanted);

  // Returns memory to the system, except this size, which isn't 0. The bytes stay where they are. Never fails.
  void Shrink(size_t kept);

 private:
  bool GrowTo(size_t larger);

  uint8_t* start = nullptr;
  size_t size = 0;
};

}  // namespace hexlume
