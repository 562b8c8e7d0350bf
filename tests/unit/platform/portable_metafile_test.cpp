// Expectations that were measured came from Windows' GDI under Wine; the rest follows from what a metafile
// is.
#include "support/recorded_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/portable/metafile_stream.h"

namespace hexlume::portable_metafile_test {
namespace {

void DrawNothing(HDC) {}

TEST(PortableMetafile, nothing_drawn_is_a_header_and_an_end) {
  const RECT frame = {0, 0, 42000, 29700};
  const Words words = TakeWords(CloseEnhMetaFile(CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr)));
  const Words header = Record(
      1, Ints({0,          0,       -1,    -1,                 // bounds: nothing
               0,          0,       42000, 29700,              // frame
               0x464D4520, 0x10000, 128,                       // " EMF", version, bytes: 108 + 20
               2,          1,       0,     0,      0,          // records, handles, no description, no palette
               1024,       768,     271,   203,                // device in pixels and mm
               0,          0,       0,     271000, 203000}));  // no pixel format, device in micrometres
  EXPECT_EQ(words, header + Record(14, {0, 16, 20}));
}

TEST(PortableMetafile, a_frame_without_extent_stands_as_given) {
  const RECT frame = {100, 200, 100, 100};
  const Words words = TakeWords(CloseEnhMetaFile(CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr)));
  EXPECT_EQ(FrameOf(words), Ints({100, 200, 100, 100}));
}

// 10 pixels are 10 * 27100 / 1024 = 264 hundredths of a millimetre across, 10 * 20300 / 768 = 264 down.
TEST(PortableMetafile, a_frame_turned_round_is_made_from_the_bounds) {
  const RECT frame = {100, 0, 0, 100};
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
  SetPixel(dc, 10, 10, 0);
  EXPECT_EQ(FrameOf(TakeWords(CloseEnhMetaFile(dc))), Ints({264, 264, 264, 264}));
}

// 80000 * 27100 = 2168000000 wraps to -2126967296; / 1024 = -2077116. 80000 * 20300 still fits.
TEST(PortableMetafile, a_frame_made_from_far_bounds_wraps) {
  const Words words = RecordedWords([](HDC dc) { SetPixel(dc, 80000, 80000, 0); });
  EXPECT_EQ(FrameOf(words), Ints({-2077116, 2114583, -2077116, 2114583}));
}

TEST(PortableMetafile, records_keep_their_bytes_while_the_memory_grows) {
  constexpr int count = 50000;
  const Words words = RecordedWords([](HDC dc) {
    for (int i = 0; i < count; ++i) MoveToEx(dc, i, -i, nullptr);
  });
  ASSERT_EQ(words.size(), headerWords + 4 * count + endWords);
  for (int i = 0; i < count; ++i) {
    const auto at = words.begin() + headerWords + 4 * i;
    ASSERT_EQ(Words(at, at + 4), Record(27, Ints({i, -i}))) << i;
  }
  EXPECT_EQ(words[12], 4 * words.size());
  EXPECT_EQ(words[13], static_cast<uint32_t>(count + 2));
}

TEST(PortableMetafile, the_bits_need_a_buffer_for_all_of_them) {
  const HENHMETAFILE metafile = CloseEnhMetaFile(CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr));
  std::vector<uint8_t> buffer(128, 0xCC);
  EXPECT_EQ(GetEnhMetaFileBits(metafile, 127, buffer.data()), 0u);
  EXPECT_EQ(buffer, std::vector<uint8_t>(128, 0xCC));
  EXPECT_EQ(GetEnhMetaFileBits(metafile, 128, buffer.data()), 128u);
  EXPECT_EQ(buffer[0], 1);
  DeleteEnhMetaFile(metafile);
}

TEST(PortableMetafile, the_bytes_in_place_are_the_bits) {
  const HENHMETAFILE metafile = CloseEnhMetaFile(CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr));
  std::vector<uint8_t> bits(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, 128, bits.data());
  const uint8_t* const bytes = EnhMetaFileBytes(metafile);
  EXPECT_EQ(bits, std::vector<uint8_t>(bytes, bytes + bits.size()));
  DeleteEnhMetaFile(metafile);
}

class Collected : public MetafileStream {
 public:
  void Take(size_t place, GrowingBlock& block, size_t count) noexcept override {
    bytes.resize(std::max(bytes.size(), place + count));
    std::copy_n(block.Start(), count, bytes.begin() + static_cast<std::ptrdiff_t>(place));
  }

  std::vector<uint8_t> bytes;
};

// 100,000 records of 16 bytes are more than a piece. The bounds are in the header, which is known at the end.
HENHMETAFILE DrawMany() {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  for (int i = 0; i < 100000; ++i) LineTo(dc, i, 2 * i);
  return CloseEnhMetaFile(dc);
}

