// The orders of records were measured from Windows' GDI under Wine.
#include "support/recorded_words.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

#include "platform/run_objects.h"

namespace hexlume::portable_objects_test {
namespace {

constexpr uint32_t blackPen = 0x80000007;

Words CreatePenWords(uint32_t index, uint32_t style, uint32_t width, uint32_t color) {
  return Record(38, {index, style, width, 0, color});
}

Words SelectWords(uint32_t index) {
  return Record(37, {index});
}
Words DeleteWords(uint32_t index) {
  return Record(40, {index});
}

TEST(PortableObjects, a_pen_is_recorded_when_it_is_selected) {
  const Words words = RecordedWords([](HDC dc) {
    const HPEN unused = CreatePen(PS_SOLID, 1, 0x111111);
    const HPEN pen = CreatePen(PS_DASH, 2, 0x0000FF);
    const HGDIOBJ before = SelectObject(dc, pen);
    EXPECT_EQ(before, GetStockObject(BLACK_PEN));
    EXPECT_EQ(SelectObject(dc, before), pen);
    DeleteObject(pen);
    DeleteObject(unused);
  });
  EXPECT_EQ(BodyOf(words), CreatePenWords(1, PS_DASH, 2, 0x0000FF) + SelectWords(1) + SelectWords(blackPen) +
                               DeleteWords(1));
}

TEST(PortableObjects, a_null_pen_is_the_stock_object) {
  EXPECT_EQ(CreatePen(PS_NULL, 5, 0x123456), GetStockObject(NULL_PEN));
}

TEST(PortableObjects, objects_that_a_run_has_left_are_deleted) {
  const HPEN pen = CreatePen(PS_SOLID, 1, 0x111111);
  const HFONT font = CreateFontIndirectA(std::make_unique<LOGFONTA>().get());
  DeleteRunObjects();
  EXPECT_EQ(DeleteObject(pen), 0);
  EXPECT_EQ(DeleteObject(font), 0);
  EXPECT_NE(GetStockObject(BLACK_PEN), nullptr);
}

TEST(PortableObjects, a_selected_object_is_deleted_when_another_takes_its_place) {
  const Words words = RecordedWords([](HDC dc) {
    const HPEN pen = CreatePen(PS_SOLID, 0, 1);
    SelectObject(dc, pen);
    EXPECT_EQ(DeleteObject(pen), 1);
    EXPECT_EQ(DeleteObject(pen), 1);
    EXPECT_EQ(SelectObject(dc, GetStockObject(BLACK_PEN)), pen);
    EXPECT_EQ(DeleteObject(pen), 0);
    EXPECT_EQ(SelectObject(dc, pen), nullptr);
  });
  EXPECT_EQ(BodyOf(words),
            CreatePenWords(1, PS_SOLID, 0, 1) + SelectWords(1) + DeleteWords(1) + SelectWords(blackPen));
}

// Its second record is never deleted, so the index isn't given away again.
TEST(PortableObjects, a_deleted_object_that_is_selected_again_keeps_its_index) {
  const Words words = RecordedWords([](HDC dc) {
    const HPEN pen = CreatePen(PS_SOLID, 0, 1);
    SelectObject(dc, pen);
    DeleteObject(pen);
    SelectObject(dc, pen);
    SelectObject(dc, GetStockObject(BLACK_PEN));
    const HPEN another = CreatePen(PS_SOLID, 0, 2);
    SelectObject(dc, another);
    SelectObject(dc, GetStockObject(BLACK_PEN));
    DeleteObject(another);
  });
  const Words first = CreatePenWords(1, PS_SOLID, 0, 1) + SelectWords(1);
  const Words second =
      CreatePenWords(2, PS_SOLID, 0, 2) + SelectWords(2) + SelectWords(blackPen) + DeleteWords(2);
  EXPECT_EQ(BodyOf(words), first + DeleteWords(1) + first + SelectWords(blackPen) + second);
}

TEST(PortableObjects, an_object_outlives_the_context_it_was_selected_in) {
  HPEN pen = nullptr;
  RecordedWords([&pen](HDC dc) { SelectObject(dc, pen = CreatePen(PS_SOLID, 0, 1)); });
  const Words words = RecordedWords([pen](HDC dc) { SelectObject(dc, pen); });
  EXPECT_EQ(BodyOf(words), CreatePenWords(1, PS_SOLID, 0, 1) + SelectWords(1));
  EXPECT_EQ(DeleteObject(pen), 1);
}

TEST(PortableObjects, what_was_deleted_while_selected_goes_with_its_context) {
  HPEN pen = nullptr;
  RecordedWords([&pen](HDC dc) {
    SelectObject(dc, pen = CreatePen(PS_SOLID, 0, 1));
    DeleteObject(pen);
  });
  EXPECT_EQ(DeleteObject(pen), 0);
}

TEST(PortableObjects, deleting_is_recorded_wherever_the_object_is_known) {
  const HDC older = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  const HPEN own = CreatePen(PS_SOLID, 0, 1);
  SelectObject(older, own);
  const HPEN pen = CreatePen(PS_SOLID, 0, 2);
  const Words newer = RecordedWords([older, pen](HDC dc) {
    for (const HDC context : {older, dc}) {
      SelectObject(context, pen);
      SelectObject(context, GetStockObject(BLACK_PEN));
    }
    DeleteObject(pen);
  });
  DeleteObject(own);
  EXPECT_EQ(BodyOf(newer),
            CreatePenWords(1, PS_SOLID, 0, 2) + SelectWords(1) + SelectWords(blackPen) + DeleteWords(1));
  EXPECT_EQ(BodyOf(TakeWords(CloseEnhMetaFile(older))),
            CreatePenWords(1, PS_SOLID, 0, 1) + SelectWords(1) + CreatePenWords(2, PS_SOLID, 0, 2) +
                SelectWords(2) + SelectWords(blackPen) + DeleteWords(2) + DeleteWords(1));
}

TEST(PortableObjects, stock_objects_are_selected_but_neither_created_nor_deleted) {
  const Words words = RecordedWords([](HDC dc) {
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    EXPECT_EQ(DeleteObject(GetStockObject(NULL_BRUSH)), 1);
    SelectObject(dc, GetStockObject(WHITE_BRUSH));
  });
  EXPECT_EQ(BodyOf(words), SelectWords(0x80000005) + SelectWords(0x80000000));
}

TEST(PortableObjects, there_is_no_stock_object_beyond_the_list) {
  for (const int number : {-1, 9, 14, 1000000, INT32_MIN, INT32_MAX})
    EXPECT_EQ(GetStockObject(number), nullptr);
}

TEST(PortableObjects, no_object_is_neither_selected_nor_deleted) {
  const Words words = RecordedWords([](HDC dc) { EXPECT_EQ(SelectObject(dc, nullptr), nullptr); });
  EXPECT_TRUE(BodyOf(words).empty());
  EXPECT_EQ(DeleteObject(nullptr), 0);
}

TEST(PortableObjects, an_object_tells_its_type_while_it_lives) {
  EXPECT_EQ(GetObjectType(GetStockObject(BLACK_PEN)), OBJ_PEN);
  EXPECT_EQ(GetObjectType(GetStockObject(NULL_BRUSH)), OBJ_BRUSH);
  EXPECT_EQ(GetObjectType(GetStockObject(SYSTEM_FONT)), OBJ_FONT);
  const HRGN region = CreateRectRgn(0, 0, 1, 1);
  EXPECT_EQ(GetObjectType(region), OBJ_REGION);
  DeleteObject(region);
  EXPECT_EQ(GetObjectType(region), 0u);
  EXPECT_EQ(GetObjectType(nullptr), 0u);
}

TEST(PortableObjects, more_objects_than_a_block_of_memory_holds_are_all_different) {
  HPEN pens[200];
  const Words words = RecordedWords([&pens](HDC dc) {
    for (HPEN& pen : pens) SelectObject(dc, pen = CreatePen(PS_SOLID, 0, 1));
  });
  EXPECT_EQ(words[14] & 0xFFFF, 201u);
  for (const HPEN pen : pens) EXPECT_EQ(DeleteObject(pen), 1);
}

}  // namespace
}  // namespace hexlume::portable_objects_test
