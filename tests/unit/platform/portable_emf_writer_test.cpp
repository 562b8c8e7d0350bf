#include "platform/portable/emf_writer.h"

#include "platform/portable/gdi_object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <numeric>
#include <vector>

namespace hexlume::portable_emf_writer_test {
namespace {

EmfHeaderRecord Header() {
  EmfHeaderRecord header = {};
  header.type = emrHeader;
  header.size = sizeof header;
  return header;
}

std::vector<uint8_t> Copied(const EmfBytes& bytes) {
  return {bytes.block.Start(), bytes.block.Start() + bytes.size};
}

TEST(EmfWriter, a_record_longer_than_the_room_stays_whole) {
  EmfWriter writer;
  writer.Append(Header());
  std::vector<uint8_t> tail(100000);
  std::iota(tail.begin(), tail.end(), uint8_t{0});
  const EmfModeRecord head = {emrSetMapMode, static_cast<uint32_t>(sizeof head + tail.size()), 1};
  for (int i = 0; i < 3; ++i) writer.Append(&head, sizeof head, tail.data(), tail.size());
  const std::vector<uint8_t> copy = Copied(writer.Finish(Header()));
  ASSERT_EQ(copy.size(), sizeof(EmfHeaderRecord) + 3 * (sizeof head + tail.size()) + sizeof(EmfEofRecord));
  for (int i = 0; i < 3; ++i) {
    const auto at = copy.begin() + sizeof(EmfHeaderRecord) + i * (sizeof head + tail.size()) + sizeof head;
    EXPECT_TRUE(std::equal(tail.begin(), tail.end(), at)) << i;
  }
}

// The length is looked at before the tail is, so there need be none of that length.
TEST(EmfWriter, a_record_beyond_two_gigabytes_leaves_the_metafile_as_it_was) {
  EmfWriter writer;
  writer.Append(Header());
  const EmfModeRecord head = {emrSetMapMode, sizeof head, 1};
  writer.Append(head);
  const volatile size_t tooLong = size_t{1} << 31;
  EXPECT_THROW(writer.Append(&head, sizeof head, &head, tooLong), std::length_error);
  writer.Append(head);
  const std::vector<uint8_t> copy = Copied(writer.Finish(Header()));
  EXPECT_EQ(copy.size(), sizeof(EmfHeaderRecord) + 2 * sizeof head + sizeof(EmfEofRecord));
}

// The records of 12 bytes that fit between a header of 108 bytes and EOF of 20: of a metafile of 100,000
// bytes at most (100000 - 108 - 20) / 12 = 8322.67.
TEST(EmfWriter, small_records_end_at_the_largest_metafile) {
  EmfWriter writer(100000);
  writer.Append(Header());
  const EmfModeRecord head = {emrSetMapMode, sizeof head, 1};
  for (int i = 0; i < 8322; ++i) ASSERT_NO_THROW(writer.Append(head)) << i;
  for (int i = 0; i < 10; ++i) EXPECT_THROW(writer.Append(head), std::length_error);
  const std::vector<uint8_t> copy = Copied(writer.Finish(Header()));
  EXPECT_EQ(copy.size(), 108u + 8322 * 12 + 20);
}

TEST(EmfWriter, a_metafile_is_filled_to_its_last_byte) {
  EmfWriter writer(108 + 8322 * 12 + 20);
  writer.Append(Header());
  const EmfModeRecord head = {emrSetMapMode, sizeof head, 1};
  for (int i = 0; i < 8322; ++i) ASSERT_NO_THROW(writer.Append(head)) << i;
  EXPECT_THROW(writer.Append(head), std::length_error);
  EXPECT_EQ(writer.Finish(Header()).size, 108u + 8322 * 12 + 20);
}

// A header of 108 bytes, a record of 12 and EOF of 20.
TEST(EmfWriter, a_metafile_that_ends_early_takes_no_more_records) {
  EmfWriter writer;
  writer.Append(Header());
  const EmfModeRecord head = {emrSetMapMode, sizeof head, 1};
  writer.Append(head);
  writer.EndEarly();
  EXPECT_THROW(writer.Append(head), std::length_error);
  EXPECT_EQ(writer.Finish(Header()).size, 108u + 12 + 20);
}

// What a stream was given, put together.
class Pieces : public MetafileStream {
 public:
  Pieces() { other.Grow(1); }

  void Take(size_t place, GrowingBlock& block, size_t count) noexcept override {
    EXPECT_TRUE(place == bytes.size() || place == 0) << place;
    bytes.resize(std::max(bytes.size(), place + count));
    std::copy_n(block.Start(), count, bytes.begin() + static_cast<std::ptrdiff_t>(place));
    sizes.push_back(count);
    if (isFull) return;
    std::swap(block, other);
    std::fill_n(block.Start(), block.Size(), uint8_t{0xCC});
  }

  std::vector<uint8_t> bytes;
  std::vector<size_t> sizes;
  bool isFull = false;  // takes no memory, and leaves the same

