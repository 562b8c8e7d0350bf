// The directory of blocks.

#include "tables/block_directory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/group_reader.h"
#include "support/converter_test.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::block_directory_test {
namespace {

class BlockDirectoryTest : public ConverterTest {
 protected:
  // Reads a section after its name.
  void ReadOpen(const std::string& groups) {
    stream = StreamOf(groups);
    result = ReadBlocks(stream);
  }
  void Read(const std::string& blocks) { ReadOpen(blocks + "0 ENDSEC\n0 SECTION\n"); }

  static std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const BlockEntry& block : state.blocks) names.push_back(block.name);
    return names;
  }

  // The group that a block's body starts with, as "code value".
  std::string BodyOf(const BlockEntry& block) {
    Seek(stream, block.bodyOffset);
    if (!ReadGroup(stream)) return "the end";
    return std::to_string(state.groupCode) + " " + state.groupValue;
  }
};

using Strings = std::vector<std::string>;

const std::string line = "0 LINE\n8 0\n10 1\n20 2\n11 3\n21 4\n";

std::string Block(const std::string& name, const std::string& rest = "70 0\n10 5\n20 6\n30 0\n3 X\n1 \n") {
  return "0 BLOCK\n8 0\n2 " + name + "\n" + rest + line + "0 ENDBLK\n8 0\n";
}

// The section.

TEST_F(BlockDirectoryTest, blocks_are_noted_in_the_order_of_the_file) {
  Read(Block("DOOR") + Block("WINDOW") + Block("*D3"));
  EXPECT_EQ((Strings{"DOOR", "WINDOW", "*D3"}), Names());
  EXPECT_EQ(1, result);
}

TEST_F(BlockDirectoryTest, a_section_with_no_blocks_leaves_the_directory_empty) {
  Read("");
  EXPECT_TRUE(state.blocks.empty());
  EXPECT_EQ(1, result);
}

TEST_F(BlockDirectoryTest, endsec_ends_it_with_what_follows_unread) {
  Read(Block("A"));
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "SECTION"));
}

TEST_F(BlockDirectoryTest, endsec_right_behind_a_header_ends_it) {
  Read("0 BLOCK\n2 A\n70 0\n");
  EXPECT_EQ((Strings{"A"}), Names());
  EXPECT_TRUE(AtGroup(0, "ENDSEC"));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(0, "SECTION"));
}

TEST_F(BlockDirectoryTest, endsec_under_another_code_or_in_another_spelling_ends_nothing) {
  Read("1 ENDSEC\n0 Endsec\n0 ENDSEC \n" + Block("A", "3 ENDSEC\n") + Block("B"));
  EXPECT_EQ((Strings{"A", "B"}), Names());
}

TEST_F(BlockDirectoryTest, a_section_starts_anew) {
  Read(Block("A") + Block("B"));
  Read(Block("C"));
  EXPECT_EQ((Strings{"C"}), Names());
  EXPECT_EQ(nullptr, state.blocks.FindFirst("A"));
  Read("");
  EXPECT_TRUE(state.blocks.empty());
}

TEST_F(BlockDirectoryTest, what_stands_in_a_block_is_passed_over) {
  Read(
      "0 BLOCK\n2 A\n0 INSERT\n2 B\n330 7\n0 ATTRIB\n2 TAG\n0 block\n2 C\n0 BLOCKS\n2 D\n0 ENDBLK\n2 E\n330 "
      "8\n" +
      Block("F"));
  EXPECT_EQ((Strings{"A", "F"}), Names());
  EXPECT_STREQ("", state.blocks[0].ownerHandle);
}

TEST_F(BlockDirectoryTest, block_under_another_code_starts_none) {
  Read("2 BLOCK\n2 A\n1 BLOCK\n2 B\n");
  EXPECT_TRUE(state.blocks.empty());
}

TEST_F(BlockDirectoryTest, a_block_right_behind_a_header_is_not_lost) {
  Read("0 BLOCK\n2 A\n0 BLOCK\n2 B\n0 ENDBLK\n");
  EXPECT_EQ((Strings{"A", "B"}), Names());
}

TEST_F(BlockDirectoryTest, anonymous_blocks_are_found_by_name_like_any_other) {
  Read(Block("*D12") + Block("DOOR") + Block("*U3"));
  ASSERT_TRUE(state.blocks.FindFirst("*D12"));
  EXPECT_EQ(&state.blocks[0], state.blocks.FindFirst("*D12"));
  EXPECT_EQ(&state.blocks[2], state.blocks.FindFirst("*U3"));
}

