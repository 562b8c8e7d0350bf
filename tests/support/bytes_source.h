// Bytes in memory that are read like a file, and say any size to expect.
#pragma once

#include <string>
#include <utility>

#include "driver/text_source.h"

namespace hexlume {

class BytesSource : public TextSource {
 public:
  BytesSource(std::string text, size_t expectedSize) : bytes(std::move(text)), expected(expectedSize) {}

  size_t Read(char* buffer, size_t size) override {
    const size_t part = bytes.copy(buffer, size, taken);
    taken += part;
    return part;
  }
  size_t ExpectedSize() const override { return expected; }
  bool HasFailed() const override { return false; }

 private:
  std::string bytes;
  size_t expected;
  size_t taken = 0;
};

}  // namespace hexlume
