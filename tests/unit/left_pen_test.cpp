// The pen that an arc of a block leaves on the canvas when it starts outside the view.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "canvas/left_pen.h"
#include "driver/group_reader.h"
#include "driver/meta_file.h"
#include "entities/arc.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume {
namespace {

// How many objects a metafile's player must hold at a time, one more for the metafile itself: a field of its
// header. Deletes the metafile.
uint16_t HandleCount(HENHMETAFILE metafile) {
  constexpr size_t handlesField = 56;
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  DeleteEnhMetaFile(metafile);
  uint16_t count = 0;
  std::memcpy(&count, &bytes.at(handlesField), sizeof count);
  return count;
}

class LeftPenTest : public ConverterTest {
 protected:
  ~LeftPenTest() override { DeleteLeftPen(); }

  // An arc about (5000, -5000) from (6000, -5000).
  void Draw(Canvas canvas, int32_t colour) {
    TextStream stream = StreamOf("62 " + std::to_string(colour) + "\n10 50\n20 50\n40 10\n50 0\n51 90\n");
    DrawBlockArc(stream, canvas, 0.0, 0.0, 0, 0, view);
  }
  // One that starts outside the view, and is dropped.
  void Drop(Canvas canvas, int32_t colour) {
    const ViewRect whole = view;
    view = {0, 0, 100, 100};
    Draw(canvas, colour);
    view = whole;
  }
};

TEST_F(LeftPenTest, an_arc_that_is_dropped_leaves_its_pen) {
  ListCalls([this](Canvas canvas) { Drop(canvas, 1); });
  EXPECT_NE(nullptr, state.leftPen);
}

TEST_F(LeftPenTest, an_arc_that_is_drawn_leaves_none) {
  ListCalls([this](Canvas canvas) { Draw(canvas, 1); });
  EXPECT_EQ(nullptr, state.leftPen);
}

TEST_F(LeftPenTest, the_strokes_that_follow_put_the_left_pen_back) {
  EXPECT_EQ(
      "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n"
      "CreatePen(2, PS_SOLID, 0, 0x000000)\nSelectObject(2)\nMoveToEx(10, -20)\nLineTo(30, -40)\n"
      "SelectObject(1)\nDeleteObject(2)\n"
      "CreatePen(2, PS_SOLID, 0, 0xFF0000)\nSelectObject(2)\nMoveToEx(50, -60)\nLineTo(70, -80)\n"
      "SelectObject(1)\nDeleteObject(2)\n",
      ListCalls([this](Canvas canvas) {
        Drop(canvas, 1);
        PenLine(canvas, 10, -20, 30, -40, 0, 0, 0, black, 0);
        PenLine(canvas, 50, -60, 70, -80, 0, 0, 0, blue, 0);
      }));
}

TEST_F(LeftPenTest, an_arc_that_follows_puts_pen_and_hollow_brush_back) {
  EXPECT_EQ(
      "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n"
      "CreatePen(2, PS_SOLID, 0, 0xFF0000)\nSelectObject(2)\nSelectObject(NULL_BRUSH)\n"
      "CreatePen(3, PS_SOLID, 0, 0xFF0000)\nSelectObject(3)\n"
      "MoveToEx(6000, -5000)\nAngleArc(5000, -5000, 1000, -0, -90)\n"
      "SelectObject(2)\nDeleteObject(3)\n"
      "SelectObject(NULL_BRUSH)\nSelectObject(1)\nDeleteObject(2)\n",
      ListCalls([this](Canvas canvas) {
        Drop(canvas, 1);
        Draw(canvas, 5);
      }));
}

TEST_F(LeftPenTest, the_next_pen_to_be_left_deletes_the_one_before) {
  EXPECT_EQ(
      "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n"
      "CreatePen(2, PS_SOLID, 0, 0xFF0000)\nSelectObject(2)\nSelectObject(NULL_BRUSH)\nDeleteObject(1)\n"
      "CreatePen(1, PS_SOLID, 0, 0x000000)\nSelectObject(1)\nMoveToEx(10, -20)\nLineTo(30, -40)\n"
      "SelectObject(2)\nDeleteObject(1)\n",
      ListCalls([this](Canvas canvas) {
        Drop(canvas, 1);
        Drop(canvas, 5);
        PenLine(canvas, 10, -20, 30, -40, 0, 0, 0, black, 0);
      }));
}

TEST_F(LeftPenTest, twenty_thousand_dropped_arcs_hold_no_more_than_two_pens_at_a_time) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  for (int32_t i = 0; i < 20000; ++i) Drop(canvas, 1);
  EXPECT_EQ(3, HandleCount(CloseEnhMetaFile(canvas)));
}

TEST_F(LeftPenTest, the_measure_sees_pens_that_nobody_deletes) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  std::vector<HPEN> pens;
  for (int32_t i = 0; i < 10; ++i) {
    pens.push_back(CreatePen(PS_SOLID, 0, red));
    SelectObject(canvas, pens.back());
  }
  EXPECT_EQ(11, HandleCount(CloseEnhMetaFile(canvas)));
  for (const HPEN pen : pens) DeleteObject(pen);
}

TEST_F(LeftPenTest, it_is_deleted_once) {
  const HPEN pen = CreatePen(PS_SOLID, 0, red);
  ListCalls([pen](Canvas canvas) {
    SelectObject(canvas, pen);
    LeavePen(pen);
  });
  EXPECT_EQ(pen, state.leftPen);
  DeleteLeftPen();
  EXPECT_EQ(nullptr, state.leftPen);
  EXPECT_EQ(0, DeleteObject(pen));
  DeleteLeftPen();
}

TEST_F(LeftPenTest, the_end_of_the_metafile_deletes_it) {
  MetaFile metaFile;
  BeginMetaFile(metaFile, {0, 0, 20000, 10000});
  Drop(metaFile.canvas, 1);
  const HGDIOBJ pen = state.leftPen;
  DeleteEnhMetaFile(EndMetaFile(metaFile));
  EXPECT_EQ(nullptr, state.leftPen);
  EXPECT_EQ(0, DeleteObject(pen));
}

}  // namespace
}  // namespace hexlume
