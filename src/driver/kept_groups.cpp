#include "driver/kept_groups.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "driver/conv_state.h"
#include "driver/group_reader.h"
#include "driver/text_stream.h"

namespace hexlume {

const KeptGroup noKeptGroup = {0.0, "", -1, -1, 0, 0, 0, nullptr};

namespace {

// Puts the reader back to where it was: its position and the group in the buffer.
class ReaderPlace {
 public:
  explicit ReaderPlace(TextStream& usedStream)
      : stream(usedStream), place(Tell(usedStream)), code(state.groupCode) {
    std::memcpy(value, state.groupValue, sizeof value);
  }
  ~ReaderPlace() {
    Seek(stream, place);
    state.groupCode = code;
    state.groupLine = nullptr;
    std::memcpy(state.groupValue, value, sizeof value);
  }
  ReaderPlace(const ReaderPlace&) = delete;
  ReaderPlace& operator=(const ReaderPlace&) = delete;

 private:
  TextStream& stream;
  int32_t place;
  int32_t code;
  char value[textSize];
};

void CountInEntities(std::vector<KeptGroup>& groups) {
  uint16_t count = 0;
  for (size_t i = groups.size(); i-- > 0;) {
    const bool isLast = i + 1 == groups.size();
    const bool isFull = count == std::numeric_limits<uint16_t>::max();
    count = isLast || groups[i].code == 0 ? 0 : static_cast<uint16_t>(count + !isFull);
    groups[i].inEntity = count;
  }
}

}  // namespace

const KeptGroup* KeptGroups::BeginBlock(TextStream& stream) {
  try {
    const auto [found, isNew] = blocks.try_emplace(Tell(stream));
    if (isNew) return &noKeptGroup;
    Block& block = found->second;
    if (block.groups.empty()) Read(block, stream);
    return block.groups.data();
  } catch (const std::bad_alloc&) {
    return &noKeptGroup;
  }
}

// Reads up to the block's end, or as many groups as there is room for.
void KeptGroups::Read(Block& block, TextStream& stream) {
  const ReaderPlace before(stream);
  std::vector<KeptGroup> groups;
  std::vector<char> text;
  int32_t place = Tell(stream);
  while (!AtGroup(0, "ENDBLK") || groups.empty()) {
    if (!ReadTextGroup(stream)) break;
    const size_t length = std::strlen(state.groupValue);
    const size_t size = sizeof(KeptGroup) + length + 1;
    if (size > room) break;
    room -= size;
    groups.push_back({NumberInText(), nullptr, place, Tell(stream), state.groupCode,
                      static_cast<uint16_t>(length), 0, nullptr});
    text.insert(text.end(), state.groupValue, state.groupValue + length + 1);
    place = Tell(stream);
  }
  CountInEntities(groups);
  groups.push_back(noKeptGroup);
  groups.shrink_to_fit();
  text.resize(text.size() + shortKeptValue);
  text.shrink_to_fit();
  const char* value = text.data();
  for (KeptGroup& group : groups) {
    group.value = value;
    value += group.length + 1;
  }
  block.lines = FindKeptLines(groups);
  room -= std::min(room, block.lines.size() * sizeof(KeptLine));
  block.groups = std::move(groups);
  block.text = std::move(text);
}

}  // namespace hexlume
