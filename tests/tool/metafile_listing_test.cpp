#include "tools/hexlume/metafile/metafile_listing.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

namespace hexlume::metafile_listing_test {
namespace {

using Words = std::vector<uint32_t>;

constexpr uint32_t utf16Pair(uint32_t first, uint32_t second) {
  return first | second << 16;
}
constexpr uint32_t pointPair(int16_t x, int16_t y) {
  return utf16Pair(uint16_t(x), uint16_t(y));
}

uint32_t FloatBits(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

// A record is its type, its size in bytes and its contents.
Words Record(uint32_t type, const Words& contents) {
  Words record{type, static_cast<uint32_t>(8 + 4 * contents.size())};
  record.insert(record.end(), contents.begin(), contents.end());
  return record;
}

const Words bounds{0, 0, 0, 0};
const Words eofRecord = Record(14, {0, 0, 20});

Words operator+(const Words& a, const Words& b) {
  Words sum = a;
  sum.insert(sum.end(), b.begin(), b.end());
  return sum;
}

Words Header(int32_t left, int32_t top, int32_t right, int32_t bottom) {
  Words contents(25, 0);
  contents[4] = left;
  contents[5] = top;
  contents[6] = right;
  contents[7] = bottom;
  contents[8] = 0x464D4520;
  return Record(1, contents);
}

const std::string frameLine = "Frame(0, -1, 42000, 29700)\n";

struct Listing {
  bool sound;
  std::string text;
};

Listing ListBytes(const void* bytes, size_t size) {
  std::ostringstream out;
  const bool sound = ListMetafile(static_cast<const uint8_t*>(bytes), size, out);
  return {sound, out.str()};
}

Listing List(const Words& metafile) {
  return ListBytes(metafile.data(), 4 * metafile.size());
}

// The lines of these records between a header and an end record, all of them sound.
std::string Lines(const Words& records) {
  const Listing listing = List(Header(0, -1, 42000, 29700) + records + eofRecord);
  EXPECT_TRUE(listing.sound);
  EXPECT_EQ(frameLine, listing.text.substr(0, frameLine.size()));
  return listing.text.substr(frameLine.size());
}

// The line of a record whose contents don't fit: itself as unknown, and the one after it.
void ExpectMisfit(const Words& record) {
  const Listing listing = List(Header(0, -1, 42000, 29700) + record + Record(54, {1, 2}) + eofRecord);
  EXPECT_FALSE(listing.sound);
  EXPECT_EQ(frameLine + "Record(" + std::to_string(record[0]) + ", " + std::to_string(record[1]) +
                ")\nLineTo(1, 2)\n",
            listing.text);
}

TEST(MetafileListing, an_empty_metafile_has_its_frame_only) {
  EXPECT_EQ("", Lines({}));
}

TEST(MetafileListing, points) {
  EXPECT_EQ("MoveToEx(-5, 7)\nLineTo(2147483647, -2147483648)\n",
            Lines(Record(27, {uint32_t(-5), 7}) + Record(54, {0x7FFFFFFF, 0x80000000})));
  EXPECT_EQ("SetPixelV(1, 2, 0x0A0B0C)\n", Lines(Record(15, {1, 2, 0x0A0B0C})));
}

TEST(MetafileListing, modes_by_name) {
  EXPECT_EQ("SetMapMode(MM_HIMETRIC)\nSetMapMode(MM_ANISOTROPIC)\n",
            Lines(Record(17, {3}) + Record(17, {8})));
  EXPECT_EQ("SetBkMode(TRANSPARENT)\nSetBkMode(OPAQUE)\n", Lines(Record(18, {1}) + Record(18, {2})));
  EXPECT_EQ("SetPolyFillMode(ALTERNATE)\nSetPolyFillMode(WINDING)\n",
            Lines(Record(19, {1}) + Record(19, {2})));
  EXPECT_EQ("SetArcDirection(AD_COUNTERCLOCKWISE)\nSetArcDirection(AD_CLOCKWISE)\n",
            Lines(Record(57, {1}) + Record(57, {2})));
}

TEST(MetafileListing, an_unknown_mode_is_a_number) {
  EXPECT_EQ("SetMapMode(99)\n", Lines(Record(17, {99})));
}

TEST(MetafileListing, text_settings) {
  EXPECT_EQ("SetTextAlign(24)\nSetTextColor(0xFF00AA)\n", Lines(Record(22, {24}) + Record(24, {0xFF00AA})));
}

TEST(MetafileListing, a_color_beyond_24_bits_shows_all_of_them) {
  EXPECT_EQ("SetTextColor(0x1FF00AA)\n", Lines(Record(24, {0x01FF00AA})));
}

TEST(MetafileListing, pens_and_brushes) {
  EXPECT_EQ("CreatePen(1, PS_SOLID, 0, 0x0000FF)\nCreatePen(2, PS_DASHDOTDOT, 35, 0x000007)\n",
            Lines(Record(38, {1, 0, 0, 0, 0x0000FF}) + Record(38, {2, 4, 35, 0, 7})));
  EXPECT_EQ(
      "CreateBrushIndirect(2, BS_SOLID, 0x00FF00, 0)\nCreateBrushIndirect(3, BS_HATCHED, 0x000000, 5)\n",
      Lines(Record(39, {2, 0, 0x00FF00, 0}) + Record(39, {3, 2, 0, 5})));
}

TEST(MetafileListing, objects_by_index_and_stock_objects_by_name) {
  EXPECT_EQ("SelectObject(1)\nSelectObject(BLACK_PEN)\nSelectObject(NULL_BRUSH)\nSelectObject(SYSTEM_FONT)\n",
            Lines(Record(37, {1}) + Record(37, {0x80000007}) + Record(37, {0x80000005}) +
                  Record(37, {0x8000000D})));
  EXPECT_EQ("DeleteObject(1)\n", Lines(Record(40, {1})));
}

TEST(MetafileListing, every_stock_object_has_a_name) {
  for (uint32_t stock = 0; stock <= 19; ++stock) {
    if (stock == 9) continue;  // never given out
    EXPECT_TRUE(std::isupper(Lines(Record(37, {0x80000000 | stock}))[std::strlen("SelectObject(")])) << stock;
  }
}

TEST(MetafileListing, ellipse_and_arc) {
  EXPECT_EQ("Ellipse(-1, 2, 30, 40)\n", Lines(Record(42, {uint32_t(-1), 2, 30, 40})));
  EXPECT_EQ("Arc(1, 2, 3, 4, 5, 6, 7, 8)\n", Lines(Record(45, {1, 2, 3, 4, 5, 6, 7, 8})));
}

TEST(MetafileListing, angles_to_nine_digits) {
  EXPECT_EQ("AngleArc(10, 20, 300, 45.5, -0.100000001)\n",
            Lines(Record(41, {10, 20, 300, FloatBits(45.5f), FloatBits(-0.1f)})));
}

TEST(MetafileListing, angles_far_from_one) {
  EXPECT_EQ("AngleArc(0, 0, 4294967295, 1.00000002e+20, -9.31322575e-10)\n",
            Lines(Record(41, {0, 0, 0xFFFFFFFF, FloatBits(1e20f), FloatBits(-1.0f / (1 << 30))})));
}

TEST(MetafileListing, points_of_16_and_32_bits_give_the_same_line) {
  const Words wide{3, 1, 2, uint32_t(-3), 4, 5, uint32_t(-6)};
  const Words narrow{3, pointPair(1, 2), pointPair(-3, 4), pointPair(5, -6)};
  EXPECT_EQ("PolyBezier(1, 2, -3, 4, 5, -6)\n", Lines(Record(2, bounds + wide)));
  EXPECT_EQ("PolyBezier(1, 2, -3, 4, 5, -6)\n", Lines(Record(85, bounds + narrow)));
  EXPECT_EQ("Polygon(1, 2, -3, 4, 5, -6)\n", Lines(Record(3, bounds + wide)));
  EXPECT_EQ("Polygon(1, 2, -3, 4, 5, -6)\n", Lines(Record(86, bounds + narrow)));
}

TEST(MetafileListing, no_points) {
  EXPECT_EQ("Polygon()\nPolygon()\n", Lines(Record(3, bounds + Words{0}) + Record(86, bounds + Words{0})));
}

// Handle, five numbers, eight flag bytes, 32 units of face.
Words Font(const std::vector<uint16_t>& face) {
  Words contents{3, uint32_t(-250), 0, 900, 901, 400, 0x80010001, 0x31020103};
  for (size_t i = 0; i < 32; i += 2) {
    contents.push_back(utf16Pair(i < face.size() ? face[i] : 0, i + 1 < face.size() ? face[i + 1] : 0));
  }
  return Record(82, contents);
}

TEST(MetafileListing, a_font_with_a_japanese_face) {
  EXPECT_EQ(
      "CreateFont(3, -250, 0, 900, 901, 400, 1, 0, 1, 128, 3, 1, 2, 49, \"\xEF\xBC\xAD\xE6\x98\x8E\")\n",
      Lines(Font({0xFF2D, 0x660E})));
}

TEST(MetafileListing, a_face_without_an_end_is_32_units_long) {
  const std::string line = Lines(Font(std::vector<uint16_t>(32, 'x')));
  EXPECT_NE(std::string::npos, line.find("\"" + std::string(32, 'x') + "\")\n"));
}

// Reference point, count, offset of the string, options, a rectangle, offset of the distances; then the
// string.
Words TextOut(uint32_t count, uint32_t offset, const Words& text) {
  const Words start{1, FloatBits(1), FloatBits(1), 100, uint32_t(-200), count, offset, 4};
  return Record(84, bounds + start + Words{0, 0, 0, 0, 0} + text);
}

TEST(MetafileListing, text_as_utf8) {
  EXPECT_EQ("ExtTextOutW(100, -200, 4, \"A\xC3\xA9\xE5\x9B\xB3\xF0\xA0\xAE\xB7\")\n",
            Lines(TextOut(5, 76, {utf16Pair('A', 0xE9), utf16Pair(0x56F3, 0xD842), utf16Pair(0xDFB7, 0)})));
}

TEST(MetafileListing, quotes_backslashes_and_control_characters_are_escaped) {
  EXPECT_EQ("ExtTextOutW(100, -200, 4, \"\\\"\\\\\\u000A\\u0000\\u007F\\u0085\")\n",
            Lines(TextOut(6, 76, {utf16Pair('"', '\\'), utf16Pair('\n', 0), utf16Pair(0x7F, 0x85)})));
}

TEST(MetafileListing, lone_surrogates_are_escaped) {
  EXPECT_EQ("ExtTextOutW(100, -200, 4, \"\\uDC00a\\uD800\\uD801\")\n",
            Lines(TextOut(4, 76, {utf16Pair(0xDC00, 'a'), utf16Pair(0xD800, 0xD801)})));
}

TEST(MetafileListing, an_empty_text) {
  EXPECT_EQ("ExtTextOutW(100, -200, 4, \"\")\n", Lines(TextOut(0, 76, {})));
}

Words Region(uint32_t count, const Words& rectangles) {
  return Words{32, 1, count, uint32_t(4 * rectangles.size()), 1, 2, 30, 40} + rectangles;
}

const Words threeRectangles{1, 2, 10, 3, 20, 2, 30, 3, uint32_t(-1), 3, 5, 40};

TEST(MetafileListing, a_region_is_listed_band_by_band) {
  EXPECT_EQ("FillRgn(7, 1, 2, 30, 40, 3, 2..3:1..10 20..30, 3..40:-1..5)\n",
            Lines(Record(71, bounds + Words{80, 7} + Region(3, threeRectangles))));
  EXPECT_EQ("ExtSelectClipRgn(RGN_AND, 1, 2, 30, 40, 3, 2..3:1..10 20..30, 3..40:-1..5)\n",
            Lines(Record(75, Words{80, 1} + Region(3, threeRectangles))));
}

TEST(MetafileListing, regions_without_rectangles) {
  EXPECT_EQ("FillRgn(7, 1, 2, 30, 40, 0)\n", Lines(Record(71, bounds + Words{32, 7} + Region(0, {}))));
  EXPECT_EQ("ExtSelectClipRgn(RGN_COPY)\n", Lines(Record(75, {0, 5})));
}

TEST(MetafileListing, comments_and_other_records) {
  EXPECT_EQ("GdiComment(5)\n", Lines(Record(70, {5, 0, 0})));
  EXPECT_EQ("Record(20, 12)\nRecord(4242, 8)\n", Lines(Record(20, {13}) + Record(4242, {})));
}

TEST(MetafileListing, what_follows_the_end_record_is_not_listed) {
  const Listing listing = List(Header(0, -1, 42000, 29700) + eofRecord + Record(54, {1, 2}));
  EXPECT_TRUE(listing.sound);
  EXPECT_EQ(frameLine, listing.text);
}

TEST(MetafileListing, bytes_that_are_no_metafile) {
  EXPECT_FALSE(ListBytes(nullptr, 0).sound);
  EXPECT_FALSE(ListBytes("MZ", 2).sound);
  EXPECT_FALSE(List(Record(54, {1, 2})).sound);
  Words withoutSignature = Header(0, 0, 1, 1) + eofRecord;
  withoutSignature[10] = 0;
  const Listing listing = List(withoutSignature);
  EXPECT_FALSE(listing.sound);
  EXPECT_EQ("", listing.text);
}

TEST(MetafileListing, a_header_too_short_to_be_one) {
  EXPECT_FALSE(List(Record(1, {0, 0, 0, 0, 0, 0, 0, 0, 0x464D4520}) + eofRecord).sound);
}

TEST(MetafileListing, cut_off_at_any_byte_it_is_malformed_and_lists_what_is_whole) {
  const Words metafile = Header(0, -1, 42000, 29700) + Record(54, {1, 2}) + Font({'a'}) +
                         TextOut(2, 76, {utf16Pair('a', 'b')}) +
                         Record(71, bounds + Words{80, 7} + Region(3, threeRectangles)) + eofRecord;
  const std::string whole = List(metafile).text;
  for (size_t size = 0; size < 4 * metafile.size(); ++size) {
    // A copy of just that size, so that a checking build sees a read after it.
    std::vector<uint8_t> bytes(size);
    if (size > 0) std::memcpy(bytes.data(), metafile.data(), size);
    const Listing listing = ListBytes(bytes.data(), size);
    EXPECT_FALSE(listing.sound) << size;
    EXPECT_EQ(whole.substr(0, listing.text.size()), listing.text) << size;
  }
}

TEST(MetafileListing, a_record_of_a_size_that_cannot_be) {
  for (const uint32_t size : {0u, 4u, 7u, 10u, 400u, 0x7FFFFFFCu, 0xFFFFFFFCu, 0xFFFFFFFFu}) {
    const Listing listing =
        List(Header(0, -1, 42000, 29700) + Record(54, {1, 2}) + Words{54, size, 3, 4} + eofRecord);
    EXPECT_FALSE(listing.sound) << size;
    EXPECT_EQ(frameLine + "LineTo(1, 2)\n", listing.text) << size;
  }
}

TEST(MetafileListing, records_shorter_than_their_fields) {
  for (const uint32_t type :
       {2, 3, 15, 17, 18, 19, 22, 24, 27, 37, 38, 39, 40, 41, 42, 45, 54, 57, 70, 71, 75, 82, 84, 85, 86}) {
    ExpectMisfit(Record(type, {}));
  }
  ExpectMisfit(Record(27, {1}));
  ExpectMisfit(Record(45, {1, 2, 3, 4, 5, 6, 7}));
  ExpectMisfit(Record(38, {1, 0, 0, 0}));
}

TEST(MetafileListing, counts_beyond_their_record) {
  for (const uint32_t count : {2u, 0x20000001u, 0x40000001u, 0x80000001u, 0xFFFFFFF0u}) {
    ExpectMisfit(Record(3, bounds + Words{count, 1, 2}));
    ExpectMisfit(Record(86, bounds + Words{count, 1}));
    ExpectMisfit(Record(71, bounds + Words{48, 7} + Region(count, {1, 2, 3, 4})));
    ExpectMisfit(Record(75, Words{48, 5} + Region(count, {1, 2, 3, 4})));
    ExpectMisfit(TextOut(count + 1, 76, {utf16Pair('a', 'b')}));
    ExpectMisfit(Record(70, {count + 3, 0}));
  }
}

TEST(MetafileListing, strings_and_regions_that_lie_outside_their_record) {
  ExpectMisfit(TextOut(2, 78, {utf16Pair('a', 'b')}));
  ExpectMisfit(TextOut(0, 0xFFFFFFFF, {}));
  ExpectMisfit(TextOut(2, 0xFFFFFFFE, {utf16Pair('a', 'b')}));
  ExpectMisfit(Record(71, bounds + Words{84, 7} + Region(3, threeRectangles)));
  ExpectMisfit(Record(71, bounds + Words{0xFFFFFFFF, 7} + Region(3, threeRectangles)));
  Words shortHeader = Record(75, Words{80, 1} + Region(3, threeRectangles));
  shortHeader[4] = 16;
  ExpectMisfit(shortHeader);
  shortHeader[4] = 0xFFFFFFFF;
  ExpectMisfit(shortHeader);
}

}  // namespace
}  // namespace hexlume::metafile_listing_test
