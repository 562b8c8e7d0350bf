#include "driver/text_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/bytes_source.h"
#include "support/text_drawing.h"
#include "support/text_groups.h"

namespace hexlume::text_stream_test {
namespace {

constexpr size_t chunkSize = 256 * 1024;  // what the stream fetches at a time
constexpr char endMark = 0x1A;

// All lines of a text of these bytes, a line taken up to limit - 1 characters.
std::vector<std::string> Lines(const std::string& bytes, int32_t limit = 256) {
  TemporaryFile file(bytes);
  TextStream stream;
  if (!OpenText(stream, file.Path())) return {"not opened"};
  std::vector<std::string> lines;
  std::vector<char> line(static_cast<size_t>(limit));
  while (ReadLine(stream, line.data(), limit)) lines.push_back(line.data());
  return lines;
}

using Texts = std::vector<std::string>;

TEST(TextStream, a_line_is_read_with_its_line_feed) {
  EXPECT_EQ((Texts{"AB\n", "\n", "C\n"}), Lines("AB\n\nC\n"));
}

TEST(TextStream, cr_lf_reads_as_one_line_feed) {
  EXPECT_EQ((Texts{"AB\n", "\n", "C\n"}), Lines("AB\r\n\r\nC\r\n"));
}

TEST(TextStream, line_ends_of_both_kinds_mix) {
  EXPECT_EQ((Texts{"A\n", "B\n", "C\n"}), Lines("A\r\nB\nC\r\n"));
}

TEST(TextStream, a_lone_cr_is_a_character_of_its_line) {
  EXPECT_EQ((Texts{"A\rB\n"}), Lines("A\rB\n"));
  EXPECT_EQ((Texts{"A\r\n"}), Lines("A\r\r\n"));  // the second one belongs to the line feed
  EXPECT_EQ((Texts{"\n", "\rA\n"}), Lines("\n\rA\n"));
  EXPECT_EQ((Texts{"A\r"}), Lines("A\r"));
}

TEST(TextStream, the_last_line_needs_no_line_end) {
  EXPECT_EQ((Texts{"A\n", "B"}), Lines("A\nB"));
}

TEST(TextStream, an_empty_file_has_no_line) {
  EXPECT_EQ(Texts{}, Lines(""));
}

TEST(TextStream, the_end_mark_ends_the_text) {
  EXPECT_EQ((Texts{"A\n", "B"}), Lines("A\nB\x1A"
                                       "C\nD\n"));
  EXPECT_EQ((Texts{"A\n"}), Lines("A\n\x1A\nD\n"));
  EXPECT_EQ(Texts{}, Lines("\x1A"
                           "A\n"));
  EXPECT_EQ((Texts{"A\r"}), Lines("A\r\x1A\nD\n"));
}

TEST(TextStream, a_0_byte_is_a_character) {
  TemporaryFile file(std::string("A\0B\nC\n", 6));
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  char line[8];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  EXPECT_EQ(std::string("A\0B\n\0", 5), std::string(line, 5));
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  EXPECT_STREQ("C\n", line);
}

TEST(TextStream, bytes_beyond_ascii_stay) {
  EXPECT_EQ((Texts{"\x83\x8c\x83\x43\x83\x84\xff\n"}), Lines("\x83\x8c\x83\x43\x83\x84\xff\n"));
}

TEST(TextStream, a_line_is_cut_at_the_limit_and_its_rest_is_the_next_line) {
  const std::string a254(254, 'a'), a255(255, 'a'), a256(256, 'a');
  EXPECT_EQ((Texts{a254 + "\n", "b\n"}), Lines(a254 + "\nb\n"));
  EXPECT_EQ((Texts{a255, "\n", "b\n"}), Lines(a255 + "\nb\n"));
  EXPECT_EQ((Texts{a255, "a\n", "b\n"}), Lines(a256 + "\nb\n"));
}

TEST(TextStream, cr_lf_counts_as_one_character_at_the_limit) {
  const std::string a254(254, 'a'), a255(255, 'a'), a256(256, 'a');
  EXPECT_EQ((Texts{a254 + "\n", "b\n"}), Lines(a254 + "\r\nb\r\n"));
  EXPECT_EQ((Texts{a255, "\n", "b\n"}), Lines(a255 + "\r\nb\r\n"));
  EXPECT_EQ((Texts{a255, "a\n", "b\n"}), Lines(a256 + "\r\nb\r\n"));
}

TEST(TextStream, any_limit_is_kept) {
  EXPECT_EQ((Texts{"ABC", "\n", "D\n"}), Lines("ABC\r\nD\n", 4));
  EXPECT_EQ((Texts{"A", "B", "\n"}), Lines("AB\r\n", 2));
}

TEST(TextStream, a_read_behind_the_end_leaves_the_line_as_it_was) {
  TemporaryFile file("AB\n");
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  char line[8];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  EXPECT_FALSE(ReadLine(stream, line, sizeof line));
  EXPECT_FALSE(ReadLine(stream, line, sizeof line));
  EXPECT_STREQ("AB\n", line);
}

TEST(TextStream, a_missing_file_is_not_opened) {
  TextStream stream;
  EXPECT_FALSE(OpenText(stream, MissingPath().c_str()));
}

TEST(TextStream, an_empty_path_is_not_opened) {
  TextStream stream;
  EXPECT_FALSE(OpenText(stream, ""));
}

TEST(TextStream, a_folder_is_not_opened) {
  TextStream stream;
  EXPECT_FALSE(OpenText(stream, TemporaryFolder().c_str()));
}

TEST(TextStream, a_stream_opened_again_starts_anew) {
  TemporaryFile first("A\nB\nC\n"), second("D\n");
  TextStream stream;
  char line[8];
  ASSERT_TRUE(OpenText(stream, first.Path()));
  while (ReadLine(stream, line, sizeof line)) {
  }
  ASSERT_TRUE(OpenText(stream, second.Path()));
  EXPECT_EQ(0, Tell(stream));
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  EXPECT_STREQ("D\n", line);
}

// THE END OF A LINE

// Lines of all lengths around the limits, with everything that ends one or looks as if it did.
std::string RandomLines(std::mt19937& random, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    bytes.append(random() % 4 ? random() % 8 : 250 + random() % 12, 'a');
    for (unsigned tail = random() % 4; tail > 0; --tail) bytes += "\r\n\ra"[random() % 4];
    bytes += random() % 3 ? "\n" : "\r\n";
    if (random() % 8 == 0) bytes += '\0';
  }
  return bytes;
}

TEST(EndOfLine, it_is_the_place_after_the_line_that_is_read) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    const TemporaryFile file(RandomLines(random, 20));
    for (const int32_t limit : {2, 3, 4, 7, 256}) {
      TextStream stream;
      ASSERT_TRUE(OpenText(stream, file.Path()));
      char line[256];
      for (;;) {
        const int32_t end = EndOfLine(stream, Tell(stream), limit);
        if (!ReadLine(stream, line, limit)) break;
        if (end == notFetched) {
          ASSERT_EQ(stream.size, Tell(stream)) << round << ' ' << limit;
        } else {
          ASSERT_EQ(Tell(stream), end) << round << ' ' << limit;
        }
      }
    }
  }
}

