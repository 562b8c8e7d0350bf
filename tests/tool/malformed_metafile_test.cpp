// The player and the listing with bytes that are no metafile, or no longer one: they end, and stay within the
// bytes.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "support/picture_canvas.h"
#include "tools/hexlume/metafile/metafile_listing.h"

namespace hexlume::malformed_metafile_test {
namespace {

using Bytes = std::vector<uint8_t>;

// One of every record.
Words EveryRecord() {
  const std::vector<int32_t> points{100, -100, 900, -100, 900, -900, 100, -900};
  return SmallHeader() + SetMapModeRecord(3) + Record(18, {1}) + Record(19, {2}) + Record(22, {24}) +
         Record(24, {0x123456}) + PenRecords(1, 1, 0, 0x0000FF) + BrushRecords(2, 0x00FF00) +
         LineRecords(0, 0, 1000, -1000) + PointsRecord(2, points) + PointsRecord(3, points) +
         Points16Record(85, points) + Points16Record(86, points) + Record(15, {500, Word(-500), 0}) +
         MoveToRecord(800, -500) + AngleArcRecord(500, -500, 300, 30, 200) + Record(57, {2}) +
         Record(42, Ints({200, -800, 800, -200})) +
         Record(45, Ints({200, -800, 800, -200, 900, -500, 500, -100})) +
         FillRegionRecord(2, {100, -900, 500, -500, 500, -500, 900, -100}) + ClipRecord(1, {10, 10, 90, 90}) +
         FontRecords(3, {200, 100, 300, 700, 1, 1, 1}) + TextRecord(100, -500, u"A図面", {100, 200, 200}) +
         NoClipRecord() + SelectRecord(0x80000007) + Record(40, {1}) + EndRecord();
}

Bytes BytesOf(const Words& words) {
  Bytes bytes(4 * words.size());
  std::memcpy(bytes.data(), words.data(), bytes.size());
  return bytes;
}

void ListAndPlay(const Bytes& bytes) {
  std::ostringstream out;
  ListMetafile(bytes.data(), bytes.size(), out);
  EXPECT_TRUE(PictureCanvas(bytes.data(), bytes.size()).IsUsable());
}

TEST(MalformedMetafile, every_record_is_sound_to_begin_with) {
  const Bytes bytes = BytesOf(EveryRecord());
  EXPECT_TRUE(PictureCanvas(bytes.data(), bytes.size()).IsSound());
}

TEST(MalformedMetafile, cut_off_anywhere) {
  const Bytes whole = BytesOf(EveryRecord());
  for (size_t size = 0; size < whole.size(); ++size) {
    const Bytes bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
    EXPECT_FALSE(PictureCanvas(bytes.data(), bytes.size()).IsSound()) << size;
  }
}

TEST(MalformedMetafile, bytes_by_chance) {
  std::mt19937 chance(1);
  for (int round = 0; round < 2000; ++round) {
    Bytes bytes(chance() % 300);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(chance());
    ListAndPlay(bytes);
  }
}

TEST(MalformedMetafile, bytes_changed_by_chance) {
  std::mt19937 chance(2);
  const Bytes whole = BytesOf(EveryRecord());
  for (int round = 0; round < 1500; ++round) {
    SCOPED_TRACE(round);
    Bytes bytes = whole;
    for (uint32_t changes = 1 + chance() % 8; changes > 0; --changes) {
      bytes[chance() % bytes.size()] = static_cast<uint8_t>(chance());
    }
    ListAndPlay(bytes);
  }
}

// Sizes stay as they are here, so that every record is read.
TEST(MalformedMetafile, numbers_changed_to_extremes) {
  std::mt19937 chance(3);
  const uint32_t extremes[] = {0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, Word(1e38f), 0x7FC00000, 0x7F800000};
  const Words whole = EveryRecord();
  for (int round = 0; round < 1500; ++round) {
    SCOPED_TRACE(round);
    Words words = whole;
    for (size_t record = words[1] / 4; record < words.size(); record += whole[record + 1] / 4) {
      const size_t length = whole[record + 1] / 4;
      if (length > 2) words[record + 2 + chance() % (length - 2)] = extremes[chance() % std::size(extremes)];
    }
    ListAndPlay(BytesOf(words));
  }
}

}  // namespace
}  // namespace hexlume::malformed_metafile_test
