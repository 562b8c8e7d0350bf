// Texts of the player: 10 units a pixel, in cells of 20 pixels. Of a cell at most a third is below the
// baseline.
#include <gtest/gtest.h>

#include "support/picture_canvas.h"

namespace hexlume::metafile_player_text_test {
namespace {

constexpr uint32_t right = 2, centre = 6, top = 0, bottom = 8, baseline = 24;
constexpr uint32_t blackBrush = 0x80000004;

Words AlignRecord(uint32_t align) {
  return Record(22, {align});
}

const Words transparent = Record(18, {1});

// Three broad letters 10 pixels apart.
Words Letters(int32_t x, int32_t y) {
  return TextRecord(x, y, u"HHH", {100, 100, 100});
}

TEST(MetafilePlayerText, it_stands_on_its_baseline) {
  const PictureCanvas canvas(transparent + FontRecords(1, {}) + AlignRecord(baseline) + Letters(300, -500));
  EXPECT_TRUE(canvas.IsMarked(30, 34, 60, 51));
  EXPECT_FALSE(canvas.IsMarked(0, 52, 100, 100));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 100, 30));
  EXPECT_FALSE(canvas.IsMarked(0, 0, 29, 100));
  EXPECT_FALSE(canvas.IsMarked(61, 0, 100, 100));
}

TEST(MetafilePlayerText, it_hangs_from_its_top_and_stands_on_its_bottom) {
  const PictureCanvas hanging(transparent + FontRecords(1, {}) + AlignRecord(top) + Letters(300, -500));
  EXPECT_TRUE(hanging.IsMarked(30, 50, 60, 70));
  EXPECT_FALSE(hanging.IsMarked(0, 0, 100, 50));
  EXPECT_FALSE(hanging.IsMarked(0, 70, 100, 100));
  const PictureCanvas standing(transparent + FontRecords(1, {}) + AlignRecord(bottom) + Letters(300, -500));
  EXPECT_TRUE(standing.IsMarked(30, 30, 60, 50));
  EXPECT_FALSE(standing.IsMarked(0, 50, 100, 100));
  EXPECT_FALSE(standing.IsMarked(0, 0, 100, 30));
}

TEST(MetafilePlayerText, it_ends_at_its_point_or_is_centred_on_it) {
  const PictureCanvas ending(transparent + FontRecords(1, {}) + AlignRecord(baseline | right) +
                             Letters(500, -500));
  EXPECT_TRUE(ending.IsMarked(20, 30, 30, 51));
  EXPECT_FALSE(ending.IsMarked(51, 0, 100, 100));
  const PictureCanvas centred(transparent + FontRecords(1, {}) + AlignRecord(baseline | centre) +
                              Letters(500, -500));
  EXPECT_TRUE(centred.IsMarked(35, 30, 45, 51));
  EXPECT_TRUE(centred.IsMarked(55, 30, 65, 51));
  EXPECT_FALSE(centred.IsMarked(0, 0, 34, 100));
  EXPECT_FALSE(centred.IsMarked(66, 0, 100, 100));
}

TEST(MetafilePlayerText, characters_stand_where_the_advances_put_them) {
  const PictureCanvas canvas(transparent + FontRecords(1, {}) + AlignRecord(baseline) +
                             TextRecord(100, -500, u"HH", {500, 100}));
  EXPECT_TRUE(canvas.IsMarked(10, 30, 21, 51));
  EXPECT_FALSE(canvas.IsMarked(21, 0, 60, 100));
  EXPECT_TRUE(canvas.IsMarked(60, 30, 71, 51));
}

TEST(MetafilePlayerText, both_halves_of_a_surrogate_pair_move_the_text) {
  const PictureCanvas canvas(transparent + FontRecords(1, {}) + AlignRecord(baseline) +
                             TextRecord(100, -500, u"\U00020BB7H", {200, 300, 100}));
  EXPECT_TRUE(canvas.IsMarked(60, 30, 71, 51));
}

TEST(MetafilePlayerText, without_advances_the_face_has_its_own) {
  const PictureCanvas canvas(transparent + FontRecords(1, {}) + AlignRecord(baseline) +
                             TextRecord(100, -500, u"HHHHHH"));
  EXPECT_TRUE(canvas.IsMarked(45, 30, 65, 51));
}

TEST(MetafilePlayerText, japanese_characters_are_drawn_and_differ) {
  const Words font = transparent + FontRecords(1, {400, 0, 0, 400, 0, 0, 0}) + AlignRecord(baseline);
  const PictureCanvas one(font + TextRecord(300, -700, u"図", {400}));
  const PictureCanvas two(font + TextRecord(300, -700, u"面", {400}));
  EXPECT_TRUE(one.IsMarked(30, 35, 70, 80));
  EXPECT_FALSE(one == two);
}

