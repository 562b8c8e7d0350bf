// Conversions leave nothing in the process.
#include <gtest/gtest.h>

#include "support/conversion_rounds.h"
#include "windows/process_resources.h"

namespace hexlume::resources_test {
namespace {

TEST(Resources, two_thousand_conversions_hold_no_more_than_ten) {
  const LoadedLibrary library;
  const ConversionRounds rounds;
  rounds.Run(library, 0, 10);
  const size_t objects = CountGdiObjects();
  const size_t early = WorkingSet();
  rounds.Run(library, 10, 2000);
  EXPECT_EQ(objects, CountGdiObjects());
  // The system's heap takes some pages once, while it settles; from then on it takes none.
  const size_t settled = WorkingSet();
  EXPECT_LE(settled, early + 256 * 1024);
  rounds.Run(library, 2000, 4000);
  EXPECT_LE(WorkingSet(), settled + 8 * 1024);
}

TEST(Resources, twenty_thousand_texts_that_leave_their_fonts_hold_none) {
  const LoadedLibrary library;
  ConvertTextsThatLeaveTheirFonts(library, 1);
  const size_t objects = CountGdiObjects();
  ConvertTextsThatLeaveTheirFonts(library, 20000);
  EXPECT_EQ(objects, CountGdiObjects());
}

TEST(Resources, the_count_sees_a_single_object) {
  const size_t before = CountGdiObjects();
  const HPEN pen = CreatePen(PS_SOLID, 0, 0x123456);
  EXPECT_EQ(before + 1, CountGdiObjects());
  DeleteObject(pen);
  EXPECT_EQ(before, CountGdiObjects());
}

}  // namespace
}  // namespace hexlume::resources_test