TEST_F(BlockDirectoryTest, of_two_blocks_of_one_name_both_are_noted_and_the_first_is_found) {
  Read(Block("A", "70 1\n") + Block("A", "70 2\n") + Block("A", "70 3\n"));
  EXPECT_EQ((Strings{"A", "A", "A"}), Names());
  EXPECT_EQ("70 1", BodyOf(*state.blocks.FindFirst("A")));
  EXPECT_EQ("70 3", BodyOf(*state.blocks.FindLast("A")));
}

TEST_F(BlockDirectoryTest, names_are_found_in_their_own_case_alone) {
  Read(Block("Abc"));
  EXPECT_TRUE(state.blocks.FindFirst("Abc"));
  EXPECT_FALSE(state.blocks.FindFirst("ABC"));
}

TEST_F(BlockDirectoryTest, ten_thousand_blocks_are_all_found) {
  std::string blocks;
  for (int i = 0; i < 10000; ++i)
    blocks += "0 BLOCK\n2 B" + std::to_string(i) + "\n70 " + std::to_string(i) + "\n0 ENDBLK\n";
  Read(blocks);
  ASSERT_EQ(10000u, state.blocks.size());
  for (int i = 0; i < 10000; ++i) {
    const BlockEntry* block = state.blocks.FindFirst(("B" + std::to_string(i)).c_str());
    ASSERT_TRUE(block) << i;
    ASSERT_EQ("70 " + std::to_string(i), BodyOf(*block));
  }
}

// Where a body starts.

TEST_F(BlockDirectoryTest, a_body_starts_right_behind_the_blocks_name) {
  Read("0 BLOCK\n8 0\n2 DOOR\n70 0\n10 5\n");
  // "0" "BLOCK" "8" "0" "2" "DOOR", each with a line feed: 2 + 6 + 2 + 2 + 2 + 5.
  EXPECT_EQ(19, state.blocks[0].bodyOffset);
  EXPECT_EQ("70 0", BodyOf(state.blocks[0]));
  ReadGroup(stream);
  EXPECT_TRUE(AtGroup(10, "5"));
}

