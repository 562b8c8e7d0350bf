// The system has no handles of metafiles.
#include <gtest/gtest.h>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

TEST(HostHandle, there_is_none_here) {
  EXPECT_EQ(nullptr, host::ConvertBytes(A3(Line())).Handle());
}

}  // namespace
}  // namespace hexlume