TEST(EndOfLine, a_line_feed_as_the_character_after_the_limit_is_the_next_line) {
  const TextStream stream = StreamOfBytes("abc\ndef\r\n\nghi");
  EXPECT_EQ(3, EndOfLine(stream, 0, 4));
  EXPECT_EQ(4, EndOfLine(stream, 0, 5));
  EXPECT_EQ(4, EndOfLine(stream, 3, 4));
  EXPECT_EQ(7, EndOfLine(stream, 4, 4));  // three characters, and CR LF would be a fourth
  EXPECT_EQ(9, EndOfLine(stream, 4, 5));
  EXPECT_EQ(10, EndOfLine(stream, 9, 4));
}

TEST(EndOfLine, a_line_that_is_not_fetched_to_its_end_has_none) {
  const TextStream stream = StreamOfBytes("abc");
  EXPECT_EQ(notFetched, EndOfLine(stream, 0, 4));  // a line feed may follow
  EXPECT_EQ(2, EndOfLine(stream, 0, 3));
  EXPECT_EQ(notFetched, EndOfLine(stream, 3, 4));
}

// CHUNK BORDERS

// Lines that end in CR LF and are 64 bytes long with it, the first one with extra bytes more; a line feed
// ends the chunk if extra is 0.
std::string LinesAcrossBorder(size_t extra) {
  std::string bytes(extra, 'x');
  while (bytes.size() < chunkSize + 1000)
    bytes += std::string(62, static_cast<char>('a' + bytes.size() / 64 % 26)) + "\r\n";
  return bytes;
}

Texts ExpectedLines(const std::string& bytes) {
  Texts lines;
  for (size_t start = 0; start < bytes.size();) {
    const size_t cr = bytes.find('\r', start);
    lines.push_back(bytes.substr(start, cr - start) + "\n");
    start = cr + 2;
  }
  return lines;
}