TEST_F(BlockDirectoryTest, in_a_text_of_cr_lf_a_body_starts_behind_both) {
  stream = StreamOfBytes(DrawingBytes("0 BLOCK\n8 0\n2 DOOR\n70 7\n10 5\n0 ENDBLK\n0 ENDSEC\n", "\r\n"));
  EXPECT_EQ(1, ReadBlocks(stream));
  ASSERT_EQ((Strings{"DOOR"}), Names());
  // Six lines, each longer by one: 19 + 6.
  EXPECT_EQ(25, state.blocks[0].bodyOffset);
  EXPECT_EQ("70 7", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, each_block_has_its_own_body) {
  Read(Block("A", "70 1\n") + Block("B", "70 2\n"));
  EXPECT_EQ("70 1", BodyOf(state.blocks[0]));
  EXPECT_EQ("70 2", BodyOf(state.blocks[1]));
}

TEST_F(BlockDirectoryTest, a_later_group_2_moves_the_body) {
  Read("0 BLOCK\n2 A\n70 0\n2 B\n10 5\n0 ENDBLK\n");
  EXPECT_EQ((Strings{"B"}), Names());
  EXPECT_EQ("10 5", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, a_second_name_in_group_3_does_not_move_the_body) {
  Read("0 BLOCK\n2 A\n70 0\n3 A\n1 \n0 ENDBLK\n");
  EXPECT_EQ("70 0", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, a_body_may_start_with_the_blocks_end) {
  Read("0 BLOCK\n70 0\n2 A\n0 ENDBLK\n");
  EXPECT_EQ("0 ENDBLK", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, a_block_without_a_name_has_no_body) {
  Read("0 BLOCK\n8 0\n70 0\n10 5\n" + line + "0 ENDBLK\n" + Block("B"));
  EXPECT_EQ((Strings{"", "B"}), Names());
  EXPECT_EQ(noBody, state.blocks[0].bodyOffset);
  EXPECT_EQ("70 0", BodyOf(state.blocks[1]));
}

TEST_F(BlockDirectoryTest, a_block_with_an_empty_name_has_a_body) {
  Read(Block(""));
  EXPECT_EQ((Strings{""}), Names());
  EXPECT_EQ("70 0", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, nothing_reaches_from_one_block_to_the_next) {
  Read("0 BLOCK\n330 1F\n2 A\n0 BLOCK\n0 ENDBLK\n");
  EXPECT_EQ((Strings{"A", ""}), Names());
  EXPECT_STREQ("", state.blocks[1].ownerHandle);
  EXPECT_EQ(noBody, state.blocks[1].bodyOffset);
}

// Names and owners.

TEST_F(BlockDirectoryTest, a_name_is_kept_byte_by_byte) {
  const std::string longName(254, 'N');
  Read(Block("\x95\xc7 \x90\x7d  ") + Block(longName));
  EXPECT_EQ((Strings{"\x95\xc7 \x90\x7d  ", longName}), Names());
}

TEST_F(BlockDirectoryTest, an_owner_in_front_of_the_name_is_kept) {
  Read("0 BLOCK\n5 20\n330 1F\n100 AcDb\n8 0\n100 AcDb\n2 A\n70 0\n0 ENDBLK\n");
  EXPECT_STREQ("1F", state.blocks[0].ownerHandle);
  EXPECT_STREQ("A", state.blocks[0].name);
  EXPECT_EQ("70 0", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, an_owner_behind_the_name_is_kept_and_does_not_move_the_body) {
  Read("0 BLOCK\n2 A\n70 0\n330 1F\n0 ENDBLK\n");
  EXPECT_STREQ("1F", state.blocks[0].ownerHandle);
  EXPECT_EQ("70 0", BodyOf(state.blocks[0]));
}

TEST_F(BlockDirectoryTest, the_last_owner_counts) {
  Read("0 BLOCK\n330 LONGER\n330 2F\n2 A\n0 ENDBLK\n");
  EXPECT_STREQ("2F", state.blocks[0].ownerHandle);
}

// One header.

TEST_F(BlockDirectoryTest, a_header_overwrites_what_the_entry_held) {
  BlockEntry block = {"OLD", "7", 77};
  stream = StreamOf("0 BLOCK\n70 0\n0 LINE\n");
  ReadGroup(stream);
  EXPECT_EQ(1, ReadBlockHeader(stream, block));
  EXPECT_TRUE(AtGroup(0, "LINE"));
  EXPECT_STREQ("", block.name);
  EXPECT_STREQ("", block.ownerHandle);
  EXPECT_EQ(noBody, block.bodyOffset);
  EXPECT_TRUE(state.blocks.empty());
}

// A file that ends in the section.

TEST_F(BlockDirectoryTest, a_file_that_ends_in_a_header_keeps_its_block) {
  ReadOpen("0 BLOCK\n2 A\n70 0\n");
  EXPECT_EQ(0, result);
  EXPECT_EQ((Strings{"A"}), Names());
  EXPECT_EQ("70 0", BodyOf(state.blocks[0]));
  ReadOpen("0 BLOCK\n2 A\n0 BLOCK\n");
  EXPECT_EQ(0, result);
  EXPECT_EQ((Strings{"A", ""}), Names());
}

TEST_F(BlockDirectoryTest, a_file_that_ends_in_a_block_keeps_it) {
  ReadOpen("0 BLOCK\n2 A\n0 LINE\n10 1\n");
  EXPECT_EQ(0, result);
  EXPECT_EQ((Strings{"A"}), Names());
}

TEST_F(BlockDirectoryTest, an_empty_file_leaves_the_directory_empty) {
  state.blocks.Add({"OLD", "", 7});
  ReadOpen("");
  EXPECT_EQ(0, result);
  EXPECT_TRUE(state.blocks.empty());
}

TEST_F(BlockDirectoryTest, a_file_may_end_behind_any_byte) {
  const std::string bytes = DrawingBytes(Block("A", "330 1\n10 5\n") + Block("B") + "0 ENDSEC\n");
  for (size_t end = 0; end <= bytes.size(); ++end) {
    stream = StreamOfBytes(bytes.substr(0, end));
    ReadBlocks(stream);
    EXPECT_LE(state.blocks.size(), 2u);
    for (const BlockEntry& block : state.blocks) EXPECT_LE(block.bodyOffset, static_cast<int32_t>(end));
  }
  EXPECT_EQ((Strings{"A", "B"}), Names());
}

}  // namespace
}  // namespace hexlume::block_directory_test
