// The records of text and fonts. What they hold was measured with GDI under Wine; tests/support/gdi_probe
// compares far more of them byte for byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "platform/gdi.h"

namespace hexlume::portable_text_test {

namespace {

constexpr uint32_t createFontType = 82;
constexpr uint32_t textType = 84;

using Bytes = std::vector<uint8_t>;

int32_t NumberAt(const Bytes& record, size_t place) {
  int32_t number = 0;
  if (place + sizeof number <= record.size()) std::memcpy(&number, &record[place], sizeof number);
  return number;
}

std::vector<int32_t> Numbers(const Bytes& record, size_t place, size_t count) {
  std::vector<int32_t> numbers;
  for (size_t i = 0; i < count; ++i) numbers.push_back(NumberAt(record, place + 4 * i));
  return numbers;
}

using Row = std::vector<int32_t>;

class PortableText : public testing::Test {
 protected:
  void SetUp() override { SetMapMode(dc, MM_HIMETRIC); }
  void TearDown() override { DeleteDC(dc); }

  void SelectFont(LONG height, const char* face = "") {
    LOGFONTA logFont = {};
    logFont.lfHeight = height;
    logFont.lfCharSet = SHIFTJIS_CHARSET;
    logFont.lfClipPrecision = 16;
    std::memcpy(logFont.lfFaceName, face, std::min(std::strlen(face), sizeof logFont.lfFaceName - 1));
    const HFONT font = CreateFontIndirectA(&logFont);
    SelectObject(dc, font);
    DeleteObject(font);
  }

  // Closes the metafile and gives its records of a type.
  std::vector<Bytes> Records(uint32_t type) {
    const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    dc = nullptr;
    Bytes all(GetEnhMetaFileBits(metafile, 0, nullptr));
    GetEnhMetaFileBits(metafile, static_cast<UINT>(all.size()), all.data());
    DeleteEnhMetaFile(metafile);
    std::vector<Bytes> found;
    for (size_t place = 0; place + 8 <= all.size();) {
      const size_t size = std::max(static_cast<uint32_t>(NumberAt(all, place + 4)), 8u);
      if (static_cast<uint32_t>(NumberAt(all, place)) == type) {
        found.emplace_back(all.begin() + static_cast<ptrdiff_t>(place),
                           all.begin() + static_cast<ptrdiff_t>(place + size));
      }
      place += size;
    }
    return found;
  }

  Bytes OnlyText() {
    const std::vector<Bytes> records = Records(textType);
    EXPECT_EQ(records.size(), 1u);
    return records.empty() ? Bytes(76) : records.front();
  }

  HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
};

TEST_F(PortableText, a_text_is_recorded_in_utf_16_with_an_advance_for_each_character) {
  EXPECT_EQ(TextOutA(dc, 100, -500, "A\x83\x4A\xB6", 4), 1);
  const Bytes record = OnlyText();
  // Three units of two bytes are filled up to eight.
  EXPECT_EQ(record.size(), 76u + 8 + 12);
  EXPECT_EQ(NumberAt(record, 24), 1);                                 // graphics mode
  EXPECT_EQ(NumberAt(record, 28), 0x3F800000);                        // 1.0f
  EXPECT_EQ(NumberAt(record, 32), static_cast<int32_t>(0xBF800000));  // -1.0f
  EXPECT_EQ(Numbers(record, 36, 5), (Row{100, -500, 3, 76, 0}));
  EXPECT_EQ(Numbers(record, 56, 5), (Row{0, 0, -1, -1, 84}));
  EXPECT_EQ(Numbers(record, 76, 2), (Row{0x30AB0041, 0x0000FF76}));
}

TEST_F(PortableText, character_extra_goes_to_each_advance) {
  TextOutA(dc, 0, 0, "AB", 2);
  EXPECT_EQ(SetTextCharacterExtra(dc, 50), 0);
  TextOutA(dc, 0, 0, "AB", 2);
  const std::vector<Bytes> records = Records(textType);
  ASSERT_EQ(records.size(), 2u);
  const Row plain = Numbers(records[0], 80, 2);
  EXPECT_EQ(Numbers(records[1], 80, 2), (Row{plain[0] + 50, plain[1] + 50}));
}

// Widths are kept in 256 rows, where A and the second character, U+3041, have the same place.
TEST_F(PortableText, an_advance_is_that_of_its_font_and_character_whatever_was_drawn_before) {
  for (const LONG height : {1000, 500, 1000}) {
    SelectFont(height);
    TextOutA(dc, 0, 0,
             "A\x82\x9F"
             "A",
             4);
  }
  std::vector<Row> rows;
  for (const Bytes& record : Records(textType)) rows.push_back(Numbers(record, 84, 3));
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0][0], rows[0][2]);
  EXPECT_LT(rows[0][0], rows[0][1]);
  EXPECT_LT(rows[1][0], rows[0][0]);
  EXPECT_EQ(rows[0], rows[2]);
}

