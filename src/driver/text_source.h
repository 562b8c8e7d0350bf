// Where the bytes of a drawing come from.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace hexlume {

class TextSource {
 public:
  virtual ~TextSource() = default;

  // Stores the next bytes and returns their number, which is less than size only at the end.
  virtual size_t Read(char* buffer, size_t size) = 0;

  // All bytes, if they are in memory as long as the source exists. Then Read isn't needed.
  virtual std::optional<std::string_view> Whole() const { return std::nullopt; }

  // The number of bytes that Read will store in all; 0 if that isn't known. It may be wrong.
  virtual size_t ExpectedSize() const { return 0; }

  // Whether Read can go to a place before or after the bytes that it has stored last.
  virtual bool CanReadAgain() const { return false; }
  virtual void GoTo(size_t) {}

  // Whether a read has failed.
  virtual bool HasFailed() const = 0;

  // Of bytes in memory: whether some of them were lost while they were read. They were read as 0.
  virtual bool IsShortened() const { return false; }

  // Of bytes in memory: says that those before this place were read. They remain valid.
  virtual void Passed(size_t) {}
};

// How much to read next after so many bytes: a chunk, or what is expected and a byte more, which shows the end.
// Memory for a whole chunk would have to be cleared for each small drawing.
inline size_t NextRead(const TextSource& source, size_t taken, size_t chunk) {
  const size_t expected = source.ExpectedSize();
  return taken < expected ? std::min(chunk, expected - taken + 1) : chunk;
}

// Opens what a conversion's path names; null if it can't be opened.
using SourceOpener = std::unique_ptr<TextSource> (*)(const char* path);

// The path of a file, unless the host library has set its own opener.
extern SourceOpener openSource;

}  // namespace hexlume
