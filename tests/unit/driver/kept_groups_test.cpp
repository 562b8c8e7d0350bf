// Groups that are read again where a block's groups are kept: the same as from the text.

#include "driver/kept_groups.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "composite/block_dispatch.h"
#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"
#include "entities/block_level.h"
#include "platform/fault_guard.h"
#include "support/block_stream.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::kept_groups_test {
namespace {

using Random = std::mt19937;

int32_t Below(Random& random, size_t count) {
  return static_cast<int32_t>(random() % count);
}

const std::string& OneOf(Random& random, const std::vector<std::string>& choices) {
  return choices[static_cast<size_t>(Below(random, choices.size()))];
}

// What a reader is left with.
struct Reading {
  int32_t result, code, place;
  std::string value;
  double number;
};

bool operator==(const Reading& a, const Reading& b) {
  return a.result == b.result && a.code == b.code && a.place == b.place && a.value == b.value &&
         std::memcmp(&a.number, &b.number, sizeof a.number) == 0;
}
void PrintTo(const Reading& reading, std::ostream* out) {
  *out << reading.result << ": " << reading.code << " \"" << reading.value << "\" " << reading.number
       << " at " << reading.place;
}

Reading Read(TextStream& stream, bool toEntity) {
  const int32_t result = toEntity ? PassToEntity(stream) : ReadGroup(stream);
  return {result, state.groupCode, Tell(stream), state.groupValue, GroupNumber()};
}

// Reads from a place on, now by the group and now up to an entity, always alike for one seed.
std::vector<Reading> ReadFrom(TextStream& stream, int32_t place, uint32_t seed) {
  constexpr int mostReadings = 60;
  Random random(seed);
  std::vector<Reading> readings;
  Seek(stream, place);
  state.groupCode = -1;
  std::strcpy(state.groupValue, "before");
  while (readings.size() < mostReadings) {
    readings.push_back(Read(stream, Below(random, 4) == 0));
    if (readings.back().result == 0) break;
  }
  return readings;
}

// As ReadFrom where the groups of a block from there on are kept.
std::vector<Reading> ReadKept(TextStream& stream, int32_t place, uint32_t seed) {
  Seek(stream, place);
  EXPECT_EQ(&noKeptGroup, stream.keptGroups.BeginBlock(stream));
  stream.nextKept = stream.keptGroups.BeginBlock(stream);
  EXPECT_EQ(place, Tell(stream));
  return ReadFrom(stream, place, seed);
}

// Lines that are hard to read, and many that aren't.
std::string RandomText(Random& random) {
  const std::vector<std::string> codes = {"0",         "  0",        "  0",  " 10", " 20", "62",
                                          "0 ",        "-5",         "LINE", "",    "\t8", "1.5",
                                          "999999999", "1000000000", "+8",   " ",   "0\r"};
  const std::vector<std::string> values = {"ENDBLK",
                                           "LINE",
                                           "1.5",
                                           "-2.25e3",
                                           "1d2",
                                           "",
                                           "  7  ",
                                           "\r",
                                           "A\rB",
                                           "ENDBLK ",
                                           "SEQEND",
                                           std::string("A\0B", 3),
                                           std::string(31, 'x'),
                                           std::string(32, 'x'),
                                           std::string(254, 'y'),
                                           std::string(255, 'y'),
                                           std::string(300, 'z'),
                                           std::string(1, '\0')};
  const std::vector<std::string> lineEnds = {"\n", "\n", "\n", "\r\n", "\r\n", "\r\r\n", "\r"};
  std::string text;
  const int32_t groups = Below(random, 40);
  for (int32_t i = 0; i < groups; ++i)
    text += OneOf(random, codes) + OneOf(random, lineEnds) + OneOf(random, values) + OneOf(random, lineEnds);
  if (Below(random, 8) == 0) text += "\x1A 10\n5\n";
  if (Below(random, 4) == 0) text += " 62";
  return text;
}

TEST(KeptGroupsTest, random_texts_are_read_as_from_the_text) {
  Random random(1);
  for (uint32_t round = 0; round < 3000; ++round) {
    const TemporaryFile file(RandomText(random));
    TextStream plain, kept;
    ASSERT_TRUE(OpenText(plain, file.Path()));
    ASSERT_TRUE(OpenText(kept, file.Path()));
    kept.keptGroups = KeptGroups(static_cast<size_t>(Below(random, 4000)));
    const int32_t place = Below(random, static_cast<size_t>(plain.size) + 1);
    ASSERT_EQ(ReadFrom(plain, place, round), ReadKept(kept, place, round)) << "round " << round;
  }
}

// The number that a group has isn't read from its value again.
TEST(KeptGroupsTest, a_block_is_kept_from_its_second_time_on) {
  TextStream stream = StreamOf("10 5\n0 ENDBLK\n10 6\n");
  const KeptGroup* first = stream.keptGroups.BeginBlock(stream);
  EXPECT_EQ(&noKeptGroup, first);
  const KeptGroup* second = stream.keptGroups.BeginBlock(stream);
  EXPECT_EQ(0, second[0].place);
  EXPECT_EQ(10, second[0].code);
  EXPECT_EQ(5.0, second[0].number);
  EXPECT_STREQ("ENDBLK", second[1].value);
  EXPECT_EQ(noKeptGroup.place, second[2].place);
  EXPECT_EQ(second, stream.keptGroups.BeginBlock(stream));
}

TEST(KeptGroupsTest, the_block_end_at_hand_does_not_end_a_block_at_its_start) {
  TextStream stream = StreamOf("0 ENDBLK\n10 5\n0 ENDBLK\n");
  ReadGroup(stream);
  stream.keptGroups.BeginBlock(stream);
  EXPECT_EQ(10, stream.keptGroups.BeginBlock(stream)->code);
}

TEST(KeptGroupsTest, a_block_that_does_not_fit_is_kept_up_to_there) {
  TextStream stream = StreamOf("1 AB\n2 CD\n0 ENDBLK\n");
  stream.keptGroups = KeptGroups(2 * (sizeof(KeptGroup) + 3) - 1);  // two values of 3 bytes with their 0
  stream.keptGroups.BeginBlock(stream);
  const KeptGroup* kept = stream.keptGroups.BeginBlock(stream);
  EXPECT_EQ(1, kept[0].code);
  EXPECT_EQ(noKeptGroup.place, kept[1].place);
}

TEST(KeptGroupsTest, keeping_leaves_the_group_at_hand) {
  TextStream stream = StreamOf("1 AT HAND\n10 5\n0 ENDBLK\n");
  ReadGroup(stream);
  const int32_t place = Tell(stream);
  stream.keptGroups.BeginBlock(stream);
  stream.keptGroups.BeginBlock(stream);
  EXPECT_EQ(place, Tell(stream));
  EXPECT_TRUE(AtGroup(1, "AT HAND"));
}

// Blocks that name each other and themselves, some cut off or without an end.
class KeptBlocksTest : public BlockStreamTest {
 protected:
  std::string RandomPlace(Random& random) {
    return "10 " + std::to_string(Below(random, 100)) + "\n20 " + std::to_string(Below(random, 60)) + "\n";
  }

