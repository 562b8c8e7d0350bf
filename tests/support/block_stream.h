// Blocks before what is under test, on one stream, for tests of what plays blocks back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "driver/group_reader.h"
#include "driver/text_stream.h"
#include "entities/entity_dispatch.h"
#include "platform/stack_room.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"
#include "tables/block_directory.h"

namespace hexlume {

const std::string baseAtZero = "10 0\n20 0\n30 0\n";

inline std::string LineOf(const std::string& groups) {
  return "0 LINE\n" + groups;
}

// Runs where the stack has no room for another block.
__attribute__((noinline)) inline char RunWithoutStackRoom(const std::function<void()>& run) {
  volatile char level[1024];
  level[0] = 1;
  if (HasStackRoom()) return static_cast<char>(RunWithoutStackRoom(run) + level[0]);
  run();
  return level[0];
}

class BlockStreamTest : public ConverterTest {
 protected:
  // The header's groups are after the block's name, where the base point is looked for.
  void AddBlock(const std::string& name, const std::string& entities,
                const std::string& header = baseAtZero) {
    blocks += "0 BLOCK\n8 0\n2 " + name + "\n70 0\n" + header + "3 " + name + "\n1 \n" + entities +
              "0 ENDBLK\n8 0\n";
  }

  // Notes the blocks of a file that ends with this text, and reads the text's first group.
  void OpenAt(const std::string& text) {
    stream = StreamOf(blocks + "0 ENDSEC\n" + text);
    ReadBlocks(stream);
    ReadGroup(stream);
  }

  // The listing of an ENTITIES section, drawn by `draw`.
  std::string ListSection(const std::string& entities, const std::function<void(Canvas)>& draw) {
    OpenAt("2 ENTITIES\n" + entities + "0 ENDSEC\n0 EOF\n");
    const std::string calls = ListCalls(draw);
    const std::string setUp = "SetMapMode(MM_HIMETRIC)\n";
    EXPECT_EQ(0u, calls.find(setUp));
    return calls.substr(setUp.size());
  }

  std::string DrawSection(const std::string& entities) {
    return ListSection(entities, [this](Canvas canvas) { DrawEntities({RunOn(canvas)}); });
  }

  // The place of a block's body, and of none.
  int32_t BodyOf(const char* name) const {
    const BlockEntry* block = state.blocks.FindFirst(name);
    return block ? block->bodyOffset : noBody;
  }

  // Runs a file with this text at its end once for each byte that it may be cut off after, from the text's
  // start on. Before each run the text's first group is read.
  void CutAfterEachByte(const std::string& text, const std::function<void(Canvas)>& run) {
    OpenAt(text);
    const TextStream whole = {nullptr, stream.bytes, true, 0};
    const int32_t start = stream.position;
    for (size_t end = static_cast<size_t>(start); end <= whole.bytes.size(); ++end) {
      OpenAt(text);
      stream.bytes.resize(end);
      ListCalls(run);
    }
  }

  std::string blocks;
};

}  // namespace hexlume