 private:
  GrowingBlock other;
};

void AppendNumbered(EmfWriter& writer, uint32_t count) {
  writer.Append(Header());
  for (uint32_t i = 0; i < count; ++i) writer.Append(EmfModeRecord{emrSetMapMode, sizeof(EmfModeRecord), i});
}

// 250,000 records of 12 bytes are 3,000,000. A piece has at most 1,048,576, so there are two full ones, the rest and the header.
TEST(EmfWriter, a_stream_gets_the_bytes_that_would_be_in_memory) {
  Pieces pieces;
  EmfWriter streamed, kept;
  streamed.StreamTo(&pieces);
  AppendNumbered(streamed, 250000);
  AppendNumbered(kept, 250000);
  const EmfBytes finished = streamed.Finish(Header());
  EXPECT_EQ(finished.size, 108u + 3000000 + 20);
  EXPECT_EQ(finished.block.Start(), nullptr);
  EXPECT_TRUE(pieces.bytes == Copied(kept.Finish(Header())));
  ASSERT_EQ(pieces.sizes.size(), 4u);
  EXPECT_GT(pieces.sizes[0], 1000000u);
  EXPECT_LE(pieces.sizes[0], size_t{1} << 20);
  EXPECT_EQ(pieces.sizes[3], sizeof(EmfHeaderRecord));
}

TEST(EmfWriter, a_stream_may_leave_the_same_memory) {
  Pieces pieces;
  pieces.isFull = true;
  EmfWriter streamed, kept;
  streamed.StreamTo(&pieces);
  AppendNumbered(streamed, 250000);
  AppendNumbered(kept, 250000);
  streamed.Finish(Header());
  EXPECT_TRUE(pieces.bytes == Copied(kept.Finish(Header())));
}

TEST(EmfWriter, a_metafile_smaller_than_a_piece_stays_in_memory) {
  Pieces pieces;
  EmfWriter writer;
  writer.StreamTo(&pieces);
  AppendNumbered(writer, 87000);
  EXPECT_EQ(Copied(writer.Finish(Header())).size(), 108u + 87000 * 12 + 20);
  EXPECT_TRUE(pieces.sizes.empty());
}

TEST(EmfWriter, a_record_longer_than_a_piece_is_streamed_whole) {
  Pieces pieces;
  EmfWriter streamed, kept;
  streamed.StreamTo(&pieces);
  std::vector<uint8_t> tail(3000000);
  std::iota(tail.begin(), tail.end(), uint8_t{0});
  const EmfModeRecord head = {emrSetMapMode, static_cast<uint32_t>(sizeof head + tail.size()), 1};
  for (EmfWriter* const writer : {&streamed, &kept}) {
    AppendNumbered(*writer, 10);
    writer->Append(&head, sizeof head, tail.data(), tail.size());
    writer->Append(&head, sizeof head, tail.data(), tail.size());
  }
  streamed.Finish(Header());
  EXPECT_TRUE(pieces.bytes == Copied(kept.Finish(Header())));
}

// (5000000 - 108 - 20) / 12 = 416656, whatever the stream has of them.
TEST(EmfWriter, a_streamed_metafile_ends_at_the_largest_size_too) {
  Pieces pieces;
  EmfWriter writer(5000000);
  writer.StreamTo(&pieces);
  AppendNumbered(writer, 416656);
  const EmfModeRecord head = {emrSetMapMode, sizeof head, 1};
  for (int i = 0; i < 10; ++i) EXPECT_THROW(writer.Append(head), std::length_error);
  writer.EndEarly();
  EXPECT_THROW(writer.Append(head), std::length_error);
  EXPECT_EQ(writer.Finish(Header()).size, 108u + 416656 * 12 + 20);
  EXPECT_EQ(pieces.bytes.size(), 108u + 416656 * 12 + 20);
}

TEST(EmfHandleTable, the_lowest_free_index_is_the_next) {
  GdiObject objects[3];
  EmfHandleTable table;
  for (uint32_t i = 0; i < 3; ++i) {
    EXPECT_EQ(table.NextIndex(), i + 1);
    table.Take(i + 1, &objects[i]);
  }
  table.Free(3);
  table.Free(1);
  EXPECT_EQ(table.NextIndex(), 1u);
  table.Take(1, &objects[0]);
  EXPECT_EQ(table.NextIndex(), 3u);
  EXPECT_EQ(table.HandleCount(), 4u);
}

TEST(EmfHandleTable, a_forgotten_index_is_nobodys) {
  GdiObject object;
  EmfHandleTable table;
  table.Take(table.NextIndex(), &object);
  table.Forget(1);
  EXPECT_EQ(table.IndexOf(&object), 0u);
  EXPECT_EQ(table.NextIndex(), 2u);
}

TEST(EmfHandleTable, an_object_known_to_another_table_too_is_found) {
  GdiObject first;
  GdiObject second;
  EmfHandleTable table;
  EmfHandleTable other;
  table.Take(table.NextIndex(), &first);
  table.Take(table.NextIndex(), &second);
  other.Take(other.NextIndex(), &second);
  EXPECT_EQ(table.IndexOf(&second), 2u);
  EXPECT_EQ(other.IndexOf(&second), 1u);
  EXPECT_EQ(other.IndexOf(&first), 0u);
}

}  // namespace
}  // namespace hexlume::portable_emf_writer_test