std::vector<uint8_t> TakeBits(HENHMETAFILE metafile) {
  std::vector<uint8_t> bits(GetEnhMetaFileBits(metafile, 0, nullptr));
  EXPECT_EQ(GetEnhMetaFileBits(metafile, static_cast<UINT>(bits.size()), bits.data()), bits.size());
  DeleteEnhMetaFile(metafile);
  return bits;
}

TEST(PortableMetafile, the_next_one_goes_to_the_stream_and_those_after_it_to_memory) {
  Collected collected;
  StreamNextMetafile(&collected);
  const HENHMETAFILE streamed = DrawMany();
  const std::vector<uint8_t> kept = TakeBits(DrawMany());
  EXPECT_TRUE(collected.bytes == kept);
  std::vector<uint8_t> buffer(kept.size(), 0xCC);
  const auto size = static_cast<UINT>(buffer.size());
  EXPECT_EQ(GetEnhMetaFileBits(streamed, 0, nullptr), size);
  EXPECT_EQ(GetEnhMetaFileBits(streamed, size, buffer.data()), 0u);
  EXPECT_EQ(buffer, std::vector<uint8_t>(size, 0xCC));
  EXPECT_EQ(EnhMetaFileBytes(streamed), nullptr);
  DeleteEnhMetaFile(streamed);
}

TEST(PortableMetafile, a_stream_that_is_taken_back_gets_nothing) {
  Collected collected;
  StreamNextMetafile(&collected);
  StreamNextMetafile(nullptr);
  EXPECT_LT(1600000u, TakeBits(DrawMany()).size());
  EXPECT_TRUE(collected.bytes.empty());
}

TEST(PortableMetafile, no_handle_is_no_metafile) {
  EXPECT_EQ(EnhMetaFileBytes(nullptr), nullptr);
  EXPECT_EQ(GetEnhMetaFileBits(nullptr, 0, nullptr), 0u);
  EXPECT_EQ(DeleteEnhMetaFile(nullptr), 0);
  EXPECT_EQ(CloseEnhMetaFile(nullptr), nullptr);
  EXPECT_EQ(DeleteDC(nullptr), 0);
}

TEST(PortableMetafile, a_closed_context_draws_no_more) {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  DeleteEnhMetaFile(CloseEnhMetaFile(dc));
  EXPECT_EQ(CloseEnhMetaFile(dc), nullptr);
  EXPECT_EQ(DeleteDC(dc), 0);
  EXPECT_EQ(LineTo(dc, 1, 2), 0);
  EXPECT_EQ(SetMapMode(dc, MM_HIMETRIC), 0);
  EXPECT_EQ(SelectObject(dc, GetStockObject(BLACK_PEN)), nullptr);
}

TEST(PortableMetafile, a_context_that_is_given_up_leaves_nothing) {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  LineTo(dc, 1, 2);
  EXPECT_EQ(DeleteDC(dc), 1);
  EXPECT_EQ(DeleteDC(dc), 0);
}

TEST(PortableMetafile, an_older_context_draws_on_beside_a_newer_one) {
  const HDC older = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  const Words newer = RecordedWords([older](HDC dc) {
    EXPECT_EQ(MoveToEx(older, 1, 2, nullptr), 1);
    EXPECT_EQ(MoveToEx(dc, 3, 4, nullptr), 1);
  });
  EXPECT_EQ(BodyOf(newer), Record(27, {3, 4}));
  EXPECT_EQ(BodyOf(TakeWords(CloseEnhMetaFile(older))), Record(27, {1, 2}));
}

TEST(PortableMetafile, only_a_metafile_in_memory_for_the_display_is_made) {
  EXPECT_EQ(CreateEnhMetaFileA(nullptr, "file.emf", nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateEnhMetaFileA(nullptr, nullptr, nullptr, "description"), nullptr);
}

// In MM_HIMETRIC 1000 is 37.8 pixels across and -1000 is 37.8 down; in MM_TEXT a unit is a pixel.
TEST(PortableMetafile, bounds_are_those_of_every_map_mode_together) {
  const Words words = RecordedWords([](HDC dc) {
    SetPixel(dc, 5, 100, 0);
    SetMapMode(dc, MM_HIMETRIC);
    SetPixel(dc, 1000, -1000, 0);
    SetMapMode(dc, MM_TEXT);
    SetPixel(dc, 7, 3, 0);
  });
  EXPECT_EQ(BoundsOf(words), Ints({5, 3, 38, 100}));
}

TEST(PortableMetafile, a_move_alone_has_no_bounds) {
  const Words words = RecordedWords([](HDC dc) { MoveToEx(dc, 5, 6, nullptr); });
  EXPECT_EQ(BoundsOf(words), Ints({0, 0, -1, -1}));
  EXPECT_EQ(BoundsOf(RecordedWords(DrawNothing)), Ints({0, 0, -1, -1}));
}

}  // namespace
}  // namespace hexlume::portable_metafile_test