TEST(TextStreamBorder, cr_lf_on_the_border_of_two_chunks_is_one_line_feed) {
  for (size_t extra = 0; extra < 4; ++extra) {
    const std::string bytes = LinesAcrossBorder(extra);
    if (extra == 1) {
      ASSERT_EQ("\r\n", bytes.substr(chunkSize - 1, 2));
    }
    EXPECT_EQ(ExpectedLines(bytes), Lines(bytes)) << extra;
  }
}

TEST(TextStreamBorder, a_lone_cr_at_the_border_stays) {
  const std::string a(chunkSize - 3, 'a');
  const Texts lines = Lines(a + "\nb\rc\n", static_cast<int32_t>(chunkSize));
  ASSERT_EQ(2u, lines.size());
  EXPECT_EQ("b\rc\n", lines[1]);
}

TEST(TextStreamBorder, a_file_as_long_as_a_chunk_ends_there) {
  const std::string bytes = LinesAcrossBorder(0).substr(0, chunkSize);
  EXPECT_EQ(ExpectedLines(bytes), Lines(bytes));
}

TEST(TextStreamBorder, an_end_mark_behind_the_border_ends_the_text) {
  for (const size_t behind : {size_t{0}, size_t{1}, size_t{70}}) {
    std::string bytes = LinesAcrossBorder(0);
    bytes[chunkSize + behind] = endMark;
    const Texts lines = Lines(bytes);
    // 4,096 lines of 64 bytes before the border, then the whole lines and the broken one after it.
    ASSERT_EQ(4096 + (behind + 63) / 64, lines.size());
    EXPECT_EQ(behind % 64 == 0 ? 64u - 1 : behind % 64, lines.back().size());
  }
}

TEST(TextStreamBorder, nothing_behind_an_end_mark_is_read_in_a_later_chunk) {
  std::string bytes = LinesAcrossBorder(0) + LinesAcrossBorder(0);
  bytes[64] = endMark;
  EXPECT_EQ(1u, Lines(bytes).size());
}

TEST(TextStream, a_small_file_takes_little_memory) {
  TemporaryFile file("A\nB\n");
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  EXPECT_TRUE(stream.complete);
  EXPECT_LT(stream.kept.capacity(), 1000u);
}

// EXPECTED SIZES

const std::string* misjudgedBytes = nullptr;
size_t misjudgedSize = 0;

std::unique_ptr<TextSource> OpenMisjudged(const char*) {
  return std::make_unique<BytesSource>(*misjudgedBytes, misjudgedSize);
}

TEST(TextStreamExpectedSize, all_lines_are_read_whatever_size_was_expected) {
  const SourceOpener files = openSource;
  openSource = OpenMisjudged;
  for (const size_t size : {size_t{128}, chunkSize, chunkSize + 640}) {
    const std::string bytes = LinesAcrossBorder(0).substr(0, size);
    misjudgedBytes = &bytes;
    // 64 is a line's end; a read of just what was expected ends there as well.
    for (const size_t expected :
         {size_t{0}, size_t{1}, size_t{63}, size_t{64}, size - 1, size, size + 1, 4 * chunkSize}) {
      misjudgedSize = expected;
      EXPECT_EQ(ExpectedLines(bytes), Lines(bytes)) << size << " " << expected;
    }
  }
  openSource = files;
}

// TELL AND SEEK

void ExpectSameLinesAfterSeeks(const std::string& bytes) {
  TemporaryFile file(bytes);
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  char line[256];
  std::vector<int32_t> places = {Tell(stream)};
  Texts lines;
  while (ReadLine(stream, line, sizeof line)) {
    lines.push_back(line);
    places.push_back(Tell(stream));
  }
  for (size_t i = lines.size(); i-- > 0;) {
    Seek(stream, places[i]);
    EXPECT_EQ(places[i], Tell(stream));
    ASSERT_TRUE(ReadLine(stream, line, sizeof line)) << i;
    ASSERT_EQ(lines[i], line) << i;
    ASSERT_EQ(places[i + 1], Tell(stream)) << i;
  }
  Seek(stream, places.back());
  EXPECT_FALSE(ReadLine(stream, line, sizeof line));
}

std::string ManyLines(size_t count, const std::string& lineEnd) {
  std::string bytes;
  for (size_t i = 0; i < count; ++i) bytes += std::to_string(i) + std::string(i % 7, ' ') + lineEnd;
  return bytes;
}

TEST(TextStreamSeek, every_place_of_a_file_with_lf_is_found_again) {
  ExpectSameLinesAfterSeeks(ManyLines(2000, "\n"));
}

