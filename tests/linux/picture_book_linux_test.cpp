// A PDF file with a page for each drawing, as a user orders it.
#include <cstdlib>
#include <filesystem>

#include "host/host_drawings.h"
#include "support/endless_drawing.h"
#include "support/tool_run.h"

namespace hexlume::picture_book_linux_test {
namespace {

namespace fs = std::filesystem;

class Book : public ToolRun {};

const std::string a4Header =
    "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 297\n20 210\n0 ENDSEC\n";

std::string A4(const std::string& entities) {
  return DrawingBytes(a4Header + "0 SECTION\n2 ENTITIES\n" + entities + end);
}

// In points: 420 mm are 1190.551181, 297 mm are 841.889764, 210 mm are 595.275591.
TEST_F(Book, each_page_has_the_size_of_its_sheet_and_the_name_of_its_drawing) {
  fs::create_directories("in/図");
  Write("in/b.dxf", A3(Line()));
  Write("in/図/a.dxf", A4(Line()));
  ExpectSuccess(RunReal("--pdf-book book.pdf --recursive in"));
  const std::string book = Contents("book.pdf");
  const size_t first = book.find("/MediaBox[0 0 1190.551181 841.889764]");
  const size_t second = book.find("/MediaBox[0 0 841.889764 595.275591]");
  ASSERT_NE(std::string::npos, second);
  EXPECT_LT(first, second);
  EXPECT_TRUE(Contains(book, "/Title<FEFF0062>"));          // b
  EXPECT_TRUE(Contains(book, "/Title<FEFF56F3002F0061>"));  // 図/a
  EXPECT_FALSE(Exists("in/b.emf"));
}

// The first drawing takes longer than all others.
TEST_F(Book, the_order_is_that_of_the_drawings_with_any_number_of_workers) {
  Write("z.dxf", A3(Lines(30000)));
  std::string names = "z.dxf";
  for (int i = 1; i <= 20; ++i) {
    const std::string name = std::to_string(i) + ".dxf";
    Write(name, A3(Lines(i)));
    names += ' ' + name;
  }
  ExpectSuccess(RunReal("--pdf-book three.pdf --jobs 3 " + names));
  ExpectSuccess(RunReal("--pdf-book here.pdf --jobs 0 " + names));
  EXPECT_EQ(Contents("here.pdf"), Contents("three.pdf"));
  EXPECT_TRUE(Contains(Contents("three.pdf"), "/Type/Pages/Count 21/"));
}

TEST_F(Book, other_results_are_made_beside_it) {
  Write("a.dxf", A3(Line()));
  Write("b.dxf", A3(Line()));
  fs::create_directory("out");
  ExpectSuccess(RunReal("-d out --to emf,svg --pdf-book book.pdf a.dxf b.dxf"));
  for (const char* file : {"out/a.emf", "out/b.svg", "book.pdf"}) EXPECT_TRUE(Exists(file)) << file;
  ExpectSuccess(RunReal("--png a.png --pdf-book - a.dxf"));
  EXPECT_EQ("%PDF-", Contents("out.txt").substr(0, 5));
  EXPECT_TRUE(Exists("a.png"));
}

TEST_F(Book, a_drawing_that_fails_has_no_page) {
  Write("a.dxf", A3(Line()));
  Write("b.dxf", "");
  Write("c.dxf", A3(Line()));
  const Outcome outcome = RunReal("--pdf-book book.pdf a.dxf b.dxf c.dxf");
  EXPECT_EQ(35, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "b.dxf: empty: ")) << outcome.err;
  EXPECT_TRUE(Contains(Contents("book.pdf"), "/Type/Pages/Count 2/"));
}

// Its page would be the first one, so the others wait for it.
TEST_F(Book, a_drawing_that_is_given_up_has_no_page) {
  Write("endless.dxf", EndlessDrawing());
  std::string names = "endless.dxf";
  for (int i = 1; i <= 10; ++i) {
    Write(std::to_string(i) + ".dxf", A3(Line()));
    names += ' ' + std::to_string(i) + ".dxf";
  }
  const Outcome outcome = RunReal("--pdf-book book.pdf --jobs 2 --time-limit 1 --memory-limit 20G " + names);
  EXPECT_EQ(45, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "endless.dxf: time-limit: ")) << outcome.err;
  EXPECT_TRUE(Contains(Contents("book.pdf"), "/Type/Pages/Count 10/"));
}

// A book is written beside its place until it is whole.
TEST_F(Book, what_a_tool_that_was_killed_has_left_is_removed) {
  const auto leftovers = [] {
    size_t count = 0;
    for (const auto& entry : fs::directory_iterator("books"))
      count += entry.path().filename().string().rfind(".hexlume-", 0) == 0;
    return count;
  };
  fs::create_directory("books");
  Write("books/book.pdf", "earlier");
  Write("a.dxf", A3(Line()));
  Write("endless.dxf", EndlessDrawing());
  const std::string tool = (ProgramFolder() / "hexlume").string();
  // Waits until the process has ended, as what a living one writes isn't removed. The shell says there that it was killed.
  const std::string run =
      tool + " --pdf-book books/book.pdf --jobs 0 endless.dxf & sleep 1; kill -KILL $!; wait $!";
  EXPECT_NE(0, std::system(("{ " + run + "; } 2>killed.txt").c_str()));
  EXPECT_EQ(1u, leftovers());
  EXPECT_EQ("earlier", Contents("books/book.pdf"));
  ExpectSuccess(RunReal("--pdf-book books/book.pdf a.dxf"));
  EXPECT_EQ(0u, leftovers());
}

TEST_F(Book, a_sheet_that_is_too_large_for_a_page_is_named) {
  Write("a.dxf", A3(Line()));
  const Outcome outcome = RunScripted("--view 0,0,100,508001 --pdf-book book.pdf a.dxf");
  EXPECT_EQ(73, outcome.status);
  EXPECT_TRUE(
      Contains(outcome.err,
               "hexlume: a.dxf: its page can't be written: the picture would be larger than 14400 points"))
      << outcome.err;
}

TEST_F(Book, an_earlier_file_stays_if_there_are_no_pages) {
  Write("book.pdf", "earlier");
  Write("a.dxf", "");
  const Outcome outcome = RunReal("--pdf-book book.pdf a.dxf a.dxf");
  EXPECT_EQ(73, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "book.pdf: can't be written: no drawing gives a page")) << outcome.err;
  EXPECT_EQ("earlier", Contents("book.pdf"));
}

TEST_F(Book, wrong_usage) {
  ExpectWrongUsage("--pdf-book a.dxf a.dxf", "the output 'a.dxf' is also a drawing or another output");
  ExpectWrongUsage("-d . --to pdf --pdf-book plan.pdf plan.dxf", "is also a drawing or another output");
  ExpectWrongUsage("--png x --pdf-book x plan.dxf", "the output 'x' is also a drawing or another output");
  ExpectWrongUsage("--report x --pdf-book ./x a.dxf", "the output './x' is also the report");
  ExpectWrongUsage("--to png --pdf-book b.pdf a.dxf", "--to and --pdf-book together need -d DIR");
  ExpectWrongUsage("-d . --skip-unchanged --pdf-book b.pdf a.dxf",
                   "--skip-unchanged can't be used with --pdf-book");
  ExpectWrongUsage("--list --pdf-book - a.dxf", "standard output takes one result only");
  ExpectWrongUsage("--report - --pdf-book - a.dxf", "standard output takes one result only");
}

}  // namespace
}  // namespace hexlume::picture_book_linux_test
