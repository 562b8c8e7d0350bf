// Bytes that are read into: a vector whose new bytes aren't set to 0 first.
#pragma once

#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace hexlume {

template <typename T>
struct UnclearedAllocator : std::allocator<T> {
  template <typename Other>
  struct rebind {
    using other = UnclearedAllocator<Other>;
  };

  template <typename Value>
  void construct(Value* place) noexcept {
    ::new (static_cast<void*>(place)) Value;
  }
  template <typename Value, typename... Arguments>
  void construct(Value* place, Arguments&&... arguments) {
    ::new (static_cast<void*>(place)) Value(std::forward<Arguments>(arguments)...);
  }
};

using UnclearedBytes = std::vector<char, UnclearedAllocator<char>>;

}  // namespace hexlume
