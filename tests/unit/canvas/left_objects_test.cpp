// Pens and fonts that stay selected on the canvas: the pen that an arc of a block leaves there when it starts
// outside the view, and the font of a text that proves too wide.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <vector>

#include "canvas/left_objects.h"
#include "driver/group_reader.h"
#include "driver/meta_file.h"
#include "entities/arc.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::left_objects_test {
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

class LeftObjectsTest : public ConverterTest {
 protected:
  ~LeftObjectsTest() override { DeleteLeftObjects(); }

  // An arc about (5000, -5000) from (6000, -5000).
  void Draw(Canvas canvas, int32_t color) {
    stream = StreamOf("62 " + std::to_string(color) + "\n10 50\n20 50\n40 10\n50 0\n51 90\n");
    DrawBlockArc({RunOn(canvas)});
  }
  // One that starts outside the view, and is dropped.
  void Drop(Canvas canvas, int32_t color) {
    const ViewRect whole = view;
    view = {0, 0, 100, 100};
    Draw(canvas, color);
    view = whole;
  }
  static HFONT LeaveFont(Canvas canvas) {
    LOGFONTA description = {};
    description.lfHeight = 100;
    const HFONT font = CreateFontIndirectA(&description);
    SelectObject(canvas, font);
    LeaveSelected(font);
    return font;
  }
};

TEST_F(LeftObjectsTest, an_arc_that_is_dropped_leaves_its_pen) {
  ListCalls([this](Canvas canvas) { Drop(canvas, 1); });
  EXPECT_EQ(1u, state.leftPens.size());
}

TEST_F(LeftObjectsTest, an_arc_that_is_drawn_leaves_none) {
  ListCalls([this](Canvas canvas) { Draw(canvas, 1); });
  EXPECT_TRUE(state.leftPens.empty());
}

TEST_F(LeftObjectsTest, the_strokes_that_follow_put_the_left_pen_back) {
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

TEST_F(LeftObjectsTest, an_arc_that_follows_puts_pen_and_hollow_brush_back) {
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

TEST_F(LeftObjectsTest, a_few_that_are_left_have_no_record_of_their_end) {
  EXPECT_EQ(
      "CreatePen(1, PS_SOLID, 0, 0x0000FF)\nSelectObject(1)\nSelectObject(NULL_BRUSH)\n"
      "CreatePen(2, PS_SOLID, 0, 0xFF0000)\nSelectObject(2)\nSelectObject(NULL_BRUSH)\n"
      "CreateFont(3, 100, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, \"\")\nSelectObject(3)\n"
      "CreateFont(4, 100, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, \"\")\nSelectObject(4)\n"
      "CreatePen(5, PS_SOLID, 0, 0x000000)\nSelectObject(5)\nMoveToEx(10, -20)\nLineTo(30, -40)\n"
      "SelectObject(2)\nDeleteObject(5)\n",
      ListCalls([this](Canvas canvas) {
        Drop(canvas, 1);
        Drop(canvas, 5);
        LeaveFont(canvas);
        LeaveFont(canvas);
        PenLine(canvas, 10, -20, 30, -40, 0, 0, 0, black, 0);
      }));
}

TEST_F(LeftObjectsTest, as_many_as_the_limit_are_all_kept) {
  const std::string calls = ListCalls([](Canvas canvas) {
    for (int32_t i = 0; i < 1000; ++i) LeaveFont(canvas);
  });
  EXPECT_EQ(std::string::npos, calls.find("DeleteObject"));
}

TEST_F(LeftObjectsTest, one_more_than_the_limit_deletes_the_oldest) {
  const std::string calls = ListCalls([](Canvas canvas) {
    for (int32_t i = 0; i < 1001; ++i) LeaveFont(canvas);
  });
  const std::string last = "SelectObject(1001)\nDeleteObject(1)\n";
  ASSERT_GT(calls.size(), last.size());
  EXPECT_EQ(last, calls.substr(calls.size() - last.size()));
  EXPECT_EQ(calls.size() - std::string("DeleteObject(1)\n").size(), calls.find("DeleteObject"));
}

// The pen is older than all fonts, but the strokes after them put it back.
TEST_F(LeftObjectsTest, fonts_beyond_the_limit_delete_no_pen) {
  const std::string calls = ListCalls([this](Canvas canvas) {
    Drop(canvas, 1);
    for (int32_t i = 0; i < 1001; ++i) LeaveFont(canvas);
    PenLine(canvas, 10, -20, 30, -40, 0, 0, 0, black, 0);
  });
  EXPECT_NE(std::string::npos, calls.find("DeleteObject(2)\nCreatePen(2, PS_SOLID, 0, 0x000000)\n"));
  const std::string last = "SelectObject(1)\nDeleteObject(2)\n";
  EXPECT_EQ(last, calls.substr(calls.size() - last.size()));
}

// A thousand, the one that is selected before the oldest goes, and the metafile itself.
TEST_F(LeftObjectsTest, twenty_thousand_dropped_arcs_hold_no_more_pens_than_the_limit_and_one) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  for (int32_t i = 0; i < 20000; ++i) Drop(canvas, 1);
  EXPECT_EQ(1002, HandleCount(CloseEnhMetaFile(canvas)));
}

TEST_F(LeftObjectsTest, twenty_thousand_left_fonts_hold_no_more_than_the_limit_and_one) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  for (int32_t i = 0; i < 20000; ++i) LeaveFont(canvas);
  EXPECT_EQ(1002, HandleCount(CloseEnhMetaFile(canvas)));
}

