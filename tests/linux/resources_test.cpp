// Conversions leave nothing in the process. That no object of a drawing stays is seen by the
// leak sanitizer, in the build that has it; this one isn't part of it, as freed memory stays in its
// quarantine.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <iterator>

#include "linux/process_resources.h"
#include "support/conversion_rounds.h"

namespace hexlume::resources_test {
namespace {

size_t OpenFiles() {
  const std::filesystem::directory_iterator files("/proc/self/fd");
  return static_cast<size_t>(std::distance(begin(files), end(files)));
}

TEST(Resources, two_thousand_conversions_hold_no_more_than_ten) {
  const LoadedLibrary library;
  const ConversionRounds rounds;
  rounds.Run(library, 0, 10);
  const size_t files = OpenFiles();
  const size_t early = WorkingSet();
  rounds.Run(library, 10, 2000);
  EXPECT_EQ(files, OpenFiles());
  // The heap takes some pages once, while it settles; from then on it takes none.
  const size_t settled = WorkingSet();
  EXPECT_LE(settled, early + 256 * 1024);
  rounds.Run(library, 2000, 4000);
  EXPECT_LE(WorkingSet(), settled + 8 * 1024);
}

TEST(Resources, twenty_thousand_texts_that_leave_their_fonts_hold_no_more_the_second_time) {
  const LoadedLibrary library;
  ConvertTextsThatLeaveTheirFonts(library, 20000);
  const size_t settled = WorkingSet();
  ConvertTextsThatLeaveTheirFonts(library, 20000);
  EXPECT_LE(WorkingSet(), settled + 256 * 1024);
}

TEST(Resources, the_measure_sees_64_pages_once_they_are_used) {
  const size_t size = 64 * static_cast<size_t>(sysconf(_SC_PAGESIZE));
  const size_t before = WorkingSet();
  void* const pages = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(MAP_FAILED, pages);
  EXPECT_LT(WorkingSet(), before + size);
  std::memset(pages, 1, size);
  EXPECT_GE(WorkingSet(), before + size);
  munmap(pages, size);
  EXPECT_LT(WorkingSet(), before + size);
}

}  // namespace
}  // namespace hexlume::resources_test
