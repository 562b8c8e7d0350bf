// The one system that draws arcs the other way round until the direction is set. This program's own system version
// takes the place of the library's.

#include <gtest/gtest.h>

#include <string>

#include "entities/entity_dispatch.h"
#include "platform/system_version.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume {

static SystemVersion version = {4, 10};

SystemVersion GetSystemVersion() {
  return version;
}

namespace {

class SystemVersionTest : public ConverterTest {
 protected:
  // The listing of an empty section on this system.
  std::string DrawOn(const SystemVersion& system) {
    version = system;
    stream = StreamOf("0 ENDSEC\n");
    return ListCalls([this](Canvas canvas) { DrawEntities({RunOn(canvas)}); });
  }
};

TEST_F(SystemVersionTest, on_4_10_the_arc_direction_comes_before_the_mapping_mode) {
  EXPECT_EQ("SetArcDirection(AD_CLOCKWISE)\nSetMapMode(MM_HIMETRIC)\n", DrawOn({4, 10}));
}

TEST_F(SystemVersionTest, on_4_10_arc_clockwise_is_1) {
  DrawOn({4, 10});
  EXPECT_EQ(1, state.arcClockwise);
}

TEST_F(SystemVersionTest, elsewhere_the_arc_direction_stays_and_arc_clockwise_is_0) {
  for (const SystemVersion& system : {SystemVersion{4, 0}, SystemVersion{4, 90}, SystemVersion{5, 10},
                                      SystemVersion{10, 0}, SystemVersion{10, 4}, SystemVersion{0, 10}}) {
    state.arcClockwise = 1;
    EXPECT_EQ("SetMapMode(MM_HIMETRIC)\n", DrawOn(system));
    EXPECT_EQ(0, state.arcClockwise) << system.major << "." << system.minor;
  }
}

TEST_F(SystemVersionTest, arc_clockwise_is_found_anew_by_each_section) {
  DrawOn({4, 10});
  DrawOn({10, 0});
  EXPECT_EQ(0, state.arcClockwise);
  DrawOn({4, 10});
  EXPECT_EQ(1, state.arcClockwise);
}

}  // namespace
}  // namespace hexlume
