// Drawings that are none, through the library's exports: each gives its code and whatever could be drawn, and
// nothing crashes.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <sstream>
#include <string>

#include "support/leaving_fault.h"
#include "support/loaded_library.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"

namespace hexlume::bad_input_test {
namespace {

const std::string header =
    "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n";

class BadInput : public testing::Test {
 protected:
  // Through all four conversions; the code of the whole sheet's, which the others must share.
  int32_t CodeOf(const std::string& path) {
    HENHMETAFILE metafile = nullptr;
    const int32_t code = library.dxfMetaMake(path.c_str(), &metafile, 0, 0, 0);
    EXPECT_EQ(code == HEXLUME_OK, metafile != nullptr);
    listing = metafile ? ListAndDelete(metafile) : "";

    metafile = nullptr;
    EXPECT_EQ(code, library.reMetaMake(path.c_str(), &metafile, 0, {0, 0, 1000, 1000}, 0, 0));
    DeleteEnhMetaFile(metafile);
    metafile = nullptr;
    EXPECT_EQ(code, library.fullSizeMetaMake(path.c_str(), &metafile, 0, 0));
    DeleteEnhMetaFile(metafile);
    metafile = nullptr;
    EXPECT_EQ(code, library.rotMetaMake(&metafile));
    DeleteEnhMetaFile(metafile);
    return code;
  }

  size_t Strokes() const {
    size_t strokes = 0;
    for (size_t at = listing.find("LineTo"); at != std::string::npos; at = listing.find("LineTo", at + 1))
      ++strokes;
    return strokes;
  }

