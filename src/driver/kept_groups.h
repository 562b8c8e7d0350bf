// Groups of the blocks that are drawn more than once: a fast path of ReadGroup.
//
// What ReadGroup returns is determined by the text from its position on. So a group that was read from the text once is kept
// with its position, and replaces another reading of the same place. A group that isn't kept is read from the text as ever:
// nothing depends on what is kept, or on how much of a block is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "driver/kept_lines.h"

namespace hexlume {

struct TextStream;

struct KeptGroup {
  double number;      // the value as a number
  const char* value;  // at least shortKeptValue bytes can be read
  int32_t place;      // position of the group
  int32_t end;        // position after it
  int32_t code;
  uint16_t length;  // of the value
  // Groups from this one on that are neither the next with code 0 nor the last one kept; fewer if there are too many to count.
  uint16_t inEntity;
  const KeptLine* line;  // that begins here, after its code 0; null if none does
};

// Values with their terminating 0 up to this size are copied with one fixed size.
constexpr int32_t shortKeptValue = 32;

// At no position, so it is never taken.
extern const KeptGroup noKeptGroup;

// The kept groups of one text. The largest size is that of all its blocks together; a block that doesn't fit is kept in part.
class KeptGroups {
 public:
  static constexpr size_t largestSize = 8 * 1024 * 1024;

  explicit KeptGroups(size_t largest = largestSize) : room(largest) {}

  // Called when a stream with this text is at the start of a block. From the second time on, keeps the block's groups and
  // returns the first of them, which is followed by the others and noKeptGroup.
  const KeptGroup* BeginBlock(TextStream& stream);

 private:
  struct Block {
    std::vector<KeptGroup> groups;
    std::vector<char> text;  // the values
    std::vector<KeptLine> lines;
  };

  void Read(Block& block, TextStream& stream);

  std::unordered_map<int32_t, Block> blocks;  // by the position of their start
  size_t room;                                // bytes that may still be used
};

}  // namespace hexlume
