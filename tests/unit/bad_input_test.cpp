// Drawings that are none, through the library's exports: each gives its code and whatever could be drawn, and
// nothing crashes.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

#include "support/loaded_library.h"
#include "support/metafile_canvas.h"
#include "support/text_drawing.h"

namespace hexlume {
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

}  // namespace
}  // namespace hexlume
