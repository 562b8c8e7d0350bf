// Memory that runs out while entities are drawn. This program's own operator new takes the place of the
// system's, so that it can refuse.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>

#include "composite/block_dispatch.h"
#include "entities/entity_dispatch.h"
#include "platform/fault_guard.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"
#include "tables/block_directory.h"

static bool refuse = false;
static int untilRefusal = -1;  // requests that are still granted; -1: all

void* operator new(std::size_t size) {
  if (untilRefusal > 0) --untilRefusal;
  void* memory = refuse || untilRefusal == 0 ? nullptr : std::malloc(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace hexlume::out_of_memory_test {
namespace {

// A number with the exponent letter d is rewritten, and this one is too long for a string's own place.
const char longNumber[] = "10 0.0000000000000000000000001d26\n";

const std::string line = "0 LINE\n" + Ends(10, 90, 30, 80);
const std::string drawnLine = "SetMapMode(MM_HIMETRIC)\n" + Stroke(black, 1000, -1000, 3000, -2000);

class OutOfMemory : public ConverterTest {
 protected:
  // A canvas may take memory for its first line; those after it find it there.
  void DrawFirstLine(Canvas canvas) {
    TextStream first = StreamOf(line + "0 ENDSEC\n");
    DrawEntities({{first, canvas, headerVars, view}});
  }

  int32_t ThrownByDrawEntities(Canvas canvas) {
    int32_t thrown = 0;
    refuse = true;
    try {
      DrawEntities({RunOn(canvas)});
    } catch (int32_t code) {
      thrown = code;
    }
    refuse = false;
    return thrown;
  }
};

TEST_F(OutOfMemory, the_exception_leaves_the_section_as_11_with_what_was_drawn_before_it_in_the_metafile) {
  stream = StreamOf(line + "0 LINE\n" + longNumber + line + "0 ENDSEC\n");
  int32_t thrown = 0;
  const std::string listing = ListCalls([&](Canvas canvas) {
    DrawFirstLine(canvas);
    thrown = ThrownByDrawEntities(canvas);
  });
  EXPECT_EQ(11, thrown);
  EXPECT_EQ(drawnLine + drawnLine, listing);
}

TEST_F(OutOfMemory, drawing_a_line_needs_no_memory) {
  stream = StreamOf(line + "0 ENDSEC\n");
  int32_t thrown = -1;
  const std::string listing = ListCalls([&](Canvas canvas) {
    DrawFirstLine(canvas);
    thrown = ThrownByDrawEntities(canvas);
  });
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(drawnLine + drawnLine, listing);
}

TEST_F(OutOfMemory, the_exception_leaves_the_directory_of_blocks_as_11) {
  stream = StreamOf("0 BLOCK\n2 A\n0 ENDBLK\n0 ENDSEC\n");
  int32_t thrown = 0;
  refuse = true;
  try {
    ReadBlocks(stream);
  } catch (int32_t code) {
    thrown = code;
  }
  refuse = false;
  EXPECT_EQ(11, thrown);
}

// A block whose second line asks for memory.
TextStream StreamBehindBlock() {
  TextStream stream =
      StreamOf("0 BLOCK\n2 A\n20 0\n" + line + "0 LINE\n" + longNumber + line + "0 ENDBLK\n0 ENDSEC\n");
  ReadBlocks(stream);
  return stream;
}

TEST_F(OutOfMemory, the_exception_leaves_a_block_as_11_with_what_was_drawn_before_it_in_the_metafile) {
  stream = StreamBehindBlock();
  int32_t thrown = 0;
  const std::string listing = ListCalls([&](Canvas canvas) {
    DrawFirstLine(canvas);
    refuse = true;
    try {
      DrawBlockEntities({RunOn(canvas)}, state.blocks[0].bodyOffset);
    } catch (int32_t code) {
      thrown = code;
    }
    refuse = false;
  });
  EXPECT_EQ(11, thrown);
  EXPECT_EQ(drawnLine + Stroke(black, 1000, -1000, 3000, -2000), listing);
}

TEST_F(OutOfMemory, the_exception_leaves_a_dimensions_inserted_block_as_11_with_what_was_drawn_before_it) {
  stream = StreamBehindBlock();
  int32_t thrown = 0;
  const std::string listing = ListCalls([&](Canvas canvas) {
    DrawFirstLine(canvas);
    refuse = true;
    try {
      DrawDimInsertEntities({RunOn(canvas)}, state.blocks[0].bodyOffset);
    } catch (int32_t code) {
      thrown = code;
    }
    refuse = false;
  });
  EXPECT_EQ(11, thrown);
  EXPECT_EQ(drawnLine + Stroke(black, 1000, -1000, 3000, -2000), listing);
}

// A hatch's pen and brush, which have the numbers 1 and 2. A fill's own brush is never deleted.

bool IsIn(const std::string& listing, const std::string& call) {
  return listing.find(call) != std::string::npos;
}

TEST_F(OutOfMemory, a_hatch_deletes_its_pen_and_brush_whenever_the_exception_comes) {
  const std::string hatch =
      "0 HATCH\n2 SOLID\n10 10\n20 80\n10 30\n20 80\n10 30\n20 90\n97 0\n75 0\n0 ENDSEC\n";
  int32_t thrown = faultCode;
  for (int granted = 0; thrown != 0; ++granted) {
    ASSERT_LT(granted, 100);
    thrown = 0;
    const std::string listing = ListCalls([&](Canvas canvas) {
      stream = StreamOf(hatch);
      untilRefusal = granted + 1;
      try {
        DrawEntities({RunOn(canvas)});
      } catch (int32_t code) {
        thrown = code;
      }
      untilRefusal = -1;
    });
    EXPECT_TRUE(thrown == 0 || thrown == faultCode);
    EXPECT_EQ(IsIn(listing, "CreatePen(1,"), IsIn(listing, "DeleteObject(1)")) << listing;
    EXPECT_EQ(IsIn(listing, "CreateBrushIndirect(2,"), IsIn(listing, "DeleteObject(2)")) << listing;
  }
}

}  // namespace
}  // namespace hexlume::out_of_memory_test
