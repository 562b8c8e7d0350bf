// The bytes of a metafile, as in a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace hexlume {

// Constant bytes, which copies share. They belong to a vector, or to whatever the library has given.
class MetafileBytes {
 public:
  MetafileBytes() = default;
  explicit MetafileBytes(std::vector<uint8_t> bytes) {
    const auto kept = std::make_shared<const std::vector<uint8_t>>(std::move(bytes));
    *this = MetafileBytes(kept->data(), kept->size(), kept);
  }
  template <typename Iterator>
  MetafileBytes(Iterator first, Iterator last) : MetafileBytes(std::vector<uint8_t>(first, last)) {}

  // The bytes are valid as long as their owner.
  MetafileBytes(const uint8_t* firstByte, size_t byteCount, std::shared_ptr<const void> ownerOfBytes)
      : owner(std::move(ownerOfBytes)), first(firstByte), count(byteCount) {}

  const uint8_t* data() const { return first; }
  size_t size() const { return count; }
  bool empty() const { return count == 0; }
  const uint8_t* begin() const { return first; }
  const uint8_t* end() const { return first + count; }

  // The size of its drawing, 0 if it isn't known. Pictures of larger drawings may take more work.
  int64_t DrawingBytes() const { return drawingBytes; }
  void SetDrawingBytes(int64_t size) { drawingBytes = size; }

 private:
  std::shared_ptr<const void> owner;
  const uint8_t* first = nullptr;
  size_t count = 0;
  int64_t drawingBytes = 0;
};

}  // namespace hexlume
