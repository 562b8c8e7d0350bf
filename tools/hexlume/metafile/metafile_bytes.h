// The bytes of a metafile, as in a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace hexlume {

// A metafile in the memory of the system, which gives a copy of its bytes.
class SystemMetafile {
 public:
  virtual ~SystemMetafile() = default;

  virtual std::vector<uint8_t> Bytes() const = 0;

  // A few of the first records.
  virtual std::vector<uint8_t> Beginning() const = 0;

  // Writes the metafile into a file of this name. False if it wasn't written, or perhaps not whole.
  virtual bool CopyTo(const wchar_t* path) const = 0;
};

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

  // The bytes are copied when they are first asked for.
  MetafileBytes(std::shared_ptr<const SystemMetafile> metafile, size_t byteCount)
      : system(std::move(metafile)), count(byteCount) {}

  // Null if the bytes themselves were given.
  const SystemMetafile* System() const { return system.get(); }

  const uint8_t* data() const {
    if (!first && system) Copy();
    return first;
  }
  size_t size() const { return count; }
  bool empty() const { return count == 0; }
  const uint8_t* begin() const { return data(); }
  const uint8_t* end() const { return data() + count; }

  // The size of its drawing, 0 if it isn't known. Pictures of larger drawings may take more work.
  int64_t DrawingBytes() const { return drawingBytes; }
  void SetDrawingBytes(int64_t size) { drawingBytes = size; }

 private:
  void Copy() const {
    const auto copy = std::make_shared<const std::vector<uint8_t>>(system->Bytes());
    if (copy->size() != count) throw std::bad_alloc();
    first = copy->data();
    owner = copy;
  }

  std::shared_ptr<const SystemMetafile> system;
  mutable std::shared_ptr<const void> owner;
  mutable const uint8_t* first = nullptr;
  size_t count = 0;
  int64_t drawingBytes = 0;
};

}  // namespace hexlume
