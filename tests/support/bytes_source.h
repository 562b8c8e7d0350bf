// Bytes in memory that are read like a file, and say any size to expect.
#pragma once

#include <algorithm>
#include <string>
#include <utility>

#include "driver/text_source.h"

namespace hexlume {

class BytesSource : public TextSource {
 public:
  BytesSource(std::string text, size_t expectedSize, bool canReadAgain = false)
      : bytes(std::move(text)), expected(expectedSize), readsAgain(canReadAgain) {}

  size_t Read(char* buffer, size_t size) override {
    const size_t part = bytes.copy(buffer, size, taken);
    taken += part;
    return part;
  }
  size_t ExpectedSize() const override { return expected; }
  bool CanReadAgain() const override { return readsAgain; }
  void GoTo(size_t place) override { taken = std::min(place, bytes.size()); }
  void Shorten(size_t size) { bytes.resize(size); }
  bool HasFailed() const override { return false; }

 private:
  std::string bytes;
  size_t expected;
  bool readsAgain;
  size_t taken = 0;
};

}  // namespace hexlume