  const LoadedLibrary library;
  std::string listing;
};

TEST_F(BadInput, a_missing_file_gives_30) {
  EXPECT_EQ(30, CodeOf("no such file.dxf"));
}

TEST_F(BadInput, an_empty_path_gives_30) {
  EXPECT_EQ(30, CodeOf(""));
}

TEST_F(BadInput, a_folder_gives_30) {
  EXPECT_EQ(30, CodeOf(std::filesystem::temp_directory_path().string()));
}

TEST_F(BadInput, an_empty_file_gives_30) {
  const TemporaryFile file("");
  EXPECT_EQ(30, CodeOf(file.Path()));
}

TEST_F(BadInput, a_binary_dxf_gives_30) {
  const TemporaryFile file(std::string("Binary DXF\r\n\x1A\0\0SECTION\0\2HEADER\0", 31));
  EXPECT_EQ(30, CodeOf(file.Path()));
}

TEST_F(BadInput, a_file_that_ends_behind_a_code_is_drawn_up_to_there) {
  const TemporaryFile file(DrawingBytes(header + "0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 10\n21 10\n"
                                                 "0 LINE\n10 0\n20 10\n11 10\n") +
                           " 21\n");
  EXPECT_EQ(0, CodeOf(file.Path()));
  EXPECT_EQ(2u, Strokes());
}

TEST_F(BadInput, a_file_that_ends_within_a_value_is_drawn_with_what_it_has) {
  const TemporaryFile file(DrawingBytes(header + "0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 10\n") +
                           " 21\n1");
  EXPECT_EQ(0, CodeOf(file.Path()));
  EXPECT_NE(std::string::npos, listing.find("MoveToEx(0, -29700)\nLineTo(1000, -29600)\n"));
}

TEST_F(BadInput, a_file_that_ends_within_its_layers_gives_30) {
  const TemporaryDrawing drawing(header + "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n");
  EXPECT_EQ(30, CodeOf(drawing.Path()));
}

TEST_F(BadInput, every_beginning_of_a_drawing_ends_in_0_or_30) {
  const std::string whole =
      DrawingBytes(header +
                   "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 LAYER\n2 A\n62 1\n0 ENDTAB\n0 ENDSEC\n"
                   "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n10 0\n20 0\n11 10\n21 10\n0 ENDSEC\n0 EOF\n");
  for (size_t length = 0; length < whole.size(); ++length) {
    const TemporaryFile file(whole.substr(0, length));
    HENHMETAFILE metafile = nullptr;
    const int32_t code = library.metaMake(file.Path(), &metafile, 0, 0);
    EXPECT_TRUE(code == 0 || code == 30) << "after " << length << " bytes: " << code;
    DeleteEnhMetaFile(metafile);
  }
}

TEST_F(BadInput, ten_megabytes_of_random_bytes_give_30) {
  std::mt19937 random(1);
  std::string bytes(10 * 1024 * 1024, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  const TemporaryFile file(bytes);
  EXPECT_EQ(30, CodeOf(file.Path()));
}

TEST_F(BadInput, random_bytes_among_the_entities_draw_what_is_in_step) {
  std::mt19937 random(2);
  std::string text = DrawingBytes(header + "0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 10\n21 10\n");
  for (size_t i = 0; i < 10 * 1024 * 1024; ++i) {
    const char byte = static_cast<char>(random());
    text += byte == 0x1A ? '?' : byte;
  }
  const TemporaryFile file(text);
  EXPECT_EQ(0, CodeOf(file.Path()));
  EXPECT_GE(Strokes(), 1u);
}

TEST_F(BadInput, lines_of_100000_characters_put_the_groups_out_of_step_and_no_more) {
  const std::string longLine(100000, '7');
  const TemporaryFile file(
      DrawingBytes(header + "0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 10\n21 10\n") + " 8\n" + longLine +
      "\n" + longLine + "\n 62\n1\n");
  EXPECT_EQ(0, CodeOf(file.Path()));
  EXPECT_EQ(1u, Strokes());
}

TEST_F(BadInput, huge_coordinates_are_drawn_somewhere) {
  const TemporaryDrawing drawing(
      header +
      "0 SECTION\n2 ENTITIES\n0 LINE\n10 -1E+300\n20 1E+300\n11 1E+300\n21 -1E+300\n"
      "0 LINE\n10 1E+999\n20 -1E+999\n11 0\n21 0\n0 LINE\n10 1\n20 2\n11 3\n21 4\n0 ENDSEC\n");
  EXPECT_EQ(0, CodeOf(drawing.Path()));
  EXPECT_NE(std::string::npos, listing.find("MoveToEx(100, -29500)\nLineTo(300, -29300)\n"));
}

TEST_F(BadInput, nan_and_inf_as_text_are_0) {
  const TemporaryDrawing drawing(
      header + "0 SECTION\n2 ENTITIES\n0 LINE\n10 NaN\n20 INF\n11 10\n21 -Infinity\n0 ENDSEC\n");
  EXPECT_EQ(0, CodeOf(drawing.Path()));
  EXPECT_NE(std::string::npos, listing.find("MoveToEx(0, -29700)\nLineTo(1000, -29700)\n"));
}

TEST_F(BadInput, absurd_limits_end_without_a_crash) {
  for (const char* corner : {"1E+300", "-1E+300", "1E+999", "0", "2147483647", "1E-300"}) {
    const TemporaryDrawing drawing(
        "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 " + std::string(corner) + "\n20 " +
        corner + "\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 10\n21 10\n0 ENDSEC\n");
    HENHMETAFILE metafile = nullptr;
    EXPECT_EQ(0, library.metaMake(drawing.Path(), &metafile, 0, 0)) << corner;
    DeleteEnhMetaFile(metafile);
  }
}

TEST_F(BadInput, absurd_views_end_without_a_crash) {
  const TemporaryDrawing drawing(header +
                                 "0 SECTION\n2 ENTITIES\n0 LINE\n10 0\n20 0\n11 10\n21 10\n0 ENDSEC\n");
  constexpr LONG least = INT32_MIN;
  constexpr LONG most = INT32_MAX;
  for (const RECT& view : {RECT{0, 0, 0, 0}, RECT{least, least, most, most}, RECT{most, most, least, least},
                           RECT{1000, 1000, 0, 0}, RECT{-500, -500, -100, -100}}) {
    HENHMETAFILE metafile = nullptr;
    EXPECT_EQ(0, library.reMetaMake(drawing.Path(), &metafile, 0, view, 0, 0));
    DeleteEnhMetaFile(metafile);
  }
}

TEST_F(BadInput, null_arguments_give_30) {
  HENHMETAFILE metafile = nullptr;
  EXPECT_EQ(30, library.metaMake(nullptr, &metafile, 0, 0));
  EXPECT_EQ(30, library.metaMake("a.dxf", nullptr, 0, 0));
  EXPECT_EQ(30, library.dxfReMetaMake(nullptr, nullptr, 0, {0, 0, 1, 1}, 0, 0, 0));
  EXPECT_EQ(30, library.dxfRotMetaMake(nullptr, 0));
  EXPECT_EQ(nullptr, metafile);
}

std::string Block(const std::string& name, const std::string& entities) {
  return "0 BLOCK\n2 " + name + "\n10 0\n20 0\n3 " + name + "\n" + entities + "0 ENDBLK\n";
}

std::string DrawingOfBlocks(const std::string& blocks, const std::string& entities) {
  return header + "0 SECTION\n2 BLOCKS\n" + blocks + "0 ENDSEC\n0 SECTION\n2 ENTITIES\n" + entities +
         "0 ENDSEC\n0 EOF\n";
}

const std::string blueLine = "0 LINE\n62 5\n10 0\n20 0\n11 5\n21 0\n";

// An insert that is 1, 1 further up and right.
std::string Further(const std::string& name) {
  return "0 INSERT\n2 " + name + "\n10 1\n20 1\n";
}

const std::string blockInItself = DrawingOfBlocks(Block("A", blueLine + Further("A")), Further("A"));

class EndlessBlocks : public BadInput {
 protected:
  // The number of strokes drawn. Line number k = 1, 2, ... starts at 100 k, 100 k - 29700 and is 500 long, as
  // far as the sheet goes: 297 of them have their Y on it.
  size_t StrokesOfLadder(const std::string& drawing) {
    const TemporaryDrawing file(drawing);
    HENHMETAFILE metafile = nullptr;
    EXPECT_EQ(30, library.metaMake(file.Path(), &metafile, 0, 0));
    EXPECT_NE(nullptr, metafile);
    if (!metafile) return 0;
    listing = ListAndDelete(metafile);

    long k = 0;
    long startX = 0;
    long y = 0;
    std::istringstream lines(listing);
    for (std::string line; std::getline(lines, line);) {
      long x = 0;
      if (std::sscanf(line.c_str(), "MoveToEx(%ld, %ld)", &startX, &y) == 2) {
        ++k;
        EXPECT_EQ(100 * k, startX);
        EXPECT_EQ(100 * k - 29700, y);
      }
      if (std::sscanf(line.c_str(), "LineTo(%ld, %ld)", &x, &y) == 2) {
        EXPECT_EQ(100 * k + 500, x);
        EXPECT_EQ(100 * k - 29700, y);
      }
    }
    EXPECT_LE(k, 297);
    return Strokes();
  }

  void ExpectGoodDrawing() {
    const TemporaryDrawing file(DrawingOfBlocks(Block("A", blueLine), Further("A")));
    EXPECT_EQ(0, CodeOf(file.Path()));
    HENHMETAFILE metafile = nullptr;
    EXPECT_EQ(0, library.metaMake(file.Path(), &metafile, 0, 0));
    EXPECT_EQ(
        "Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\nCreatePen(1, PS_SOLID, 0, 0xFF0000)\n"
        "SelectObject(1)\nMoveToEx(100, -29600)\nLineTo(600, -29600)\nSelectObject(BLACK_PEN)\n"
        "DeleteObject(1)\n",
        ListAndDelete(metafile));
  }
};

TEST_F(EndlessBlocks, a_block_in_itself_is_drawn_up_to_the_end_of_the_stack) {
  EXPECT_GE(StrokesOfLadder(blockInItself), 20u);
  ExpectGoodDrawing();
}

TEST_F(EndlessBlocks, a_block_in_itself_can_be_drawn_again_and_again) {
  const size_t strokes = StrokesOfLadder(blockInItself);
  for (int round = 0; round < 20; ++round) EXPECT_EQ(strokes, StrokesOfLadder(blockInItself));
  ExpectGoodDrawing();
}

TEST_F(EndlessBlocks, two_blocks_in_each_other_are_drawn_up_to_the_end_of_the_stack) {
  EXPECT_GE(StrokesOfLadder(DrawingOfBlocks(
                Block("A", blueLine + Further("B")) + Block("B", blueLine + Further("A")), Further("B"))),
            20u);
  ExpectGoodDrawing();
}

TEST_F(EndlessBlocks, a_block_without_its_end_comes_to_its_own_insert) {
  EXPECT_GE(StrokesOfLadder(DrawingOfBlocks("0 BLOCK\n2 A\n10 0\n20 0\n3 A\n" + blueLine, Further("A"))),
            20u);
  ExpectGoodDrawing();
}

TEST_F(EndlessBlocks, a_block_in_itself_of_a_growing_scale_and_angle_ends_too) {
  const TemporaryDrawing file(DrawingOfBlocks(
      Block("A", blueLine + "0 INSERT\n2 A\n10 1\n20 1\n41 -1E+30\n42 1E+30\n50 33\n"), Further("A")));
  HENHMETAFILE metafile = nullptr;
  EXPECT_EQ(30, library.metaMake(file.Path(), &metafile, 0, 0));
  EXPECT_NE(nullptr, metafile);
  DeleteEnhMetaFile(metafile);
  ExpectGoodDrawing();
}

TEST_F(EndlessBlocks, a_block_in_itself_leaves_the_other_conversions_as_a_fault) {
  const TemporaryDrawing file(blockInItself);
  HENHMETAFILE metafile = nullptr;
  EXPECT_EQ(11, FaultLeaving([&] { library.fullSizeMetaMake(file.Path(), &metafile, 0, 0); }));
  EXPECT_EQ(11, FaultLeaving([&] {
              library.reMetaMake(file.Path(), &metafile, 0, {0, 0, 42000, 29700}, 0, 0);
            }));
  EXPECT_EQ(nullptr, metafile);

  EXPECT_EQ(30, library.metaMake(file.Path(), &metafile, 0, 0));
  DeleteEnhMetaFile(metafile);
  metafile = nullptr;
  EXPECT_EQ(11, FaultLeaving([&] { library.rotMetaMake(&metafile); }));
  EXPECT_EQ(nullptr, metafile);
  ExpectGoodDrawing();
}

TEST_F(EndlessBlocks, blocks_a_hundred_deep_come_to_their_end) {
  std::string blocks;
  for (int i = 1; i < 100; ++i) blocks += Block(std::to_string(i), Further(std::to_string(i + 1)));
  const TemporaryDrawing file(DrawingOfBlocks(blocks + Block("100", blueLine), Further("1")));
  EXPECT_EQ(0, CodeOf(file.Path()));
  EXPECT_EQ(1u, Strokes());
  EXPECT_NE(std::string::npos, listing.find("MoveToEx(10000, -19700)\nLineTo(10500, -19700)\n"));
}

TEST_F(EndlessBlocks, blocks_doubling_over_ten_levels_are_drawn_1024_times) {
  std::string blocks;
  for (int i = 0; i < 10; ++i) {
    const std::string next = std::to_string(i + 1);
    blocks += Block(std::to_string(i), "0 INSERT\n2 " + next + "\n10 0\n20 0\n" + Further(next));
  }
  const TemporaryDrawing file(DrawingOfBlocks(blocks + Block("10", blueLine), "0 INSERT\n2 0\n10 0\n20 0\n"));
  EXPECT_EQ(0, CodeOf(file.Path()));
  EXPECT_EQ(1024u, Strokes());
}

// 102 million groups are walked, and none of them is in a block within a block.
TEST_F(EndlessBlocks, blocks_without_inserts_come_to_their_end_however_often_they_are_inserted) {
  std::string hatch = "0 HATCH\n";
  for (int i = 0; i < 20'000; ++i) hatch += "10 5\n";
  std::string inserts;
  for (int i = 0; i < 5100; ++i) inserts += "0 INSERT\n2 A\n10 0\n20 0\n";
  const TemporaryDrawing file(DrawingOfBlocks(Block("A", blueLine + hatch), inserts + blueLine));
  HENHMETAFILE metafile = nullptr;
  EXPECT_EQ(0, library.metaMake(file.Path(), &metafile, 0, 0));
  ASSERT_NE(nullptr, metafile);
  listing = ListAndDelete(metafile);
  EXPECT_EQ(5101u, Strokes());
}

}  // namespace
}  // namespace hexlume::bad_input_test
