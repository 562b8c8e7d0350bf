#include "tools/hexlume/archive/book_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/picture_text.h"

namespace hexlume::book_file_test {
namespace {

class BookFileTest : public testing::Test {
 protected:
  void SetUp() override { std::filesystem::remove(path); }
  void TearDown() override { std::filesystem::remove(path); }

  void TakeFailure(size_t index, const std::string& words) {
    failures += std::to_string(index) + ": " + words + '\n';
  }

  std::string Contents() const {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  // The place of a bookmark in the file; far behind all others if it has none.
  size_t PlaceOf(const std::string& title) const { return Contents().find("/Title<FEFF" + title + '>'); }

  const std::string path = (std::filesystem::temp_directory_path() / "hexlume_book_file_test.pdf").string();
  std::string failures;
  BookFile book{path, [this](size_t index, const std::string& words) { TakeFailure(index, words); }};
};

MetafileBytes Page(const Words& records = LineRecords(0, 0, 10, -20)) {
  const Words metafile = SmallMetafile(records);
  return {BytesOf(metafile), BytesOf(metafile) + 4 * metafile.size()};
}

// A is U+0041.
TEST_F(BookFileTest, pages_are_in_the_order_of_the_drawings) {
  book.Take(2, "C", Page());
  book.Take(1, "B", Page());
  book.Take(3, "D", {});
  book.Take(0, "A", Page());
  book.Finish();
  EXPECT_LT(PlaceOf("0041"), PlaceOf("0042"));
  EXPECT_LT(PlaceOf("0042"), PlaceOf("0043"));
  EXPECT_EQ(std::string::npos, PlaceOf("0044"));
  EXPECT_NE(std::string::npos, Contents().find("/Type/Pages/Count 3/"));
  EXPECT_EQ("", failures);
}

// 70 pages of 1,000,000 bytes are more than 64 MB.
TEST_F(BookFileTest, it_is_full_while_large_pages_wait_for_an_early_one) {
  const MetafileBytes small = Page();
  std::vector<uint8_t> bytes(small.begin(), small.end());
  bytes.resize(1'000'000);
  const MetafileBytes large(std::move(bytes));
  for (size_t index = 1; index <= 60; ++index) book.Take(index, "", large);
  EXPECT_FALSE(book.IsFull());
  for (size_t index = 61; index <= 70; ++index) book.Take(index, "", large);
  EXPECT_TRUE(book.IsFull());
  book.Take(0, "", Page());
  EXPECT_FALSE(book.IsFull());
}

TEST_F(BookFileTest, a_page_that_cannot_be_drawn_is_named) {
  book.Take(1, "B", Page(Record(54, {1})));
  book.Take(0, "A", Page());
  EXPECT_EQ("1: the metafile is malformed\n", failures);
}

TEST_F(BookFileTest, without_pages_no_file_is_written) {
  book.Take(0, "A", {});
  EXPECT_THROW(book.Finish(), OutputError);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(BookFileTest, an_unfinished_file_is_not_written) {
  book.Take(0, "A", Page());
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace hexlume::book_file_test
