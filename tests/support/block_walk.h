// The block whose body a walk draws, for tests of the walks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/block_stream.h"

namespace hexlume {

class BlockWalkTest : public BlockStreamTest {
 protected:
  // With the block's origin at (1000, 2000): from (1000, -1000) to (3000, -2000).
  static inline const std::string slanted = LineOf(Ends(0, 70, 20, 60));
  static inline const std::string slantedOnLayer0 = LineOf("8 0\n" + Ends(0, 70, 20, 60));
  static std::string SlantedStroke(COLORREF color = black, int32_t width = 0) {
    return Stroke(color, 1000, -1000, 3000, -2000, width);
  }

  BlockWalkTest() {
    AddLayer("0", {}, 3);
    AddLayer("WALLS", {}, 1);
    AddLayer("DOORS", {0, 0, 3}, 5);
    SetInsertLayer("WALLS");
  }

  // The listing of a block of these entities.
  std::string Draw(const std::string& entities, const std::string& header = baseAtZero) {
    blocks.clear();
    AddBlock("A", entities, header);
    return DrawFirst();
  }

  // The listing of a block whose text after the name is this, and of what is after it in the file.
  std::string DrawText(const std::string& body) {
    blocks = "0 BLOCK\n2 A\n" + body;
    return DrawFirst();
  }

  // That of block A.
  std::string DrawFirst() {
    OpenAt("0 CIRCLE\n");
    return ListCalls([this](Canvas canvas) { Walk(BodyOf("A"), canvas); });
  }

  // That of block A up to a throw, if there is one, which is then in `thrown`.
  std::string DrawToThrow() {
    OpenAt("0 CIRCLE\n");
    return ListCalls([this](Canvas canvas) { WalkToThrow(canvas); });
  }

  void WalkToThrow(Canvas canvas) {
    try {
      Walk(BodyOf("A"), canvas);
    } catch (int32_t code) {
      thrown = code;
    }
  }

  static size_t CountLines(const std::string& listing) {
    size_t count = 0;
    for (size_t at = listing.find("LineTo"); at != std::string::npos; at = listing.find("LineTo", at + 1))
      ++count;
    return count;
  }

  // The walk under test.
  virtual void Walk(int32_t bodyOffset, Canvas canvas) = 0;

  int32_t thrown = 0;
};

}  // namespace hexlume