TEST(TextStreamSeek, every_place_of_a_file_with_cr_lf_is_found_again) {
  ExpectSameLinesAfterSeeks(ManyLines(2000, "\r\n"));
}

TEST(TextStreamSeek, every_place_of_a_file_with_line_ends_of_both_kinds_is_found_again) {
  ExpectSameLinesAfterSeeks(ManyLines(500, "\r\n") + ManyLines(500, "\n") + "A\rB\r\r\n" +
                            ManyLines(500, "\r\n"));
}

TEST(TextStreamSeek, every_place_of_a_file_of_several_chunks_is_found_again) {
  ExpectSameLinesAfterSeeks(LinesAcrossBorder(1) + LinesAcrossBorder(2));
}

TEST(TextStreamSeek, a_place_in_the_middle_of_a_line_that_was_cut_is_found_again) {
  ExpectSameLinesAfterSeeks(std::string(700, 'a') + "\r\n" + std::string(255, 'b') + "\r\n" + "c\r\n");
}

TEST(TextStreamSeek, reading_goes_on_behind_the_border_after_a_seek_back_in_front_of_it) {
  const std::string bytes = LinesAcrossBorder(1);
  TemporaryFile file(bytes);
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  char line[256];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  const int32_t secondLine = Tell(stream);
  for (int i = 0; i < 100; ++i) ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  Seek(stream, secondLine);
  Texts lines = {ExpectedLines(bytes).front()};
  while (ReadLine(stream, line, sizeof line)) lines.push_back(line);
  EXPECT_EQ(ExpectedLines(bytes), lines);
}

TEST(TextStreamSeek, a_seek_back_from_the_end_reads_on) {
  TemporaryFile file("A\r\nB\r\n");
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  char line[8];
  while (ReadLine(stream, line, sizeof line)) {
  }
  Seek(stream, 0);
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  EXPECT_STREQ("A\n", line);
}

// TEXTS THAT AREN'T KEPT

// Opens a text whose bytes can be read again, and returns its source.
BytesSource& OpenAgainReadable(TextStream& stream, const std::string& bytes) {
  auto source = std::make_unique<BytesSource>(bytes, bytes.size(), true);
  BytesSource& opened = *source;
  stream.source = std::move(source);
  return opened;
}

// Reads lines from random places, by two readers: one that keeps all bytes, and one that doesn't.
void ExpectSameLinesUnkept(const std::string& bytes) {
  const TextStream kept = StreamOfBytes(bytes);
  TextStream unkept;
  OpenAgainReadable(unkept, bytes);
  char line[256] = "", expected[256] = "";
  ASSERT_TRUE(ReadLine(unkept, line, sizeof line));
  KeepNoMore(unkept);
  std::mt19937 random(7);
  TextStream reader = StreamOfBytes(bytes);
  std::vector<int32_t> places = {0, Tell(unkept)};
  for (int32_t end; (end = EndOfLine(kept, places.back(), sizeof line)) != notFetched;) places.push_back(end);
  for (int round = 0; round < 300; ++round) {
    const int32_t place = round % 3 ? places[random() % places.size()] : places.back();
    Seek(reader, place);
    Seek(unkept, place);
    for (unsigned count = random() % 8 ? 5 : 6000; count > 0; --count) {
      const bool more = ReadLine(reader, expected, sizeof expected);
      ASSERT_EQ(more, ReadLine(unkept, line, sizeof line)) << place;
      if (!more) break;
      ASSERT_STREQ(expected, line) << place;
      ASSERT_EQ(Tell(reader), Tell(unkept)) << place;
    }
  }
}

TEST(TextStreamUnkept, every_place_is_found_again) {
  const std::string lines = LinesAcrossBorder(1) + LinesAcrossBorder(2) + LinesAcrossBorder(3);
  ExpectSameLinesUnkept(lines);
  ExpectSameLinesUnkept(lines.substr(0, 2 * chunkSize));
  ExpectSameLinesUnkept(lines.substr(0, chunkSize));
}

// What a drawing may take depends on the bytes that were fetched, so they must be the same chunks from any place.
TEST(TextStreamUnkept, a_chunk_begins_where_it_would_have_begun) {
  std::string bytes;
  while (bytes.size() < 5 * chunkSize) bytes += LinesAcrossBorder(0);
  TextStream stream;
  OpenAgainReadable(stream, bytes);
  char line[256];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  KeepNoMore(stream);
  while (ReadLine(stream, line, sizeof line)) {
  }
  Seek(stream, static_cast<int32_t>(2 * chunkSize + 6400));
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  EXPECT_EQ(static_cast<int32_t>(2 * chunkSize), stream.start);
  EXPECT_EQ(static_cast<int32_t>(3 * chunkSize), stream.size);
}

