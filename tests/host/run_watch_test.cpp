// Where a run ends that its host ends.
#include "driver/run_watch.h"

#include <gtest/gtest.h>

#include "driver/conv_state.h"
#include "driver/group_reader.h"
#include "support/text_groups.h"

namespace hexlume {
namespace {

class RunWatchTest : public testing::Test {
 protected:
  void SetUp() override { runWatch = {}; }
  void TearDown() override { runWatch = {}; }

  // The host ends the run when it is asked before the group of this index, from 0.
  static void EndBefore(int32_t group) {
    runWatch.look = [] { return false; };
    runWatch.groupsToLook = group;
  }

  // The groups that are read until the reader reports the end.
  static int32_t GroupsRead(TextStream& stream) {
    int32_t count = 0;
    while (ReadGroup(stream)) ++count;
    return count;
  }

  // Each LINE has three groups.
  TextStream lines = StreamOf("0 LINE\n10 1\n20 2\n0 LINE\n10 3\n20 4\n0 LINE\n10 5\n20 6\n");
};

TEST_F(RunWatchTest, an_entity_that_has_just_begun_is_read_to_its_end) {
  EndBefore(4);  // 3: the second LINE; 4: its group 10
  // Both groups of the second LINE, and the third LINE's name, which ends it.
  EXPECT_EQ(7, GroupsRead(lines));
  EXPECT_TRUE(RunHasEnded());
}

TEST_F(RunWatchTest, an_entity_in_its_middle_is_read_to_its_end) {
  EndBefore(5);
  EXPECT_EQ(7, GroupsRead(lines));
}

TEST_F(RunWatchTest, after_the_last_group_of_an_entity_the_next_name_is_read) {
  EndBefore(6);
  // The third LINE's name is read as the look came before it, and nothing after it.
  EXPECT_EQ(7, GroupsRead(lines));
}

TEST_F(RunWatchTest, a_vertex_is_part_of_its_entity) {
  TextStream polyline = StreamOf("0 POLYLINE\n66 1\n0 VERTEX\n10 1\n0 VERTEX\n10 2\n0 SEQEND\n8 0\n0 LINE\n");
  EndBefore(1);
  // Up to SEQEND, which ends the entity.
  EXPECT_EQ(7, GroupsRead(polyline));
}

TEST_F(RunWatchTest, an_entity_of_more_than_10000_groups_is_cut) {
  std::string groups = "0 LWPOLYLINE\n";
  for (int32_t i = 0; i < 20000; ++i) groups += "10 1\n";
  TextStream polyline = StreamOf(groups);
  EndBefore(1);
  // The name, the group of the look and 10,000 more.
  EXPECT_EQ(10002, GroupsRead(polyline));
}

TEST_F(RunWatchTest, a_run_that_has_ended_before_it_began_reads_nothing) {
  EndRun();
  EXPECT_EQ(0, GroupsRead(lines));
}

}  // namespace
}  // namespace hexlume