  std::string RandomInsert(Random& random) {
    std::string insert = "0 INSERT\n2 " + OneOf(random, {"A", "B", "C", "D", "NONE"}) + "\n8 " +
                         OneOf(random, {"0", "WALLS"}) + "\n";
    insert += RandomPlace(random);
    if (Below(random, 3) == 0) insert += "41 " + OneOf(random, {"2", "-1", "0", "0.5d0"}) + "\n";
    if (Below(random, 3) == 0) insert += "50 " + OneOf(random, {"30", "-90"}) + "\n62 3\n";
    return insert;
  }

  // With all groups that a line may have, in any order, some of them twice or missing.
  std::string RandomLine(Random& random, const std::string& layer) {
    const std::string number = std::to_string(Below(random, 90));
    std::vector<std::string> groups = {layer,
                                       "5 2F\n",
                                       "6 " + OneOf(random, {"DASHED", "BYBLOCK", "CONTINUOUS"}) + "\n",
                                       "10 1d1\n",
                                       "11 " + number + "\n",
                                       "12 60\n",
                                       "20 " + number + "\n",
                                       "21 7\n",
                                       "30 4\n",
                                       "39 300\n",
                                       "62 " + OneOf(random, {"0", "1", "256"}) + "\n",
                                       "1000 Q\n"};
    std::shuffle(groups.begin(), groups.end(), random);
    groups.resize(groups.size() - static_cast<size_t>(Below(random, 8)));
    std::string line = "0 LINE\n";
    if (Below(random, 4) != 0) line += layer + RandomPlace(random);
    for (const std::string& group : groups) line += group;
    return line;
  }

  // LINEs with the same groups for their style, in most cases, before, between and after those for their ends.
  std::string RandomLinesAlike(Random& random, const std::string& layer) {
    std::vector<std::string> style = {layer, "6 DASHED\n", "62 0\n", "62 1\n", "39 300\n"};
    std::shuffle(style.begin(), style.end(), random);
    style.resize(static_cast<size_t>(Below(random, 4)));
    std::string lines;
    for (int32_t i = 2 + Below(random, 4); i > 0; --i) {
      std::vector<std::string> groups = style;
      if (Below(random, 8) == 0) groups.push_back(layer);
      for (const char* code : {"10 ", "20 ", "11 ", "21 ", "30 "}) {
        const int32_t place = Below(random, groups.size() + 1);
        const std::string number = std::to_string(Below(random, 90));
        if (Below(random, 30) != 0) groups.insert(groups.begin() + place, code + number + "\n");
      }
      lines += "0 LINE\n";
      for (const std::string& group : groups) lines += group;
    }
    return lines;
  }