TEST(TextStreamUnkept, all_is_kept_again) {
  const std::string bytes = LinesAcrossBorder(1) + LinesAcrossBorder(2) + LinesAcrossBorder(3);
  const TextStream kept = StreamOfBytes(bytes);
  const auto end = static_cast<int32_t>(bytes.size());
  for (const int32_t until : {0, 100, static_cast<int32_t>(chunkSize) + 100, end}) {
    TextStream stream;
    OpenAgainReadable(stream, bytes);
    char line[256];
    ASSERT_TRUE(ReadLine(stream, line, sizeof line));
    KeepNoMore(stream);
    while (Tell(stream) < until && ReadLine(stream, line, sizeof line)) {
    }
    const int32_t place = Tell(stream);
    if (until == 100) Seek(stream, 0);
    KeepAll(stream);
    Seek(stream, place);
    while (ReadLine(stream, line, sizeof line)) {
    }
    EXPECT_EQ(end, Tell(stream));
    EXPECT_EQ(bytes, std::string(stream.bytes, static_cast<size_t>(stream.size))) << until;
  }
}

TEST(TextStreamUnkept, what_is_lost_can_not_be_kept_again) {
  const std::string bytes = LinesAcrossBorder(0) + LinesAcrossBorder(0);
  TextStream stream;
  BytesSource& source = OpenAgainReadable(stream, bytes);
  char line[256];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  KeepNoMore(stream);
  while (ReadLine(stream, line, sizeof line)) {
  }
  source.Shorten(chunkSize + 100);
  EXPECT_THROW(KeepAll(stream), int32_t);
}

TEST(TextStreamUnkept, nothing_after_an_end_mark_is_read) {
  const std::string lines = LinesAcrossBorder(0) + LinesAcrossBorder(0);
  for (const size_t place : {chunkSize, chunkSize + 70, 2 * chunkSize}) {
    std::string bytes = lines;
    bytes[place] = endMark;
    TextStream stream;
    OpenAgainReadable(stream, bytes);
    char line[256];
    ASSERT_TRUE(ReadLine(stream, line, sizeof line));
    KeepNoMore(stream);
    const auto end = static_cast<int32_t>(place);
    for (const int32_t from : {0, end, 64, end - 64, static_cast<int32_t>(chunkSize), end}) {
      Seek(stream, from);
      while (ReadLine(stream, line, sizeof line)) {
      }
      EXPECT_EQ(end, Tell(stream)) << from;
    }
  }
}

TEST(TextStreamUnkept, a_chunk_is_in_memory_beside_what_was_kept) {
  std::string bytes;
  while (bytes.size() < 20 * chunkSize) bytes += LinesAcrossBorder(0);
  TextStream stream;
  OpenAgainReadable(stream, bytes);
  char line[256];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  KeepNoMore(stream);
  while (ReadLine(stream, line, sizeof line)) {
  }
  EXPECT_EQ(bytes.size(), static_cast<size_t>(Tell(stream)));
  EXPECT_LE(stream.kept.capacity() + stream.passing.bytes.capacity(), 2 * chunkSize + 1);
}

TEST(TextStreamUnkept, all_of_a_source_that_reads_once_is_kept) {
  const std::string bytes = LinesAcrossBorder(0);
  TextStream stream;
  stream.source = std::make_unique<BytesSource>(bytes, bytes.size());
  char line[256];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  KeepNoMore(stream);
  while (ReadLine(stream, line, sizeof line)) {
  }
  EXPECT_EQ(bytes, std::string(stream.bytes, static_cast<size_t>(stream.size)));
}

TEST(TextStreamUnkept, what_was_read_and_is_lost_is_a_fault) {
  const std::string bytes = LinesAcrossBorder(0) + LinesAcrossBorder(0);
  TextStream stream;
  BytesSource& source = OpenAgainReadable(stream, bytes);
  char line[256];
  ASSERT_TRUE(ReadLine(stream, line, sizeof line));
  KeepNoMore(stream);
  const auto place = static_cast<int32_t>(chunkSize);
  Seek(stream, place);
  while (ReadLine(stream, line, sizeof line)) {
  }
  source.Shorten(chunkSize + 100);
  Seek(stream, place);
  EXPECT_THROW(ReadLine(stream, line, sizeof line), int32_t);
}

}  // namespace
}  // namespace hexlume::text_stream_test