TEST_F(PortableText, the_bounds_of_a_text_follow_its_alignment) {
  SetTextAlign(dc, TA_BOTTOM);
  TextOutA(dc, 100, -500, "AB", 2);
  SetTextAlign(dc, TA_TOP);
  TextOutA(dc, 100, -500, "AB", 2);
  SetTextAlign(dc, TA_RIGHT);
  TextOutA(dc, 100, -500, "AB", 2);
  TEXTMETRICA metrics = {};
  GetTextMetricsA(dc, &metrics);
  const LONG height = metrics.tmHeight;
  const std::vector<Bytes> records = Records(textType);
  ASSERT_EQ(records.size(), 3u);
  const LONG width = NumberAt(records[0], 80) + NumberAt(records[0], 84);
  EXPECT_EQ(Numbers(records[0], 8, 4), (Row{100, -501 - height, 101 + width, -500}));
  EXPECT_EQ(Numbers(records[1], 8, 4), (Row{100, -500, 101 + width, -499 + height}));
  EXPECT_EQ(Numbers(records[2], 8, 4), (Row{99 - width, -500, 100, -499 + height}));
}

TEST_F(PortableText, an_empty_text_is_recorded_without_a_size) {
  EXPECT_EQ(TextOutA(dc, 100, -500, "", 0), 1);
  const Bytes record = OnlyText();
  EXPECT_EQ(record.size(), 76u);
  EXPECT_EQ(Numbers(record, 8, 4), (Row{100, -500, 101, -499}));
}

TEST_F(PortableText, a_text_of_negative_length_is_not_recorded) {
  EXPECT_EQ(TextOutA(dc, 0, 0, "A", -1), 0);
  EXPECT_EQ(TextOutA(nullptr, 0, 0, "A", 1), 0);
  EXPECT_TRUE(Records(textType).empty());
}

TEST_F(PortableText, the_box_of_a_text_at_the_ends_of_the_plane_wraps_around) {
  // An empty text is 1 wide and high: above its point if its bottom is aligned, else below.
  TextOutA(dc, INT32_MAX, INT32_MAX, "", 0);
  SetTextAlign(dc, TA_BOTTOM);
  TextOutA(dc, INT32_MIN, INT32_MIN, "", 0);
  const std::vector<Bytes> records = Records(textType);
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(Numbers(records[0], 8, 4), (Row{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN}));
  EXPECT_EQ(Numbers(records[1], 8, 4), (Row{INT32_MIN, INT32_MAX, INT32_MIN + 1, INT32_MIN}));
}

TEST_F(PortableText, a_text_whose_characters_are_billions_wide_is_recorded) {
  SetTextCharacterExtra(dc, INT32_MAX);
  TextOutA(dc, 0, 0, "ABC", 3);
  SetTextCharacterExtra(dc, INT32_MIN);
  SetTextAlign(dc, TA_CENTER | TA_BASELINE);
  TextOutA(dc, 0, 0, "ABC", 3);
  EXPECT_EQ(Records(textType).size(), 2u);
}

TEST_F(PortableText, a_font_is_recorded_as_it_was_made) {
  SelectFont(1000, "\x82\x6C\x82\x72\x20\x83\x53");
  const std::vector<Bytes> records = Records(createFontType);
  ASSERT_EQ(records.size(), 1u);
  const Bytes& record = records.front();
  EXPECT_EQ(record.size(), 332u);
  EXPECT_EQ(Numbers(record, 8, 6), (Row{1, 1000, 0, 0, 0, 0}));
  EXPECT_EQ(NumberAt(record, 32),
            static_cast<int32_t>(0x80000000));  // the set of characters, in the fourth byte
  EXPECT_EQ(NumberAt(record, 36), 0x00001000);  // the clip precision, in the second
  EXPECT_EQ(Numbers(record, 40, 3), (Row{static_cast<int32_t>(0xFF33FF2D), 0x30B40020, 0}));
}

TEST_F(PortableText, a_long_face_name_is_recorded_with_31_characters) {
  SelectFont(500, "A face whose name is longer than a record's");
  const std::vector<Bytes> records = Records(createFontType);
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(NumberAt(records[0], 40 + 60) & 0xFFFF, 'a');
  EXPECT_EQ(NumberAt(records[0], 40 + 60) >> 16, 0);
}

}  // namespace

}  // namespace hexlume::portable_text_test