TEST(MetafilePlayerText, the_width_stretches_the_characters) {
  const auto marked = [](int32_t width) {
    return PictureCanvas(transparent + FontRecords(1, {200, width, 0, 400, 0, 0, 0}) + AlignRecord(baseline) +
                         TextRecord(100, -500, u"H", {800}))
        .IsMarked(30, 0, 60, 100);
  };
  EXPECT_FALSE(marked(0));
  EXPECT_TRUE(marked(400));
  EXPECT_TRUE(marked(-400));
}

// Measured from the system's own player: the escapement counts clockwise on a canvas whose Y grows upward.
TEST(MetafilePlayerText, the_escapement_turns_it_clockwise) {
  const PictureCanvas down(transparent + FontRecords(1, {200, 0, 900, 400, 0, 0, 0}) + AlignRecord(baseline) +
                           Letters(500, -500));
  EXPECT_TRUE(down.IsMarked(49, 50, 70, 80));
  EXPECT_FALSE(down.IsMarked(0, 0, 100, 49));
  EXPECT_FALSE(down.IsMarked(0, 0, 48, 100));
  const PictureCanvas up(transparent + FontRecords(1, {200, 0, 2700, 400, 0, 0, 0}) + AlignRecord(baseline) +
                         Letters(500, -500));
  EXPECT_TRUE(up.IsMarked(30, 20, 51, 50));
  EXPECT_FALSE(up.IsMarked(0, 51, 100, 100));
}

TEST(MetafilePlayerText, it_has_its_colour) {
  const PictureCanvas canvas(transparent + Record(24, {0x0000FF}) +
                             FontRecords(1, {600, 0, 0, 700, 0, 0, 0}) + AlignRecord(baseline) +
                             TextRecord(200, -700, u"H", {300}));
  bool found = false;
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) {
      EXPECT_EQ(0xFFu, canvas.At(x, y) >> 16);
      found = found || canvas.At(x, y) == 0xFF0000;
    }
  }
  EXPECT_TRUE(found);
}

TEST(MetafilePlayerText, it_is_opaque_unless_told) {
  const Words ground =
      Record(71, {0, 0, 0, 0, 48, blackBrush, 32, 1, 1, 16, 0, 0, 0, 0, 0, Word(-1000), 1000, 0});
  const Words text = FontRecords(1, {}) + AlignRecord(baseline) + TextRecord(300, -500, u" ", {300});
  EXPECT_EQ(0xFFFFFFu, PictureCanvas(ground + text).At(45, 45));
  EXPECT_EQ(0u, PictureCanvas(ground + text).At(45, 60));
  EXPECT_EQ(0u, PictureCanvas(ground + transparent + text).At(45, 45));
}

TEST(MetafilePlayerText, underlined_and_struck_out) {
  const Words text = AlignRecord(baseline) + TextRecord(200, -500, u"  ", {300, 300});
  EXPECT_FALSE(PictureCanvas(transparent + FontRecords(1, {}) + text).IsMarked(0, 0, 100, 100));
  const PictureCanvas underlined(transparent + FontRecords(1, {200, 0, 0, 400, 0, 1, 0}) + text);
  EXPECT_TRUE(underlined.IsMarked(25, 50, 75, 57));
  EXPECT_FALSE(underlined.IsMarked(0, 0, 100, 50));
  const PictureCanvas struckOut(transparent + FontRecords(1, {200, 0, 0, 400, 0, 0, 1}) + text);
  EXPECT_TRUE(struckOut.IsMarked(25, 38, 75, 50));
  EXPECT_FALSE(struckOut.IsMarked(0, 51, 100, 100));
}

TEST(MetafilePlayerText, characters_of_no_size_or_an_enormous_one_are_left_out) {
  for (const int32_t height : {1, -1, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
    SCOPED_TRACE(height);
    const PictureCanvas canvas(FontRecords(1, {height, 0, 0, 400, 0, 0, 0}) + Letters(300, -500) +
                               FontRecords(2, {200, 0x7FFFFFFF, 0, 400, 0, 0, 0}) + Letters(300, -500) +
                               LineRecords(100, -300, 900, -300));
    EXPECT_TRUE(canvas.IsUsable());
    EXPECT_EQ(0u, canvas.At(50, 30));
  }
}

}  // namespace
}  // namespace hexlume::metafile_player_text_test
