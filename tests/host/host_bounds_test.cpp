// Bounds of the library: a drawing that reaches one says so.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

using host::ConvertBytes;

std::string Repeated(const std::string& piece, int32_t count) {
  std::string text;
  for (int32_t i = 0; i < count; ++i) text += piece;
  return text;
}

// The names of the bounds that a drawing has reached.
std::vector<std::string> BoundsOf(const host::Result& result) {
  std::vector<std::string> names;
  for (const hexlume_remark& remark : result.Remarks())
    if (remark.code == HEXLUME_REMARK_BOUND) names.emplace_back(remark.detail);
  return names;
}

using Names = std::vector<std::string>;

// Records of a type. A listing would have millions of points.
int32_t RecordsOfType(std::string_view metafile, uint32_t type) {
  int32_t count = 0;
  for (size_t at = 0; at + 8 <= metafile.size();) {
    uint32_t head[2];
    std::memcpy(head, metafile.data() + at, sizeof head);
    count += head[0] == type;
    at += head[1];
  }
  return count;
}

const std::string squarePath = "72 0\n73 0\n10 0\n20 0\n10 9\n20 0\n10 9\n20 9\n97 0\n";

TEST(HostBounds, a_drawing_of_the_usual_kind_reaches_none) {
  const host::Result result = ConvertBytes(A3(Lines(100) + "0 HATCH\n2 SOLID\n" + squarePath + "75 0\n"));
  EXPECT_TRUE(result);
  EXPECT_EQ(Names{}, BoundsOf(result));
}

TEST(HostBounds, paths_of_a_hatch_are_named_with_their_line) {
  const host::Result result = ConvertBytes(A3("0 HATCH\n2 SOLID\n" + Repeated(squarePath, 1001) + "75 0\n"));
  EXPECT_EQ("ok", result.StatusName());
  ASSERT_EQ(Names{"hatch-paths"}, BoundsOf(result));
  const hexlume_remark& remark = *result.Remarks().begin();
  EXPECT_STREQ("bound", remark.name);
  // 18 lines of the header, 4 of the section, 4 of the hatch's start and 18 of each path: the last group 97 is read.
  EXPECT_EQ(18 + 4 + 4 + 1001 * 18 - 1, remark.line);
  EXPECT_EQ("Line " + std::to_string(remark.line) + ": A hatch has too many paths. Some were left out.",
            std::string(remark.english));
  EXPECT_NE(std::string::npos, std::string(remark.japanese).find("ハッチングの境界"));
}

TEST(HostBounds, each_kind_is_named) {
  const struct {
    std::string entities, bound;
  } cases[] = {
      {"0 HATCH\n2 SOLID\n72 2\n10 0\n20 0\n40 9\n50 0\n51 40000\n73 1\n97 0\n75 0\n", "hatch-corners"},
      {"0 HATCH\n2 SOLID\n72 0\n73 0\n10 1e9\n20 0\n10 0\n20 0\n10 0\n20 9\n97 0\n75 0\n", "hatch-reach"},
      {"0 HATCH\n2 SOLID\n72 0\n73 0\n10 0\n20 90000\n10 1\n20 0\n10 5\n20 0\n97 0\n75 0\n",
       "hatch-rectangles"},
      {"0 HATCH\n2 X\n" + squarePath + "75 0\n53 0\n79 101\n" + Repeated("49 1\n", 101) + "98 0\n",
       "hatch-dashes"},
      {"0 SPLINE\n74 400000\n11 1\n21 1\n", "spline-points"},
  };
  for (const auto& each : cases) {
    const host::Result result = ConvertBytes(A3(each.entities));
    EXPECT_EQ("ok", result.StatusName()) << each.bound;
    EXPECT_EQ(Names{each.bound}, BoundsOf(result));
  }
}

// A spline of 330,000 spans counts 990,001 points of 8 bytes and a pen of 128: 7,920,136 bytes. 37 of them are 293,045,032, and
// 38 are more than 300,000,000 and 20 for each byte of the drawing.
TEST(HostBounds, a_metafile_ends_before_it_fills_the_memory) {
  const host::Result result = ConvertBytes(A3(Repeated("0 SPLINE\n74 330000\n11 5\n21 5\n", 60)));
  EXPECT_EQ("fault", result.StatusName());
  EXPECT_EQ(Names{"metafile-size"}, BoundsOf(result));
  constexpr uint32_t polyBezier16 = 85;
  EXPECT_EQ(37, RecordsOfType(result.Metafile(), polyBezier16));
}

TEST(HostBounds, blocks_nested_twofold_end_with_what_was_drawn) {
  // 2 ^ 25 texts.
  const std::string text = "0 MTEXT\n40 1\n1 " + Repeated("{\\a", 80) + "\n";
  std::string blocks = "0 BLOCK\n2 B0\n10 0\n20 0\n" + text + "0 ENDBLK\n";
  for (int32_t level = 1; level <= 25; ++level) {
    const std::string inner = "0 INSERT\n2 B" + std::to_string(level - 1) + "\n";
    blocks += "0 BLOCK\n2 B" + std::to_string(level) + "\n10 0\n20 0\n" + inner + inner + "0 ENDBLK\n";
  }
  const host::Result result =
      ConvertBytes(DrawingBytes(a3Header + "0 SECTION\n2 BLOCKS\n" + blocks + "0 ENDSEC\n" +
                                "0 SECTION\n2 ENTITIES\n" + Line() + "0 INSERT\n2 B25\n" + end));
  EXPECT_EQ("fault", result.StatusName());
  ASSERT_EQ(1u, BoundsOf(result).size());
  EXPECT_EQ(1u, Count("work metafile-size", BoundsOf(result).front()));
  EXPECT_LT(1000u, result.Metafile().size());
  // The next call begins anew.
  EXPECT_TRUE(ConvertBytes(A3(Line())));
}

TEST(HostBounds, a_block_in_itself_is_named) {
  const host::Result result = ConvertBytes(DrawingBytes(
      a3Header + "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 B\n10 0\n20 0\n0 INSERT\n2 B\n0 ENDBLK\n0 ENDSEC\n" +
      "0 SECTION\n2 ENTITIES\n0 INSERT\n2 B\n" + end));
  EXPECT_EQ("fault", result.StatusName());
  EXPECT_EQ(Names{"nesting-depth"}, BoundsOf(result));
}

TEST(HostBounds, all_have_a_name_and_sentences) {
  std::set<std::string> names;
  for (int32_t bound = HEXLUME_BOUND_WORK; bound <= HEXLUME_BOUND_TEXT_ROUNDS; ++bound) {
    ASSERT_NE(nullptr, hexlume_bound_name(bound)) << bound;
    names.insert(hexlume_bound_name(bound));
    const std::string english = hexlume_bound_message(bound, HEXLUME_ENGLISH);
    EXPECT_FALSE(english.empty());
    EXPECT_NE(english, hexlume_bound_message(bound, HEXLUME_JAPANESE));
  }
  EXPECT_EQ(13u, names.size());
  for (const int32_t none : {-1, HEXLUME_BOUND_TEXT_ROUNDS + 1}) {
    EXPECT_EQ(nullptr, hexlume_bound_name(none));
    EXPECT_EQ(nullptr, hexlume_bound_message(none, HEXLUME_ENGLISH));
  }
}

}  // namespace
}  // namespace hexlume