  std::string RandomEntity(Random& random, bool mayInsert) {
    const std::string layer = "8 " + OneOf(random, {"0", "WALLS", "HIDDEN"}) + "\n";
    switch (Below(random, mayInsert ? 8 : 7)) {
      case 0: return "0 CIRCLE\n" + layer + RandomPlace(random) + "40 " + OneOf(random, {"3", "1e1"}) + "\n";
      case 1: return "0 ARC\n" + layer + RandomPlace(random) + "40 2\n50 10\n51 200\n";
      case 2: return "0 SEQEND\n" + layer + "1 " + std::string(40, 'q') + "\n";
      case 3:
        return "0 LWPOLYLINE\n" + layer + "70 1\n" + RandomPlace(random) + RandomPlace(random) + "42 0.5\n" +
               RandomPlace(random);
      case 4: return RandomLinesAlike(random, layer);
      case 7: return RandomInsert(random);
      default: return RandomLine(random, layer);
    }
  }

  std::string RandomBlock(Random& random, const std::string& name) {
    // Each block may name those after it; one drawing in eight has a circle of blocks.
    std::string block =
        "0 BLOCK\n2 " + name + "\n" + OneOf(random, {"10 1\n20 2\n", "10 3\n3 X\n", "70 0\n"});
    const int32_t entities = Below(random, 6);
    for (int32_t i = 0; i < entities; ++i)
      block += RandomEntity(random, name != "D" || Below(random, 8) == 0);
    return block + OneOf(random, {"0 ENDBLK\n", "0 ENDBLK\n8 0\n", "0 ENDBLK\n", "0 ENDBLK \n", "0\n"});
  }

  static constexpr int32_t noEnd = std::numeric_limits<int32_t>::max();

  // The host ends the run after so many groups, or the budget after so many steps.
  struct End {
    int32_t groups;
    int64_t steps;
  };

  End RandomEnd(Random& random) {
    End end = {noEnd, leastSteps};
    if (Below(random, 3) == 0) end.groups = Below(random, 1500);
    if (Below(random, 3) == 0) end.steps = Below(random, 150'000);
    return end;
  }

  // The listing of the section, what it has thrown and what it has counted.
  std::string DrawWithRoom(const std::string& entities, size_t room, End end) {
    int32_t thrown = 0;
    runWatch = {};
    BeginWork();
    const std::string listing = ListSection(entities, [&](Canvas canvas) {
      stream.keptGroups = KeptGroups(room);
      state.nestedBytes = nestedByteLimit - 200'000;
      runWatch.groupsToLook = end.groups;
      if (end.groups < noEnd) runWatch.look = [] { return false; };
      work.mostSteps = work.steps + end.steps;
      try {
        DrawEntities({RunOn(canvas)});
      } catch (int32_t code) {
        thrown = code;
      }
    });
    std::ostringstream counts;
    counts << "thrown " << thrown << ", nested " << state.nestedBytes << ", position " << runWatch.position
           << ", left " << runWatch.groupsLeft << ", steps " << work.steps << ", bound at "
           << work.reachedAt[0];
    return listing + counts.str();
  }
};

TEST_F(KeptBlocksTest, random_blocks_are_drawn_as_from_the_text) {
  Random random(2);
  AddLayer("0", {}, 3);
  AddLayer("WALLS", {}, 1);
  ExcludeLayer("HIDDEN");
  for (int round = 0; round < 800; ++round) {
    blocks.clear();
    for (const char* name : {"A", "B", "C", "D"}) blocks += RandomBlock(random, name);
    std::string entities;
    for (int i = 0; i < 8; ++i) entities += RandomInsert(random) + RandomEntity(random, true);
    // What is passed over is asked for once more where a block is kept in part, so the host doesn't end that.
    const bool isKeptInPart = Below(random, 2) == 0;
    const size_t room = isKeptInPart ? 700 : KeptGroups::largestSize;
    End end = RandomEnd(random);
    if (isKeptInPart) end.groups = noEnd;
    // The fields that an entity leaves to the next one.
    const ConvState before = state;
    const std::string fromText = DrawWithRoom(entities, 0, end);
    state = before;
    ASSERT_EQ(fromText, DrawWithRoom(entities, room, end)) << blocks << entities;
    state = before;
  }
}

// The groups of the block around it are taken again after an INSERT.
TEST_F(KeptBlocksTest, a_block_is_read_on_after_a_block_in_it) {
  AddBlock("A", "0 INSERT\n2 B\n10 0\n20 0\n" + LineOf(Ends(10, 90, 30, 80)));
  AddBlock("B", LineOf(Ends(0, 70, 20, 60)));
  const std::string insert = "0 INSERT\n2 A\n10 0\n20 0\n";
  const std::string once = Stroke(black, 0, -3000, 2000, -4000) + Stroke(black, 1000, -1000, 3000, -2000);
  EXPECT_EQ(once + once + once, DrawSection(insert + insert + insert));
}

}  // namespace
}  // namespace hexlume::kept_groups_test