TEST_F(LeftObjectsTest, the_measure_sees_pens_that_nobody_deletes) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  std::vector<HPEN> pens;
  for (int32_t i = 0; i < 10; ++i) {
    pens.push_back(CreatePen(PS_SOLID, 0, red));
    SelectObject(canvas, pens.back());
  }
  EXPECT_EQ(11, HandleCount(CloseEnhMetaFile(canvas)));
  for (const HPEN pen : pens) DeleteObject(pen);
}

TEST_F(LeftObjectsTest, each_is_deleted_once) {
  const HPEN pen = CreatePen(PS_SOLID, 0, red);
  HFONT font = nullptr;
  ListCalls([&](Canvas canvas) {
    SelectObject(canvas, pen);
    LeaveSelected(pen);
    font = LeaveFont(canvas);
  });
  EXPECT_EQ(std::deque<HGDIOBJ>{pen}, state.leftPens);
  EXPECT_EQ(std::deque<HGDIOBJ>{font}, state.leftFonts);
  DeleteLeftObjects();
  EXPECT_TRUE(state.leftPens.empty());
  EXPECT_TRUE(state.leftFonts.empty());
  EXPECT_EQ(0, DeleteObject(pen));
  EXPECT_EQ(0, DeleteObject(font));
  DeleteLeftObjects();
}

TEST_F(LeftObjectsTest, the_end_of_the_metafile_deletes_them) {
  MetaFile metaFile;
  BeginMetaFile(metaFile, {0, 0, 20000, 10000});
  Drop(metaFile.canvas, 1);
  Drop(metaFile.canvas, 1);
  LeaveFont(metaFile.canvas);
  ASSERT_EQ(2u, state.leftPens.size());
  ASSERT_EQ(1u, state.leftFonts.size());
  const std::vector<HGDIOBJ> left = {state.leftPens[0], state.leftPens[1], state.leftFonts[0]};
  DeleteEnhMetaFile(EndMetaFile(metaFile));
  EXPECT_TRUE(state.leftPens.empty());
  EXPECT_TRUE(state.leftFonts.empty());
  for (const HGDIOBJ object : left) EXPECT_EQ(0, DeleteObject(object));
}

TEST_F(LeftObjectsTest, a_canvas_that_is_given_up_deletes_them_too) {
  HFONT font = nullptr;
  {
    MetaFile metaFile;
    BeginMetaFile(metaFile, {0, 0, 20000, 10000});
    font = LeaveFont(metaFile.canvas);
  }
  EXPECT_EQ(0, DeleteObject(font));
}

}  // namespace
}  // namespace hexlume::left_objects_test
